// Opening hours in words.
#pragma once

#include <string>
#include <vector>

#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/OpeningHours.hpp"

namespace orivanta::viewer {

/// The opening hours of one day.
struct DayHours {
  std::string day;    ///< the name of the day of the week
  std::string hours;  ///< such as "09:00–12:00, 14:00–18:00", or that it is closed

  friend bool operator==(const DayHours&, const DayHours&) = default;
};

/// Returns whether a place is open and until when, such as "Open until 20:00" or "Closed · opens
/// tomorrow at 09:00". Returns an empty text if the state is unknown.
std::string stateText(const guidance::OpeningHours& hours, const guidance::LocalTime& now,
                      const guidance::InterfaceTexts& texts);

/// Returns the hours of seven days, of which the first is that of `now`. Times after midnight
/// belong to the day on which they begin.
std::vector<DayHours> weekOf(const guidance::OpeningHours& hours, const guidance::LocalTime& now,
                             const guidance::InterfaceTexts& texts);

}  // namespace orivanta::viewer
