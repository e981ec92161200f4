#include "Source/Guidance/Hours/DateRange.hpp"

#include <algorithm>

namespace orivanta::guidance::hours {

namespace {

namespace chrono = std::chrono;
using chrono::sys_days;

// Returns Easter Sunday of the Gregorian calendar (the anonymous algorithm of 1876).
sys_days easter(int year) {
  const int a = year % 19;
  const int b = year / 100;
  const int c = year % 100;
  const int d = (19 * a + b - b / 4 - (b - (b + 8) / 25 + 1) / 3 + 15) % 30;
  const int e = (32 + 2 * (b % 4) + 2 * (c / 4) - d - c % 4) % 7;
  const int f = d + e - 7 * ((a + 11 * d + 22 * e) / 451) + 114;
  return chrono::year(year) / chrono::month(static_cast<unsigned>(f / 31)) /
         chrono::day(static_cast<unsigned>(f % 31 + 1));
}

// Returns a day in a year. An end without a day is the first or the last day of its month.
sys_days resolve(const DateEnd& end, int yearNumber, bool last) {
  if (end.month == 0) return easter(yearNumber) + chrono::days(end.daysAfter);
  const chrono::year year(yearNumber);
  const chrono::month month(end.month);
  const sys_days firstDay = year / month / chrono::day(1);
  const sys_days lastDay = lastDayOf(year, month);
  if (end.nth > 0) {
    const int first = static_cast<int>(chrono::weekday(firstDay).iso_encoding()) - 1;
    return firstDay + chrono::days((end.weekday - first + 7) % 7 + 7 * (end.nth - 1));
  }
  if (end.nth < 0) {
    const int latest = static_cast<int>(chrono::weekday(lastDay).iso_encoding()) - 1;
    return lastDay - chrono::days((latest - end.weekday + 7) % 7 + 7 * (-end.nth - 1));
  }
  if (end.day == 0) return last ? lastDay : firstDay;
  const sys_days day = firstDay + chrono::days(static_cast<int>(end.day) - 1);
  return last ? std::min(day, lastDay) : day;
}

}  // namespace

sys_days lastDayOf(chrono::year year, chrono::month month) { return year / month / chrono::last; }

bool DateRange::contains(sys_days day) const {
  const int year =
      from.year != 0 ? from.year : static_cast<int>(chrono::year_month_day(day).year());
  const sys_days first = resolve(from, year, false);
  sys_days last = resolve(to, to.year != 0 ? to.year : year, true);
  if (first <= last) return first <= day && day <= last;
  if (from == to || to.year != 0) return false;  // such as February 29, or a range of no days
  if (from.year == 0) return day >= first || day <= last;
  last = resolve(to, year + 1, true);
  return first <= day && day <= last;
}

int weekOfYear(sys_days day) {
  // A week belongs to the year of its Thursday.
  const int weekday = static_cast<int>(chrono::weekday(day).iso_encoding()) - 1;
  const sys_days thursday = day + chrono::days(3 - weekday);
  const sys_days newYear =
      chrono::year_month_day(thursday).year() / chrono::January / chrono::day(1);
  return static_cast<int>((thursday - newYear).count()) / 7 + 1;
}

}  // namespace orivanta::guidance::hours
