// The messages of one language, and how names and numbers are put into them.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/Result.hpp"
#include "Source/Guidance/Words/MessageCatalog.hpp"
#include "Source/Guidance/Words/PluralRule.hpp"

namespace orivanta::guidance {

/// The texts for the placeholders of a message, by the names of the placeholders.
using Arguments = std::initializer_list<std::pair<const char*, std::string_view>>;

/// The messages of one language. Immutable.
struct Messages {
  std::string language;                      ///< the tag
  bool rightToLeft = false;                  ///< the direction of writing
  MessageCatalog catalog;                    ///< the texts
  PluralRule plural;                         ///< selects the forms
  std::shared_ptr<const Messages> fallback;  ///< has the messages that are missing; may be null

  /// Reads a message file. Fails if it is damaged, or if a message has other placeholders than the
  /// fallback's message or an invalid number of forms.
  static foundation::Result<std::shared_ptr<const Messages>> read(
      std::string_view file, std::string language, std::shared_ptr<const Messages> fallback);

  /// Returns the messages of one of the library's languages, or null if there is none with the tag.
  static std::shared_ptr<const Messages> ofLibrary(std::string_view language);

  /// Adds a language to those of the library, for this process, from a file as for `read`. Does
  /// nothing if the library has the language.
  static foundation::Result<void> addToLibrary(std::string_view file, std::string language);

  /// Returns the tags of the library's languages in ascending order.
  static std::vector<std::string> libraryLanguages();

  /// Returns a message with its placeholders replaced, all of which must be among the arguments.
  /// Returns an empty text if there is no such message.
  std::string format(std::string_view key, Arguments arguments = {}) const;

  /// Returns the form of a message for a number, which replaces the placeholder with this name.
  std::string format(std::string_view key, const char* numberName, std::uint64_t number,
                     Arguments arguments = {}) const;

  /// Prepares a name from a venue for use in a message: makes it printable, limits it to 80 columns
  /// and isolates it if it may be written in the other direction. The result is empty if the name
  /// is blank.
  std::string name(std::string_view text) const;

  /// Returns a rounded length, or an empty text if it is less than 10 m or not finite.
  std::string length(double meters) const;

  /// Returns a length for use in a sentence.
  std::string lengthWithin(double meters) const;

  /// Returns a time in minutes, at least one, or an empty text if it is not finite.
  std::string time(double seconds) const;

  /// Returns two sentences, or one of them if the other is empty.
  std::string sentences(const std::string& first, const std::string& second) const;
};

}  // namespace orivanta::guidance
