#include "Source/Guidance/LocalTime.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

namespace orivanta::guidance {

namespace {

namespace chrono = std::chrono;

constexpr long long minutesPerDay = 24LL * 60;

// Returns the days since 1970; fields out of range are taken as the nearest in range.
chrono::sys_days daysOf(const LocalTime& time) {
  return chrono::year(std::clamp(time.year, 1, 9999)) /
         chrono::month(static_cast<unsigned>(std::clamp(time.month, 1, 12))) /
         chrono::day(static_cast<unsigned>(std::clamp(time.day, 1, 31)));
}

// Removes a number of exactly this many digits from the front of a text. Returns -1 if there is
// none.
int takeNumber(std::string_view& text, std::size_t digits) {
  if (text.size() < digits) return -1;
  int number = 0;
  for (const char digit : text.substr(0, digits)) {
    if (digit < '0' || digit > '9') return -1;
    number = number * 10 + (digit - '0');
  }
  text.remove_prefix(digits);
  return number;
}

bool take(std::string_view& text, char expected) {
  if (text.empty() || text.front() != expected) return false;
  text.remove_prefix(1);
  return true;
}

// Returns whether a text is empty or states seconds, such as ":30" or ":30.25".
bool isSeconds(std::string_view text) {
  if (text.empty()) return true;
  if (!take(text, ':')) return false;
  const int seconds = takeNumber(text, 2);
  if (seconds < 0 || seconds > 60) return false;
  if (text.empty()) return true;
  return take(text, '.') && !text.empty() &&
         text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::optional<LocalTime> LocalTime::parse(std::string_view text) {
  LocalTime time;
  time.year = takeNumber(text, 4);
  if (!take(text, '-')) return std::nullopt;
  time.month = takeNumber(text, 2);
  if (!take(text, '-')) return std::nullopt;
  time.day = takeNumber(text, 2);
  if (!take(text, 'T')) return std::nullopt;
  time.hour = takeNumber(text, 2);
  if (!take(text, ':')) return std::nullopt;
  time.minute = takeNumber(text, 2);
  if (!isSeconds(text)) return std::nullopt;
  if (time.year < 1 || time.month < 1 || time.day < 1) return std::nullopt;
  const chrono::year_month_day date(chrono::year(time.year),
                                    chrono::month(static_cast<unsigned>(time.month)),
                                    chrono::day(static_cast<unsigned>(time.day)));
  const bool inDay = time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60;
  if (!date.ok() || !inDay) return std::nullopt;
  return time;
}

std::string LocalTime::text() const {
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}", year, month, day, hour, minute);
}

int LocalTime::weekday() const {
  return static_cast<int>(chrono::weekday(daysOf(*this)).iso_encoding()) - 1;
}

LocalTime LocalTime::plusMinutes(long long minutes) const {
  const long long first = daysOf({1, 1, 1}).time_since_epoch().count() * minutesPerDay;
  const long long last = daysOf({9999, 12, 31}).time_since_epoch().count() * minutesPerDay + 1439;
  const long long own =
      daysOf(*this).time_since_epoch().count() * minutesPerDay + hour * 60LL + minute;
  const long long start = std::clamp(own, first, last);
  const long long moved = start + std::clamp(minutes, first - start, last - start);
  // The standard type of minutes may have 32 bits, which end in the year 6053.
  const auto days = chrono::floor<chrono::days>(chrono::duration<long long, std::ratio<60>>(moved));
  const chrono::year_month_day date{chrono::sys_days(days)};
  const auto inDay = static_cast<int>(moved - days.count() * minutesPerDay);
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())), inDay / 60, inDay % 60};
}

}  // namespace orivanta::guidance
