// A date and time of day at a venue, without a time zone.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::guidance {

/// A minute in the Gregorian calendar, as shown by a clock at the venue.
struct ORIVANTA_API LocalTime {
  int year = 1970;  ///< 1 to 9999
  int month = 1;    ///< 1 to 12
  int day = 1;      ///< 1 to 31
  int hour = 0;     ///< 0 to 23
  int minute = 0;   ///< 0 to 59

  /// Parses ISO 8601 without a time zone, such as "2026-11-21T18:30"; seconds are ignored. Returns
  /// nothing for any other text and for dates that do not exist.
  static std::optional<LocalTime> parse(std::string_view text);

  /// Returns the text that `parse` reads.
  std::string text() const;

  /// Returns the day of the week: 0 is Monday, 6 is Sunday.
  int weekday() const;

  /// Returns the time a number of minutes later, or earlier if negative. The result is at least
  /// 0001-01-01T00:00 and at most 9999-12-31T23:59.
  LocalTime plusMinutes(long long minutes) const;

  friend auto operator<=>(const LocalTime&, const LocalTime&) = default;  // NOLINT: no pointer
};

}  // namespace orivanta::guidance
