// Texts of instructions in several languages.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Source/Guidance/Itinerary.hpp"
#include "Source/Guidance/Plan.hpp"
#include "Source/Guidance/Step.hpp"

namespace orivanta::guidance {

struct Messages;

/// Writes instructions in one language. The texts are complete sentences in plain text.
///
/// Names from a venue are made printable and limited to 80 columns. In languages that are written
/// from right to left, names and lengths are enclosed in U+2068 and U+2069 (isolates); in other
/// languages, names in scripts that are written from right to left. Names that a converter invented
/// (the record has `"nameGenerated": true`) are replaced by the kind of connector, or omitted.
///
///   guidance::Narrator narrator("de");
///   for (const std::string& text : narrator.texts(itinerary, guide->steps(itinerary)))
///     std::cout << text << '\n';
///
/// Immutable; copies share the messages. Thread-safe.
class ORIVANTA_API Narrator {
 public:
  /// Returns the tags of the languages of the library, such as "en" and "de", in ascending order.
  static std::vector<std::string> languages();

  /// Returns the best of the library's languages for a list of preferred BCP 47 tags or an HTTP
  /// `Accept-Language` value, such as "de-AT, en;q=0.5". Returns "en" if none is available.
  static std::string bestLanguage(std::string_view preferred);

  /// Creates a narrator for one of the library's languages. Any other tag or list of tags is
  /// treated as by `bestLanguage`.
  explicit Narrator(std::string_view language = "en");

  /// Creates a narrator from a compiled message file (GNU MO) with the same keys (`msgctxt`) as the
  /// files in Resources/Languages. Missing messages are in English. The direction of writing is
  /// that in the field `X-Text-Direction` of the header ("rtl" or "ltr"), or else that of the
  /// language. Fails if the file is damaged or has more than 1 MiB, if the plural expression is
  /// invalid, or if a message has unknown placeholders or a wrong number of plural forms.
  static foundation::Result<Narrator> fromMessages(std::string_view file, std::string language);

  /// Adds a language to those of the library, for this process, from a file as for `fromMessages`.
  /// Does nothing if the library has the language. Fails in the same cases as `fromMessages`.
  static foundation::Result<void> addLanguage(std::string_view file, std::string language);

  /// Returns the language's tag.
  const std::string& language() const;

  /// Returns whether the language is written from right to left.
  bool isRightToLeft() const;

  /// Returns the text of one instruction, including the walk to the next one, such as "Turn left
  /// after 2063. Go 40 m, past 2053 on your left." Lengths under 10 m are omitted, and so are all
  /// lengths if the itinerary has no scale. At most two passed places and two rooms on the way are
  /// named; of further rooms, the number is told. Returns an empty text if there is no
  /// `steps[index]`.
  std::string text(const Itinerary& itinerary, const std::vector<Step>& steps,
                   std::size_t index) const;

  /// Returns the texts of all instructions.
  std::vector<std::string> texts(const Itinerary& itinerary, const std::vector<Step>& steps) const;

  /// Returns the length and the time of an itinerary, such as "300 m, 5 min". Returns only the time
  /// if the length is less than 10 m, and an empty text if the itinerary has no scale.
  std::string summary(const Itinerary& itinerary) const;

  /// Returns a problem as a sentence. `place` is the name of the stop concerned and may be empty.
  std::string text(const Problem& problem, std::string_view place) const;

  /// Returns a length as words: rounded to 10 m below 100 m, to 50 m below 500 m, to 100 m beyond,
  /// and from 1,000 m in kilometers. A space before the unit is a no-break space. Returns an empty
  /// text for less than 10 m and for numbers that are not finite.
  std::string length(double meters) const;

  /// Returns a time as words: in minutes, at least one. A space before the unit is a no-break
  /// space. Returns an empty text for numbers that are not finite.
  std::string time(double seconds) const;

 private:
  explicit Narrator(std::shared_ptr<const Messages> messages);
  std::shared_ptr<const Messages> messages_;
};

}  // namespace orivanta::guidance
