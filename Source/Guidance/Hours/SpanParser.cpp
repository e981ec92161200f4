#include "Source/Guidance/Hours/SpanParser.hpp"

#include <optional>

namespace orivanta::guidance::hours {

namespace {

// A time of day as written.
struct Time {
  int minutes = 0;
  bool halfDay = false;  // whether "am" or "pm" follows
};

// Returns whether a token separates an hour from its minutes: "9:00", "9.00" or "9h00".
bool separatesMinutes(const TokenReader& tokens, std::size_t ahead) {
  const bool separator =
      tokens.isSymbol(':', ahead) || tokens.isSymbol('.', ahead) || tokens.isWord("h", ahead);
  return separator && tokens.isNumber(ahead + 1) && tokens.peek(ahead + 1).digits == 2 &&
         !tokens.peek(ahead + 1).afterSpace;
}

std::optional<Time> readTime(TokenReader& tokens) {
  if (!tokens.isNumber() || tokens.peek().digits > 2) return std::nullopt;
  Time time;
  int hour = tokens.acceptNumber(0, 48).value_or(49);
  int minute = 0;
  if (separatesMinutes(tokens, 0)) {
    tokens.skip();
    minute = tokens.acceptNumber(0, 59).value_or(60);
  }
  if (tokens.isWord("h") || tokens.isWord("uhr")) tokens.skip();
  time.halfDay = tokens.isWord("am") || tokens.isWord("pm");
  if (time.halfDay) {
    if (hour < 1 || hour > 12) return std::nullopt;
    hour = hour % 12 + (tokens.isWord("pm") ? 12 : 0);
    tokens.skip();
  }
  time.minutes = hour * 60 + minute;
  if (minute > 59 || time.minutes > 2 * minutesPerDay) return std::nullopt;
  return time;
}

std::optional<Span> readSpan(TokenReader& tokens) {
  const auto begin = readTime(tokens);
  if (!begin || begin->minutes > minutesPerDay) return std::nullopt;
  Span span{begin->minutes, begin->minutes, false};
  if (tokens.accept('-')) {
    const auto end = readTime(tokens);
    if (!end || end->halfDay != begin->halfDay) return std::nullopt;  // "1-5pm" is ambiguous
    span.end = end->minutes;
    if (span.end <= span.begin) span.end += minutesPerDay;
    span.openEnd = tokens.accept('+');
  } else {
    if (!tokens.accept('+')) return std::nullopt;
    span.openEnd = true;
    span.end += 60;  // the place opens, and nothing is known about how long
  }
  return span;
}

}  // namespace

bool isTime(const TokenReader& tokens, std::size_t ahead) {
  if (!tokens.isNumber(ahead) || tokens.peek(ahead).digits > 2) return false;
  if (separatesMinutes(tokens, ahead + 1)) return true;
  for (const char* word : {"h", "am", "pm"})
    if (tokens.isWord(word, ahead + 1)) return true;
  return tokens.isSymbol('-', ahead + 1) && tokens.isNumber(ahead + 2);
}

bool readSpans(TokenReader& tokens, Rule& rule) {
  while (isTime(tokens)) {
    const auto span = readSpan(tokens);
    if (!span) return false;
    rule.spans.push_back(*span);
    if (tokens.isSymbol(',') && isTime(tokens, 1)) tokens.skip();
  }
  return true;
}

}  // namespace orivanta::guidance::hours
