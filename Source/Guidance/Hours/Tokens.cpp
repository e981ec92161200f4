#include "Source/Guidance/Hours/Tokens.hpp"

#include <array>
#include <utility>

#include "Platform/Foundation/AsciiCase.hpp"

namespace orivanta::guidance::hours {

namespace {

constexpr std::size_t longestText = 2000;

// Characters that people type or paste instead of those of the grammar.
constexpr std::pair<std::string_view, std::string_view> replacements[] = {
    {"\u2010", "-"},  {"\u2011", "-"},  {"\u2012", "-"},  {"\u2013", "-"}, {"\u2014", "-"},
    {"\u2212", "-"},  {"\u301C", "-"},  {"\uFF5E", "-"},  {"\uFF0D", "-"}, {"~", "-"},
    {"\u00A0", " "},  {"\u2009", " "},  {"\u202F", " "},  {"\u3000", " "}, {"\uFEFF", " "},
    {"\u201C", "\""}, {"\u201D", "\""}, {"\u201E", "\""}, {"\uFF1A", ":"}, {"\uFF0C", ","},
    {"\u3001", ","},  {"\uFF1B", ";"},  {"\n", ";"},      {"\r", " "},     {"\t", " "},
};

std::string withAsciiSigns(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    std::size_t length = 1;
    std::string_view sign = text.substr(0, 1);
    for (const auto& [from, to] : replacements) {
      if (text.substr(0, from.size()) != from) continue;
      length = from.size();
      sign = to;
    }
    result += sign;
    text.remove_prefix(length);
  }
  return result;
}

bool isDigit(char character) { return character >= '0' && character <= '9'; }
bool isLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// Takes the first token of a text that does not begin with a space. Returns nothing if it is not a
// token.
std::optional<Token> takeToken(std::string_view& text) {
  Token token;
  std::size_t length = 1;
  if (isDigit(text.front())) {
    token.kind = Token::Kind::number;
    while (length < text.size() && isDigit(text[length])) ++length;
    if (length > 4) return std::nullopt;
    for (const char digit : text.substr(0, length)) token.number = token.number * 10 + digit - '0';
    token.digits = static_cast<int>(length);
  } else if (isLetter(text.front())) {
    token.kind = Token::Kind::word;
    while (length < text.size() && isLetter(text[length])) ++length;
    token.word = foundation::asciiLowercased(std::string(text.substr(0, length)));
  } else if (text.front() == '"') {
    token.kind = Token::Kind::comment;
    length = text.find('"', 1);
    if (length++ == std::string_view::npos) return std::nullopt;
  } else {
    token.kind = Token::Kind::symbol;
    token.symbol = text.front();
    if (token.symbol == '|' && text.substr(0, 2) != "||") return std::nullopt;
    if (token.symbol == '|') length = 2;
    if (std::string_view(";,|:.-+/[]").find(token.symbol) == std::string_view::npos)
      return std::nullopt;
  }
  text.remove_prefix(length);
  return token;
}

// Returns the index of the name that a word abbreviates to at least this many letters.
template <std::size_t count>
std::optional<unsigned> indexOfName(const Token& token, std::size_t letters,
                                    const std::array<std::string_view, count>& names) {
  if (token.kind != Token::Kind::word || token.word.size() < letters) return std::nullopt;
  for (unsigned index = 0; index < count; ++index)
    if (names.at(index).substr(0, token.word.size()) == token.word) return index;
  return std::nullopt;
}

}  // namespace

std::optional<std::vector<Token>> tokensOf(std::string_view text) {
  if (text.size() > longestText) return std::nullopt;
  const std::string ascii = withAsciiSigns(text);
  std::string_view rest = ascii;
  std::vector<Token> tokens;
  bool space = false;
  while (!rest.empty()) {
    if (rest.front() == ' ') {
      space = true;
      rest.remove_prefix(1);
      continue;
    }
    auto token = takeToken(rest);
    if (!token) return std::nullopt;
    token->afterSpace = std::exchange(space, false);
    tokens.push_back(std::move(*token));
  }
  return tokens;
}

const Token& TokenReader::peek(std::size_t ahead) const {
  static const Token end;
  return next_ + ahead < tokens_.size() ? tokens_[next_ + ahead] : end;
}

bool TokenReader::isSymbol(char symbol, std::size_t ahead) const {
  return peek(ahead).kind == Token::Kind::symbol && peek(ahead).symbol == symbol;
}

bool TokenReader::isWord(std::string_view word, std::size_t ahead) const {
  return peek(ahead).kind == Token::Kind::word && peek(ahead).word == word;
}

bool TokenReader::accept(char symbol) {
  if (!isSymbol(symbol)) return false;
  skip();
  return true;
}

std::optional<int> TokenReader::acceptNumber(int least, int most) {
  if (!isNumber() || peek().number < least || peek().number > most) return std::nullopt;
  const int number = peek().number;
  skip();
  return number;
}

std::optional<int> TokenReader::weekday(std::size_t ahead) const {
  static constexpr std::array<std::string_view, 7> names = {
      "monday", "tuesday", "wednesday", "thursday", "friday", "saturday", "sunday"};
  return indexOfName(peek(ahead), 2, names);
}

std::optional<unsigned> TokenReader::month(std::size_t ahead) const {
  static constexpr std::array<std::string_view, 12> names = {
      "january", "february", "march",     "april",   "may",      "june",
      "july",    "august",   "september", "october", "november", "december"};
  const auto index = indexOfName(peek(ahead), 3, names);
  return index ? std::optional(*index + 1) : std::nullopt;
}

}  // namespace orivanta::guidance::hours
