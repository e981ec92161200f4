#include "Source/Guidance/Hours/RuleParser.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"
#include "Source/Guidance/Hours/DayParser.hpp"
#include "Source/Guidance/Hours/SpanParser.hpp"
#include "Source/Guidance/Hours/Tokens.hpp"

namespace orivanta::guidance::hours {

namespace {

bool acceptAlways(TokenReader& tokens) {
  const bool always = tokens.isNumber() && tokens.peek().number == 24 && tokens.isSymbol('/', 1) &&
                      tokens.isNumber(2) && tokens.peek(2).number == 7;
  if (always) tokens.skip(3);
  return always;
}

// Reads the state and the comments of a rule. A comment without a state, such as "by appointment",
// means that the state is unknown. Returns whether there is a state or a comment.
bool readState(TokenReader& tokens, Rule& rule) {
  static constexpr std::pair<std::string_view, OpenState> states[] = {
      {"open", OpenState::open},
      {"off", OpenState::closed},
      {"closed", OpenState::closed},
      {"unknown", OpenState::unknown},
  };
  bool stated = false;
  bool commented = false;
  for (bool found = true; found;) {
    found = tokens.peek().kind == Token::Kind::comment;
    commented |= found;
    for (const auto& [word, state] : states) {
      if (stated || !tokens.isWord(word)) continue;
      rule.state = state;
      stated = found = true;
      break;
    }
    if (found) tokens.skip();
  }
  if (commented && !stated) rule.state = OpenState::unknown;
  return commented || stated;
}

// Returns whether a rule has days besides years; "2000-2200" alone may be times without colons.
bool hasOwnDays(const Rule& rule) {
  return rule.hasWeekdays || rule.onlyHolidays || !rule.dates.empty() || !rule.weeks.empty();
}

// Reads a rule. Returns nothing if it is not in the subset.
std::optional<Rule> readRule(TokenReader& tokens, RuleKind kind) {
  Rule rule;
  rule.kind = kind;
  const bool hasDays = isDay(tokens);
  if (!readDays(tokens, rule)) return std::nullopt;
  const bool always = acceptAlways(tokens);
  if (!readSpans(tokens, rule)) return std::nullopt;
  const bool hasState = readState(tokens, rule);
  // "Dec Su[1],Dec Su[2] 9:00-12:00" does not mean all of the first Sunday.
  const bool onlyDays = rule.spans.empty() && !always && !hasState;
  if (onlyDays && (!hasOwnDays(rule) || tokens.isSymbol(','))) return std::nullopt;
  // Without a separator, "Mo 9:00-12:00 Tu 9:00-18:00" is two rules; "9:00-12:00 Mo" is not clear.
  const bool complete = hasDays && (hasState || !rule.spans.empty());
  if (tokens.peek().kind == Token::Kind::end || (complete && isDay(tokens))) return rule;
  for (const char separator : {';', ',', '|'})
    if (tokens.isSymbol(separator)) return rule;
  return std::nullopt;
}

// Consumes the separators before a rule. Returns how the rule relates to those before it.
RuleKind readSeparators(TokenReader& tokens) {
  RuleKind kind = RuleKind::replacing;
  for (;; tokens.skip()) {
    if (tokens.isSymbol(';')) {
      kind = RuleKind::replacing;
    } else if (tokens.isSymbol(',')) {
      kind = RuleKind::additional;
    } else if (tokens.isSymbol('|')) {
      kind = RuleKind::fallback;
    } else {
      return kind;
    }
  }
}

std::vector<int> edgesOf(const std::vector<Rule>& rules) {
  std::vector<int> edges{0, openEndsAt % minutesPerDay};
  for (const Rule& rule : rules) {
    for (const Span& span : rule.spans) {
      edges.push_back(span.begin % minutesPerDay);
      edges.push_back(span.end % minutesPerDay);
    }
  }
  foundation::sort(edges.begin(), edges.end());
  edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
  return edges;
}

}  // namespace

std::optional<Schedule> parseRules(std::string_view text) {
  auto list = tokensOf(text);
  if (!list) return std::nullopt;
  TokenReader tokens(std::move(*list));
  Schedule schedule;
  for (;;) {
    const RuleKind kind = readSeparators(tokens);
    if (tokens.peek().kind == Token::Kind::end) break;
    auto rule = readRule(tokens, kind);
    if (!rule) return std::nullopt;
    schedule.rules.push_back(std::move(*rule));
  }
  if (schedule.rules.empty()) return std::nullopt;
  schedule.edges = edgesOf(schedule.rules);
  // A text that only closes, such as "Dec 25 off", states nothing about other times.
  const bool opens = std::any_of(
      schedule.rules.begin(), schedule.rules.end(),
      [](const Rule& rule) { return !rule.onlyHolidays && rule.state != OpenState::closed; });
  schedule.otherwise = opens ? OpenState::closed : OpenState::unknown;
  return schedule;
}

}  // namespace orivanta::guidance::hours
