// The words of an application's controls, in the languages of the instructions.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::guidance {

struct Messages;

/// Texts for the controls of an application that shows routes. They are in the same message files
/// as the instructions (Resources/Languages, with keys that begin with "interface."), so a language
/// has either both or none.
///
///   guidance::InterfaceTexts texts("de");
///   texts.text("interface.route.arrival", {{"time", "12:05"}});  // "Ankunft 12:05"
///
/// Immutable; copies share the messages. Thread-safe.
class ORIVANTA_API InterfaceTexts {
 public:
  /// The texts for the placeholders of a message, by the names of the placeholders.
  using Arguments = std::initializer_list<std::pair<const char*, std::string_view>>;

  /// Creates texts in the best of the library's languages, see `Narrator::bestLanguage`.
  explicit InterfaceTexts(std::string_view language = "en");

  /// Returns the language's tag, for `Narrator`.
  const std::string& language() const;

  /// Returns whether the language is written from right to left.
  bool isRightToLeft() const;

  /// Returns the message with a key (`msgctxt`), with its placeholders replaced. Returns an empty
  /// text if there is no such message or if an argument is missing.
  std::string text(std::string_view key, Arguments arguments = {}) const;

  /// As above, with the plural form for a number, which replaces the placeholder {count}.
  std::string text(std::string_view key, std::uint64_t count, Arguments arguments = {}) const;

  /// Prepares a name, an address or a number with a unit for use as an argument: makes it
  /// printable, limits it to 80 columns and isolates it if it may be written in the other
  /// direction.
  std::string name(std::string_view text) const;

 private:
  std::shared_ptr<const Messages> messages_;
};

}  // namespace orivanta::guidance
