#include "Source/Guidance/InterfaceTexts.hpp"

#include <fmt/format.h>

#include "Source/Guidance/Words/LanguageTags.hpp"
#include "Source/Guidance/Words/Messages.hpp"

namespace orivanta::guidance {

InterfaceTexts::InterfaceTexts(std::string_view language)
    : messages_(Messages::ofLibrary(bestLanguage(language, Messages::libraryLanguages()))) {}

const std::string& InterfaceTexts::language() const { return messages_->language; }

bool InterfaceTexts::isRightToLeft() const { return messages_->rightToLeft; }

std::string InterfaceTexts::text(std::string_view key, Arguments arguments) const try {
  return messages_->format(key, arguments);
} catch (const fmt::format_error&) {
  return {};
}

std::string InterfaceTexts::text(std::string_view key, std::uint64_t count,
                                 Arguments arguments) const try {
  return messages_->format(key, "count", count, arguments);
} catch (const fmt::format_error&) {
  return {};
}

std::string InterfaceTexts::name(std::string_view text) const { return messages_->name(text); }

}  // namespace orivanta::guidance
