#include "Source/Guidance/Words/Messages.hpp"

#include <fmt/args.h>
#include <fmt/format.h>
#include <utf8proc.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <mutex>

#include "Platform/Foundation/DisplayText.hpp"
#include "Platform/Foundation/ResourceBundle.hpp"
#include "Source/Guidance/Words/LanguageTags.hpp"
#include "Source/Guidance/Words/Placeholders.hpp"

namespace orivanta {

/// The compiled message files of the library; the build generates it.
const foundation::ResourceBundle& languageBundle();

}  // namespace orivanta

namespace orivanta::guidance {

namespace {

constexpr double mostMeters = 1e9;
constexpr double mostMinutes = 1e6;
constexpr std::string_view fileType = ".mo";
constexpr std::string_view isolateStart = "\u2068";
constexpr std::string_view isolateEnd = "\u2069";

using Store = fmt::dynamic_format_arg_store<fmt::format_context>;

std::string isolated(std::string_view text) {
  return fmt::format("{}{}{}", isolateStart, text, isolateEnd);
}

bool hasRightToLeftCharacters(std::string_view text) {
  while (!text.empty()) {
    const foundation::Character character = foundation::firstCharacter(text);
    const auto* property = utf8proc_get_property(character.codePoint);
    const int direction = property->bidi_class;
    if (direction == UTF8PROC_BIDI_CLASS_R || direction == UTF8PROC_BIDI_CLASS_AL ||
        direction == UTF8PROC_BIDI_CLASS_AN)
      return true;
    text.remove_prefix(character.bytes.size());
  }
  return false;
}

std::string formatted(const std::string& message, Arguments arguments, Store store = {}) {
  for (const auto& [name, text] : arguments) store.push_back(fmt::arg(name, text));
  return fmt::vformat(message, store);
}

// 10 m and more, rounded as people say them.
double roundedMeters(double meters) {
  const double unit = meters < 100.0 ? 10.0 : meters < 500.0 ? 50.0 : 100.0;
  return std::round(meters / unit) * unit;
}

// The languages that were added to the embedded ones.
struct AddedLanguages {
  std::mutex mutex;
  std::map<std::string, std::shared_ptr<const Messages>, std::less<>> messages;
};

AddedLanguages& added() {
  static auto& instance = *new AddedLanguages;
  return instance;
}

std::shared_ptr<const Messages> addedMessages(std::string_view language) {
  const std::lock_guard lock(added().mutex);
  const auto found = added().messages.find(language);
  return found == added().messages.end() ? nullptr : found->second;
}

std::shared_ptr<const Messages> embedded(std::string_view language,
                                         std::shared_ptr<const Messages> fallback) {
  const auto file = languageBundle().bytes(language, fileType.substr(1));
  if (!file) return addedMessages(language);
  const std::string_view bytes(reinterpret_cast<const char*>(file->data()), file->size());
  return Messages::read(bytes, std::string(language), std::move(fallback)).value_or(nullptr);
}

}  // namespace

foundation::Result<std::shared_ptr<const Messages>> Messages::read(
    std::string_view file, std::string language, std::shared_ptr<const Messages> fallback) {
  auto catalog = MessageCatalog::read(file);
  if (!catalog) return foundation::failure(catalog.error());
  const auto messages = std::make_shared<Messages>();
  const std::string_view pluralForms = catalog->headerField("Plural-Forms");
  if (!pluralForms.empty()) {
    const auto rule = PluralRule::parse(pluralForms);
    if (!rule)
      return foundation::failure("messages", 0,
                                 "The header of the messages has invalid plural forms.");
    messages->plural = *rule;
  }
  for (const auto& [key, forms] : catalog->messages()) {
    const auto* original = fallback ? fallback->catalog.find(key) : nullptr;
    if (fallback && original == nullptr) continue;  // the library does not use it
    const auto checked = checkMessage(key, forms, original, messages->plural.forms());
    if (!checked) return foundation::failure(checked.error());
  }
  const std::string_view direction = catalog->headerField("X-Text-Direction");
  messages->rightToLeft = direction.empty() ? isRightToLeft(language) : direction == "rtl";
  messages->language = std::move(language);
  messages->catalog = std::move(*catalog);
  messages->fallback = std::move(fallback);
  return std::shared_ptr<const Messages>(messages);
}

std::shared_ptr<const Messages> Messages::ofLibrary(std::string_view language) {
  static const std::shared_ptr<const Messages> english = embedded("en", nullptr);
  return language == "en" ? english : embedded(language, english);
}

foundation::Result<void> Messages::addToLibrary(std::string_view file, std::string language) {
  if (ofLibrary(language)) return {};
  auto messages = read(file, language, ofLibrary("en"));
  if (!messages) return foundation::failure(std::move(messages.error()));
  const std::lock_guard lock(added().mutex);
  added().messages.try_emplace(std::move(language), std::move(*messages));
  return {};
}

std::vector<std::string> Messages::libraryLanguages() {
  std::vector<std::string> tags;
  for (const auto& resource : languageBundle().resources())
    tags.emplace_back(resource.fileName.substr(0, resource.fileName.size() - fileType.size()));
  {
    const std::lock_guard lock(added().mutex);
    for (const auto& [tag, messages] : added().messages) tags.push_back(tag);
  }
  std::sort(tags.begin(), tags.end());
  return tags;
}

std::string Messages::format(std::string_view key, Arguments arguments) const {
  if (const auto* forms = catalog.find(key)) return formatted(forms->front(), arguments);
  return fallback ? fallback->format(key, arguments) : std::string();
}

std::string Messages::format(std::string_view key, const char* numberName, std::uint64_t number,
                             Arguments arguments) const {
  const auto* forms = catalog.find(key);
  if (forms == nullptr)
    return fallback ? fallback->format(key, numberName, number, arguments) : std::string();
  Store store;
  store.push_back(fmt::arg(numberName, number));
  const std::size_t form = std::min(plural.form(number), forms->size() - 1);
  return formatted((*forms)[form], arguments, std::move(store));
}

std::string Messages::name(std::string_view text) const {
  const std::string label = foundation::label(text);
  const std::size_t begin = label.find_first_not_of(' ');
  if (begin == std::string::npos) return {};
  const std::string trimmed = label.substr(begin, label.find_last_not_of(' ') - begin + 1);
  return rightToLeft || hasRightToLeftCharacters(trimmed) ? isolated(trimmed) : trimmed;
}

std::string Messages::length(double meters) const {
  if (!std::isfinite(meters) || meters < 10.0) return {};
  const double rounded = roundedMeters(std::min(meters, mostMeters));
  if (rounded < 1000.0)
    return format("length.meters", {{"meters", fmt::to_string(static_cast<int>(rounded))}});
  const auto hundreds = static_cast<std::int64_t>(rounded / 100.0);
  return format("length.kilometers", {{"whole", fmt::to_string(hundreds / 10)},
                                      {"tenths", fmt::to_string(hundreds % 10)}});
}

std::string Messages::lengthWithin(double meters) const {
  const std::string text = length(meters);
  return text.empty() || !rightToLeft ? text : isolated(text);
}

std::string Messages::time(double seconds) const {
  if (!std::isfinite(seconds)) return {};
  const double minutes = std::clamp(std::round(seconds / 60.0), 1.0, mostMinutes);
  return format("time.minutes", "minutes", static_cast<std::uint64_t>(minutes));
}

std::string Messages::sentences(const std::string& first, const std::string& second) const {
  if (first.empty() || second.empty()) return first + second;
  return format("sentences", {{"first", first}, {"second", second}});
}

}  // namespace orivanta::guidance
