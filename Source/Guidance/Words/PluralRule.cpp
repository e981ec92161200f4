#include "Source/Guidance/Words/PluralRule.hpp"

#include <algorithm>
#include <array>
#include <cctype>

namespace orivanta::guidance {

namespace {

constexpr std::size_t mostForms = 16;
constexpr std::size_t mostBytes = 1000;
constexpr int mostLevels = 64;

using Number = std::uint64_t;

struct Operator {
  std::string_view sign;
  int precedence;
  Number (*apply)(Number, Number);
};

// A sign precedes its own beginning: "<=" comes before "<".
constexpr std::array<Operator, 13> operators{{
    {"||", 1, [](Number a, Number b) -> Number { return a != 0 || b != 0 ? 1 : 0; }},
    {"&&", 2, [](Number a, Number b) -> Number { return a != 0 && b != 0 ? 1 : 0; }},
    {"==", 3, [](Number a, Number b) -> Number { return a == b ? 1 : 0; }},
    {"!=", 3, [](Number a, Number b) -> Number { return a != b ? 1 : 0; }},
    {"<=", 4, [](Number a, Number b) -> Number { return a <= b ? 1 : 0; }},
    {">=", 4, [](Number a, Number b) -> Number { return a >= b ? 1 : 0; }},
    {"<", 4, [](Number a, Number b) -> Number { return a < b ? 1 : 0; }},
    {">", 4, [](Number a, Number b) -> Number { return a > b ? 1 : 0; }},
    {"+", 5, [](Number a, Number b) -> Number { return a + b; }},
    {"-", 5, [](Number a, Number b) -> Number { return a - b; }},
    {"*", 6, [](Number a, Number b) -> Number { return a * b; }},
    {"/", 6, [](Number a, Number b) -> Number { return b == 0 ? 0 : a / b; }},
    {"%", 6, [](Number a, Number b) -> Number { return b == 0 ? 0 : a % b; }},
}};

// Computes the value of an expression while parsing it. Both branches of a condition are always
// parsed, so whether an expression is valid does not depend on the number.
class Evaluation {
 public:
  Evaluation(std::string_view expression, Number number) : rest_(expression), number_(number) {}

  std::optional<Number> value() {
    const Number result = conditional();
    skipBlanks();
    if (failed_ || !rest_.empty()) return std::nullopt;
    return result;
  }

 private:
  // One level of recursion, too many of which are an error.
  class Level {
   public:
    explicit Level(Evaluation& evaluation) : evaluation_(evaluation) {
      if (++evaluation_.level_ > mostLevels) evaluation_.failed_ = true;
    }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
    ~Level() { --evaluation_.level_; }

   private:
    Evaluation& evaluation_;
  };

  void skipBlanks() {
    while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t'))
      rest_.remove_prefix(1);
  }

  bool take(std::string_view sign) {
    skipBlanks();
    if (!rest_.starts_with(sign)) return false;
    rest_.remove_prefix(sign.size());
    return true;
  }

  void require(std::string_view sign) { failed_ = !take(sign) || failed_; }

  Number conditional() {
    const Level level(*this);
    if (failed_) return 0;
    const Number condition = binary(1);
    if (!take("?")) return condition;
    const Number ifTrue = conditional();
    require(":");
    const Number ifFalse = conditional();
    return condition != 0 ? ifTrue : ifFalse;
  }

  const Operator* nextOperator() {
    skipBlanks();
    for (const Operator& candidate : operators)
      if (rest_.starts_with(candidate.sign)) return &candidate;
    return nullptr;
  }

  Number binary(int leastPrecedence) {
    Number left = unary();
    while (!failed_) {
      const Operator* found = nextOperator();
      if (found == nullptr || found->precedence < leastPrecedence) break;
      rest_.remove_prefix(found->sign.size());
      left = found->apply(left, binary(found->precedence + 1));
    }
    return left;
  }

  Number unary() {
    const Level level(*this);
    if (failed_) return 0;
    if (take("!")) return unary() == 0 ? 1 : 0;
    if (take("n")) return number_;
    if (!take("(")) return literal();
    const Number inner = conditional();
    require(")");
    return inner;
  }

  Number literal() {
    Number result = 0;
    const auto isDigit = [&] {
      return !rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9';
    };
    failed_ = failed_ || !isDigit();
    for (; isDigit(); rest_.remove_prefix(1))
      result = result * 10 + static_cast<Number>(rest_.front() - '0');
    return result;
  }

  std::string_view rest_;
  Number number_;
  int level_ = 0;
  bool failed_ = false;
};

// Returns the text after "name =" up to the next semicolon, or nothing.
std::optional<std::string_view> valueOf(std::string_view name, std::string_view field) {
  while (!field.empty()) {
    std::string_view part = field.substr(0, field.find(';'));
    field.remove_prefix(part.size() < field.size() ? part.size() + 1 : part.size());
    part.remove_prefix(std::min(part.find_first_not_of(" \t"), part.size()));
    if (!part.starts_with(name)) continue;
    part.remove_prefix(name.size());
    part.remove_prefix(std::min(part.find_first_not_of(" \t"), part.size()));
    if (part.starts_with('=')) return part.substr(1);
  }
  return std::nullopt;
}

}  // namespace

std::optional<PluralRule> PluralRule::parse(std::string_view field) {
  const auto count = valueOf("nplurals", field);
  const auto expression = valueOf("plural", field);
  if (!count || !expression || expression->size() > mostBytes || count->size() > mostBytes)
    return std::nullopt;
  const auto forms = Evaluation(*count, 0).value();
  if (!forms || *forms == 0 || *forms > mostForms || !Evaluation(*expression, 0).value())
    return std::nullopt;
  PluralRule rule;
  rule.forms_ = static_cast<std::size_t>(*forms);
  rule.expression_ = *expression;
  return rule;
}

std::size_t PluralRule::form(std::uint64_t number) const {
  const Number index = Evaluation(expression_, number).value().value_or(0);
  return index < forms_ ? static_cast<std::size_t>(index) : 0;
}

}  // namespace orivanta::guidance
