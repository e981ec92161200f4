// A rule of opening hours.
// Private header.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

#include "Source/Guidance/Hours/DateRange.hpp"
#include "Source/Guidance/OpenState.hpp"

namespace orivanta::guidance::hours {

constexpr int minutesPerDay = 24 * 60;

/// Times of a day, in minutes after midnight.
struct Span {
  int begin = 0;         ///< the first minute, at most 24 * 60
  int end = 0;           ///< the minute after the last one, at most 48 * 60
  bool openEnd = false;  ///< whether the state is unknown from `end` to `openEndsAt`
};

/// When an open end is over: at four in the morning of the next day.
constexpr int openEndsAt = minutesPerDay + 4 * 60;

/// A range of numbers of years or weeks; every `step`th one is in the range.
struct NumberRange {
  int from = 0;  ///< the first number
  int to = 0;    ///< the last number
  int step = 1;  ///< at least 1

  /// Returns whether a number is in the range.
  bool contains(int number) const {
    return number >= from && number <= to && (number - from) % step == 0;
  }
};

/// How a rule relates to the rules before it.
enum class RuleKind {
  replacing,   ///< it replaces them on its days
  additional,  ///< it is added to them
  fallback     ///< it applies where they state nothing
};

/// Days, times and the state then. Empty selectors select every day and the whole day.
struct Rule {
  RuleKind kind = RuleKind::replacing;  ///< how it relates to the rules before it
  OpenState state = OpenState::open;    ///< the state at its times
  bool onlyHolidays = false;            ///< whether it applies to public or school holidays only
  bool hasWeekdays = false;             ///< whether `weekdays` is used
  /// For each day of the week, bit n is set for the nth such day of a month, bit 5 + n for the nth
  /// from its end.
  std::array<std::uint16_t, 7> weekdays{};
  std::vector<NumberRange> years;  ///< one of them contains the year
  std::vector<NumberRange> weeks;  ///< one of them contains the week
  std::vector<DateRange> dates;    ///< one of them contains the day
  std::vector<Span> spans;         ///< the times

  /// Returns whether the rule applies to spans that begin on a day. Holidays are passed over.
  bool appliesTo(std::chrono::sys_days day) const;

  /// Returns what the rule states about a minute, counted from the beginning of a day to which it
  /// applies: 0 to 48 * 60 - 1.
  std::optional<OpenState> at(int minute) const;

  /// Returns whether the rule replaces what earlier rules state about its days.
  bool replacesDays() const;
};

/// All rules of a text.
struct Schedule {
  std::vector<Rule> rules;  ///< in the order of the text
  std::vector<int> edges;   ///< the minutes of a day at which states can change, ascending
  OpenState otherwise = OpenState::closed;  ///< the state where no rule states anything
};

}  // namespace orivanta::guidance::hours
