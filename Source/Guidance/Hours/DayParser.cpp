#include "Source/Guidance/Hours/DayParser.hpp"

#include <cstdint>
#include <vector>

#include "Source/Guidance/Hours/DateParser.hpp"
#include "Source/Guidance/Hours/SpanParser.hpp"

namespace orivanta::guidance::hours {

namespace {

constexpr std::uint16_t everyNth = 0b111110;  // the first to the fifth such day of a month

bool isHoliday(const TokenReader& tokens, std::size_t ahead = 0) {
  return tokens.isWord("ph", ahead) || tokens.isWord("sh", ahead);
}

bool isWeekday(const TokenReader& tokens, std::size_t ahead = 0) {
  return tokens.weekday(ahead) || isHoliday(tokens, ahead) || tokens.isWord("daily", ahead);
}

// Reads ranges of years or weeks: "2025-2027", "2026+", "1-52/2".
bool readNumbers(TokenReader& tokens, int least, int most, std::vector<NumberRange>& ranges) {
  do {
    const auto from = tokens.acceptNumber(least, most);
    if (!from) return false;
    NumberRange range{*from, *from, 1};
    if (tokens.accept('-')) range.to = tokens.acceptNumber(*from, most).value_or(0);
    if (tokens.accept('+')) range.to = most;
    if (tokens.accept('/')) range.step = tokens.acceptNumber(1, 99).value_or(0);
    if (range.to == 0 || range.step == 0) return false;
    ranges.push_back(range);
  } while (tokens.isNumber(1) && !isTime(tokens, 1) && tokens.accept(','));
  return true;
}

// Reads "[1,3-4,-1]" after a day of the week. Returns the bits of `Rule::weekdays`, or 0 if they
// are not valid.
std::uint16_t readNths(TokenReader& tokens) {
  if (!tokens.accept('[')) return everyNth;
  unsigned bits = 0;
  do {
    const int from = readNth(tokens).value_or(0);
    const int to = tokens.accept('-') ? readNth(tokens).value_or(0) : from;
    if (from == 0 || to < from || (from < 0 && to > 0)) return 0;
    for (int nth = from; nth <= to; ++nth)
      bits |= 1U << static_cast<unsigned>(nth > 0 ? nth : 5 - nth);
  } while (tokens.accept(','));
  return tokens.accept(']') ? static_cast<std::uint16_t>(bits) : std::uint16_t(0);
}

// Reads "Mo", "Mo-Fr", "Su[1]" or "daily".
bool readWeekday(TokenReader& tokens, Rule& rule) {
  const bool daily = tokens.isWord("daily");
  const int from = daily ? 0 : *tokens.weekday();
  int to = daily ? 6 : from;
  tokens.skip();
  tokens.accept('.');
  if (tokens.isSymbol('-') && tokens.weekday(1)) {
    to = *tokens.weekday(1);
    tokens.skip(2);
    tokens.accept('.');
  }
  const std::uint16_t nths = readNths(tokens);
  for (int day = from;; day = (day + 1) % 7) {
    rule.weekdays.at(static_cast<std::size_t>(day)) |= nths;
    if (day == to) break;
  }
  return nths != 0 && !isOffset(tokens);
}

// Reads days of the week and holidays separated by commas.
bool readWeekdays(TokenReader& tokens, Rule& rule) {
  bool onlyHolidays = true;
  do {
    if (isHoliday(tokens)) {
      tokens.skip();
      if (isOffset(tokens) && !readDaysAfter(tokens)) return false;
    } else {
      if (!readWeekday(tokens, rule)) return false;
      onlyHolidays = false;
      rule.hasWeekdays = true;
    }
  } while (isWeekday(tokens, 1) && tokens.accept(','));
  rule.onlyHolidays |= onlyHolidays;  // "PH Mo-Fr" are holidays; "Mo-Fr,PH" are not only those
  return true;
}

bool readSelector(TokenReader& tokens, Rule& rule) {
  if (isDate(tokens)) return readDates(tokens, rule);
  if (isYear(tokens)) return readNumbers(tokens, 1900, 9999, rule.years);
  if (isWeekday(tokens)) return readWeekdays(tokens, rule);
  tokens.skip();  // "week"
  return readNumbers(tokens, 1, 53, rule.weeks);
}

}  // namespace

bool isDay(const TokenReader& tokens, std::size_t ahead) {
  return isDate(tokens, ahead) || isYear(tokens, ahead) || isWeekday(tokens, ahead) ||
         tokens.isWord("week", ahead);
}

bool readDays(TokenReader& tokens, Rule& rule) {
  if (!isDay(tokens)) return true;
  while (isDay(tokens)) {
    // After a day of the week, "2000-2100" are times without colons.
    if (rule.hasWeekdays && isYear(tokens)) return false;
    if (!readSelector(tokens, rule)) return false;
  }
  if (!tokens.accept(':') && tokens.isSymbol(',') && isTime(tokens, 1)) tokens.skip();
  return true;
}

}  // namespace orivanta::guidance::hours
