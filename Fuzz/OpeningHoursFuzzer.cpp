// Reads two lines, a time and opening hours: follows the changes of the state and compares them
// with the states at other times.
#include <string_view>

#include "Fuzz/Fuzzer.hpp"
#include "Source/Guidance/OpeningHours.hpp"

namespace orivanta::guidance {
namespace {

constexpr int fortnight = 14 * 24 * 60;

// The state must be the same from `start` until `minutes` later.
void requireSameState(const OpeningHours& hours, const LocalTime& start, int minutes) {
  const OpenState state = hours.at(start);
  for (int later = 1; later < minutes; later += 47)
    ORIVANTA_REQUIRE(hours.at(start.plusMinutes(later)) == state);
  ORIVANTA_REQUIRE(hours.at(start.plusMinutes(minutes - 1)) == state);
}

int minutesBetween(const LocalTime& start, const LocalTime& end) {
  int minutes = 0;
  for (int step = 1 << 14; step > 0; step /= 2)
    if (start.plusMinutes(minutes + step) < end) minutes += step;
  return minutes + 1;
}

void followHours(std::string_view text) {
  auto time = LocalTime::parse(fuzz::takeUpTo("\n", text));
  if (time) ORIVANTA_REQUIRE(LocalTime::parse(time->text()) == time);
  if (!time) time = LocalTime{2026, 11, 16, 0, 0};
  const auto hours = OpeningHours::parse(text);
  if (!hours) return;
  for (int change = 0; change < 4; ++change) {
    const auto next = hours->nextChange(*time);
    ORIVANTA_REQUIRE(!next || *next > *time);
    ORIVANTA_REQUIRE(!next || *next <= time->plusMinutes(fortnight));
    requireSameState(*hours, *time, next ? minutesBetween(*time, *next) : fortnight);
    if (!next) return;
    ORIVANTA_REQUIRE(hours->at(*next) != hours->at(*time));
    time = next;
  }
}

}  // namespace
}  // namespace orivanta::guidance

ORIVANTA_FUZZER(OpeningHours, orivanta::guidance::followHours)
