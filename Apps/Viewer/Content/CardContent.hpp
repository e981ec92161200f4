// What the card of a place or connector says.
#pragma once

#include <string>
#include <vector>

#include "Apps/Viewer/Content/HoursText.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"

namespace orivanta::viewer {

/// The texts of a card, ready to be shown. Empty texts are not shown.
struct CardContent {
  std::string title{};                ///< the name, or the kind of a connector without a sign
  std::string detail{};               ///< the categories or the kind, and the floors
  PlaceKind kind = PlaceKind::other;  ///< for the icon
  std::string state{};                ///< such as "Open until 20:00" or "Out of order"
  bool isClosed = false;              ///< whether it cannot be used now
  bool isOutOfOrder = false;          ///< whether it is among the closures
  std::vector<DayHours> week{};       ///< from today on; empty if the hours are not known
  std::string hours{};                ///< opening hours that cannot be read, as the record has them
  std::string phone{};                ///< the number
  std::string website{};              ///< the address without the scheme
  std::string description{};          ///< for visitors
};

/// What the content of a card depends on, besides the place. Refers to the arguments.
struct CardContext {
  const Venue& venue;                     ///< loaded
  const guidance::Closures& closures;     ///< what is closed
  guidance::LocalTime now;                ///< at the venue
  const guidance::InterfaceTexts& texts;  ///< in the language of the interface
  const KindWords& words;                 ///< determine the kind
};

/// Returns the content for a place or connector of the venue. The opening hours are those of the
/// record. If it has none, opening hours at the end of the description are used, where some
/// converters write them; the content's description is then without them.
CardContent cardContent(const Location& place, const CardContext& context);

}  // namespace orivanta::viewer
