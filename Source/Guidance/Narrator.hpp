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

/// Writes instructions in one language. Immutable; copies share the messages. Thread-safe.
class ORIVANTA_API Narrator {
 public:
  /// Returns the tags of the languages of the library, such as "en" and "de", in ascending order.
  static std::vector<std::string> languages();

  /// Returns the best of the library's languages for a list of preferred BCP 47 tags or an HTTP
  /// `Accept-Language` value, such as "de-AT, en;q=0.5". Returns "en" if none is available.
  static std::string bestLanguage(std::string_view preferred);

  /// Creates a narrator for one of the library's languages. An unknown tag is treated as by
  /// `bestLanguage`.
  explicit Narrator(std::string_view language = "en");

  /// Creates a narrator from a compiled message file (GNU MO). Fails if the file is damaged.
  static foundation::Result<Narrator> fromMessages(std::string_view file, std::string language);

  /// Returns the language's tag.
  const std::string& language() const;

  /// Returns whether the language is written from right to left.
  bool isRightToLeft() const;

  /// Returns the text of one instruction. `steps[index]` must exist.
  std::string text(const Itinerary& itinerary, const std::vector<Step>& steps,
                   std::size_t index) const;

  /// Returns the texts of all instructions.
  std::vector<std::string> texts(const Itinerary& itinerary, const std::vector<Step>& steps) const;

  /// Returns the length and the time of an itinerary, such as "290 m, 5 min". Empty without scale.
  std::string summary(const Itinerary& itinerary) const;

  /// Returns a problem as a sentence. `place` is the name of the stop concerned and may be empty.
  std::string text(const Problem& problem, std::string_view place) const;

  /// Returns a length as words: rounded, in meters or kilometers.
  std::string length(double meters) const;

  /// Returns a time as words: in minutes, at least one.
  std::string time(double seconds) const;

 private:
  explicit Narrator(std::shared_ptr<const Messages> messages);
  std::shared_ptr<const Messages> messages_;
};

}  // namespace orivanta::guidance
