// Selects the form of a message for a number, by the `Plural-Forms` field of a message file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orivanta::guidance {

/// The plural rule of a language. Immutable.
class PluralRule {
 public:
  /// Two forms: the first one for 1.
  PluralRule() = default;

  /// Parses a field such as "nplurals=2; plural=(n != 1);". The expression has the operators of C
  /// for unsigned integers. Returns nothing if it is invalid, longer than 1,000 bytes or nested
  /// more than 64 levels deep, or if there are more than 16 forms.
  static std::optional<PluralRule> parse(std::string_view field);

  /// Returns the number of forms, at least 1.
  std::size_t forms() const { return forms_; }

  /// Returns the index of the form for a number. An index that the expression yields beyond the
  /// last form becomes 0, and so does the result of a division by zero.
  std::size_t form(std::uint64_t number) const;

 private:
  std::string expression_ = "n != 1";
  std::size_t forms_ = 2;
};

}  // namespace orivanta::guidance
