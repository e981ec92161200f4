#include "Source/Guidance/Hours/Rule.hpp"

#include <algorithm>

namespace orivanta::guidance::hours {

namespace {

namespace chrono = std::chrono;

template <typename Range, typename Value>
bool anyContains(const std::vector<Range>& ranges, const Value& value) {
  return ranges.empty() || std::any_of(ranges.begin(), ranges.end(),
                                       [&](const Range& range) { return range.contains(value); });
}

}  // namespace

bool Rule::appliesTo(chrono::sys_days day) const {
  if (onlyHolidays) return false;
  const chrono::year_month_day date(day);
  if (hasWeekdays) {
    const unsigned weekday = chrono::weekday(day).iso_encoding() - 1;
    const auto fromStart = (static_cast<unsigned>(date.day()) - 1) / 7 + 1;
    const auto after = (lastDayOf(date.year(), date.month()) - day).count();
    const auto fromEnd = static_cast<unsigned>(after) / 7 + 1;
    if ((weekdays.at(weekday) & (1U << fromStart | 1U << (5 + fromEnd))) == 0) return false;
  }
  if (!anyContains(years, static_cast<int>(date.year()))) return false;
  return anyContains(dates, day) && (weeks.empty() || anyContains(weeks, weekOfYear(day)));
}

std::optional<OpenState> Rule::at(int minute) const {
  if (spans.empty()) return minute < minutesPerDay ? std::optional(state) : std::nullopt;
  bool afterOpenEnd = false;
  for (const Span& span : spans) {
    if (minute >= span.begin && minute < span.end) return state;
    if (span.openEnd && minute >= span.end && minute < openEndsAt) afterOpenEnd = true;
  }
  return afterOpenEnd ? std::optional(OpenState::unknown) : std::nullopt;
}

bool Rule::replacesDays() const {
  if (kind == RuleKind::fallback) return false;
  return state == OpenState::closed ? spans.empty() : kind == RuleKind::replacing;
}

}  // namespace orivanta::guidance::hours
