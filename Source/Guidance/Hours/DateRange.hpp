// Ranges of dates in opening hours, such as "Dec 24-Jan 02" or "Mar Su[-1]-Oct Su[-1]".
// Private header.
#pragma once

#include <chrono>

namespace orivanta::guidance::hours {

/// The first or the last day of a range.
struct DateEnd {
  int year = 0;        ///< 0 means every year
  unsigned month = 0;  ///< 1 to 12; 0 means Easter Sunday
  unsigned day = 0;    ///< 1 to 31; 0 means the whole month
  int weekday = 0;     ///< 0 is Monday; used if `nth` is not 0
  int nth = 0;         ///< 1 is the first such day of the month, -1 the last
  int daysAfter = 0;   ///< an offset from Easter Sunday

  friend bool operator==(const DateEnd&, const DateEnd&) = default;
};

/// A range of dates. A range without years that ends before it begins extends into the next year.
struct DateRange {
  DateEnd from;  ///< the first day
  DateEnd to;    ///< the last day

  /// Returns whether a day is in the range.
  bool contains(std::chrono::sys_days day) const;
};

/// Returns the number of the ISO 8601 week that contains a day: 1 to 53.
int weekOfYear(std::chrono::sys_days day);

/// Returns the last day of a month.
std::chrono::sys_days lastDayOf(std::chrono::year year, std::chrono::month month);

}  // namespace orivanta::guidance::hours
