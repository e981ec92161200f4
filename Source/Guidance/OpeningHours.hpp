// Opening hours, in a subset of the grammar of OpenStreetMap's `opening_hours`.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Guidance/LocalTime.hpp"

namespace orivanta::guidance {

/// Whether a place is open.
enum class OpenState {
  open,    ///< open
  closed,  ///< closed
  unknown  ///< the text could not be read, or states nothing about this time
};

/// Immutable. Thread-safe.
class ORIVANTA_API OpeningHours {
 public:
  /// Parses a text such as "Mo-Fr 09:00-18:00; Sa 10:00-16:00; PH off". Returns nothing if the text
  /// is not in the subset.
  static std::optional<OpeningHours> parse(std::string_view text);

  /// Returns the state in the minute that begins at this time.
  OpenState at(const LocalTime& time) const;

  /// Returns the first minute after this time with another state, at most 14 days later. Returns
  /// nothing if there is none.
  std::optional<LocalTime> nextChange(const LocalTime& time) const;
};

}  // namespace orivanta::guidance
