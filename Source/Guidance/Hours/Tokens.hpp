// Splits the text of opening hours into words, numbers and symbols.
// Private header.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orivanta::guidance::hours {

/// A word, a number, a symbol or a comment.
struct Token {
  /// The kinds of tokens.
  enum class Kind {
    end,      ///< the end of the text
    word,     ///< letters, in lower case in `word`
    number,   ///< at most four digits, in `number`
    symbol,   ///< a character, in `symbol`; `||` is '|'
    comment,  ///< a text in quotes
  };

  Kind kind = Kind::end;    ///< what it is
  std::string word;         ///< the letters of a word
  int number = 0;           ///< the value of a number
  int digits = 0;           ///< how many digits the number has
  char symbol = 0;          ///< the character of a symbol
  bool afterSpace = false;  ///< whether white space precedes it
};

/// Splits a text. Dashes, quotes and full-width signs are read as their ASCII forms, and a line
/// break as `;`. Returns nothing if the text has other characters or is longer than 2000 bytes.
std::optional<std::vector<Token>> tokensOf(std::string_view text);

/// A position in a list of tokens.
class TokenReader {
 public:
  /// Starts at the first token.
  explicit TokenReader(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

  /// Returns a token without consuming it; 0 is the next one.
  const Token& peek(std::size_t ahead = 0) const;

  /// Consumes tokens.
  void skip(std::size_t count = 1) { next_ += count; }

  /// Returns whether a token is this symbol.
  bool isSymbol(char symbol, std::size_t ahead = 0) const;

  /// Returns whether a token is a number.
  bool isNumber(std::size_t ahead = 0) const { return peek(ahead).kind == Token::Kind::number; }

  /// Returns whether a token is this word.
  bool isWord(std::string_view word, std::size_t ahead = 0) const;

  /// Consumes the next token if it is this symbol. Returns whether it was.
  bool accept(char symbol);

  /// Consumes the next token if it is a number from `least` to `most`, and returns it.
  std::optional<int> acceptNumber(int least, int most);

  /// Returns the weekday that a token names, in English: 0 is Monday. Returns nothing for others.
  std::optional<int> weekday(std::size_t ahead = 0) const;

  /// Returns the month that a token names, in English: 1 to 12. Returns nothing for others.
  std::optional<unsigned> month(std::size_t ahead = 0) const;

 private:
  std::vector<Token> tokens_;
  std::size_t next_ = 0;
};

}  // namespace orivanta::guidance::hours
