#include "Source/Guidance/Hours/DateParser.hpp"

#include "Source/Guidance/Hours/SpanParser.hpp"

namespace orivanta::guidance::hours {

namespace {

bool isDayOfMonth(const TokenReader& tokens, std::size_t ahead = 0) {
  return tokens.isNumber(ahead) && tokens.peek(ahead).digits <= 2 &&
         (!isTime(tokens, ahead) || tokens.isSymbol('-', ahead + 1));
}

// Returns whether the tokens are "Su[-1]-Oct", so that the weekday belongs to the date.
bool beginsWithNth(const TokenReader& tokens) {
  if (!tokens.weekday() || !tokens.isSymbol('[', 1)) return false;
  const std::size_t number = tokens.isSymbol('-', 2) ? 3 : 2;
  return tokens.isNumber(number) && tokens.isSymbol(']', number + 1) &&
         tokens.isSymbol('-', number + 2) && isDate(tokens, number + 3);
}

// Reads a date: a month, a day of a month or Easter. `withNth` tells whether a weekday belongs to
// it.
std::optional<DateEnd> readDate(TokenReader& tokens, bool withNth) {
  DateEnd end;
  if (isYear(tokens)) end.year = tokens.acceptNumber(1900, 9999).value_or(0);
  if (tokens.isWord("easter")) {
    tokens.skip();
    if (!isOffset(tokens)) return end;
    const auto days = readDaysAfter(tokens);
    if (days) end.daysAfter = *days;
    return days ? std::optional(end) : std::nullopt;
  }
  end.month = tokens.month().value_or(1);
  tokens.skip();
  tokens.accept('.');
  if (isDayOfMonth(tokens)) {
    end.day = static_cast<unsigned>(tokens.acceptNumber(1, 31).value_or(0));
    return end.day != 0 ? std::optional(end) : std::nullopt;
  }
  if (!withNth && !beginsWithNth(tokens)) return end;
  if (!tokens.weekday()) return std::nullopt;
  end.weekday = *tokens.weekday();
  tokens.skip();
  if (!tokens.accept('[')) return std::nullopt;
  end.nth = readNth(tokens).value_or(0);
  return end.nth != 0 && tokens.accept(']') ? std::optional(end) : std::nullopt;
}

// Reads the rest of a range of dates after its first day.
std::optional<DateRange> readDateRange(TokenReader& tokens, const DateEnd& from) {
  DateRange range{from, from};
  if (!tokens.isSymbol('-')) return range;
  if (isDate(tokens, 1)) {
    tokens.skip();
    const auto to = readDate(tokens, from.nth != 0);
    if (to) range.to = *to;
    return to ? std::optional(range) : std::nullopt;
  }
  if (from.day != 0 && isDayOfMonth(tokens, 1)) {
    tokens.skip();
    range.to.day = static_cast<unsigned>(tokens.acceptNumber(1, 31).value_or(0));
  }
  return range.to.day >= from.day ? std::optional(range) : std::nullopt;
}

}  // namespace

bool isYear(const TokenReader& tokens, std::size_t ahead) {
  return tokens.isNumber(ahead) && tokens.peek(ahead).number >= 1900;
}

bool isDate(const TokenReader& tokens, std::size_t ahead) {
  if (isYear(tokens, ahead)) ++ahead;
  return tokens.month(ahead) || tokens.isWord("easter", ahead);
}

bool isOffset(const TokenReader& tokens) {
  const bool sign = tokens.isSymbol('+') || tokens.isSymbol('-');
  return sign && tokens.isNumber(1) && (tokens.isWord("day", 2) || tokens.isWord("days", 2));
}

std::optional<int> readDaysAfter(TokenReader& tokens) {
  const int sign = tokens.isSymbol('-') ? -1 : 1;
  tokens.skip();
  const auto days = tokens.acceptNumber(1, 366);
  if (!days || (!tokens.isWord("day") && !tokens.isWord("days"))) return std::nullopt;
  tokens.skip();
  return sign * *days;
}

std::optional<int> readNth(TokenReader& tokens) {
  const int sign = tokens.accept('-') ? -1 : 1;
  const auto number = tokens.acceptNumber(1, 5);
  return number ? std::optional(sign * *number) : std::nullopt;
}

bool readDates(TokenReader& tokens, Rule& rule) {
  auto from = readDate(tokens, false);
  while (from) {
    const auto range = readDateRange(tokens, *from);
    if (!range) return false;
    rule.dates.push_back(*range);
    if (!tokens.isSymbol(',')) return true;
    if (isDate(tokens, 1)) {
      tokens.skip();
      from = readDate(tokens, false);
    } else if (from->day != 0 && isDayOfMonth(tokens, 1)) {
      tokens.skip();
      from->day = static_cast<unsigned>(tokens.acceptNumber(1, 31).value_or(0));
      if (from->day == 0) return false;
    } else {
      return true;
    }
  }
  return false;
}

}  // namespace orivanta::guidance::hours
