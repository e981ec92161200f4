#include "Source/Guidance/Words/MessageCatalog.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "Platform/Foundation/DisplayText.hpp"
#include "Platform/Foundation/TextControls.hpp"

namespace orivanta::guidance {

namespace {

constexpr std::size_t mostBytes = std::size_t{1} << 20U;
constexpr std::uint32_t magic = 0x950412de;
constexpr std::uint32_t swappedMagic = 0xde120495;
constexpr std::size_t headerBytes = 28;
constexpr std::size_t bytesPerEntry = 8;  // of a table: the length and the offset of a string
constexpr char contextEnd = '\4';

// The numbers and strings of a file, with bounds checks.
class FileReader {
 public:
  explicit FileReader(std::string_view file) : file_(file), unread_(file.size()) {}

  bool readMagic() {
    isBigEndian_ = number(0) == swappedMagic;
    return number(0) == magic;
  }

  // The offset must be at most 4 bytes before the end of the file.
  std::uint32_t number(std::size_t offset) const {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      const auto byte = static_cast<unsigned char>(file_[offset + (isBigEndian_ ? i : 3 - i)]);
      value = (value << 8U) | byte;
    }
    return value;
  }

  bool hasTable(std::uint64_t offset, std::uint64_t count) const {
    return offset + count * bytesPerEntry <= file_.size();
  }

  // Returns the string of an entry. Fails if it is outside of the file or not terminated, or if the
  // strings together are longer than the file because they overlap.
  std::optional<std::string_view> string(std::size_t entry) {
    const std::uint64_t length = number(entry);
    const std::uint64_t offset = number(entry + 4);
    if (offset + length >= file_.size() || file_[offset + length] != '\0' || length > unread_)
      return std::nullopt;
    unread_ -= length;
    return file_.substr(offset, length);
  }

 private:
  std::string_view file_;
  std::uint64_t unread_;
  bool isBigEndian_ = false;
};

// Whether a text is valid UTF-8 without control characters, except for those that the caller takes
// out before.
bool isClean(std::string_view text) {
  while (!text.empty()) {
    const foundation::Character character = foundation::firstCharacter(text);
    if (character.codePoint < 0) return false;
    if (foundation::isTerminalControl(static_cast<char32_t>(character.codePoint))) return false;
    text.remove_prefix(character.bytes.size());
  }
  return true;
}

std::vector<std::string> formsOf(std::string_view translation) {
  std::vector<std::string> forms;
  while (true) {
    const std::size_t end = translation.find('\0');
    forms.emplace_back(translation.substr(0, end));
    if (end == std::string_view::npos) return forms;
    translation.remove_prefix(end + 1);
  }
}

tl::unexpected<foundation::Error> damaged(std::string what) {
  return foundation::failure("messages", 0, "The message file is damaged: " + std::move(what));
}

}  // namespace

foundation::Result<MessageCatalog> MessageCatalog::read(std::string_view file) {
  if (file.size() < headerBytes || file.size() > mostBytes) return damaged("wrong size");
  FileReader reader(file);
  if (!reader.readMagic()) return damaged("not a message file");
  if (reader.number(4) >> 16U > 1) return damaged("unknown version");
  const std::uint32_t count = reader.number(8);
  const std::uint32_t originals = reader.number(12);
  const std::uint32_t translations = reader.number(16);
  if (!reader.hasTable(originals, count) || !reader.hasTable(translations, count))
    return damaged("table outside of the file");
  MessageCatalog catalog;
  for (std::size_t i = 0; i < count; ++i) {
    const auto original = reader.string(originals + i * bytesPerEntry);
    const auto translation = reader.string(translations + i * bytesPerEntry);
    if (!original || !translation) return damaged("text outside of the file");
    if (original->empty()) catalog.header_ = *translation;
    const std::size_t keyEnd = original->find(contextEnd);
    if (keyEnd == std::string_view::npos) continue;
    auto forms = formsOf(*translation);
    for (const std::string& form : forms)
      if (!isClean(form)) return damaged("invalid character in a text");
    catalog.messages_.insert_or_assign(std::string(original->substr(0, keyEnd)), std::move(forms));
  }
  return catalog;
}

const std::vector<std::string>* MessageCatalog::find(std::string_view key) const {
  const auto found = messages_.find(key);
  return found == messages_.end() ? nullptr : &found->second;
}

std::string_view MessageCatalog::headerField(std::string_view name) const {
  std::string_view rest = header_;
  while (!rest.empty()) {
    std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(line.size() < rest.size() ? line.size() + 1 : line.size());
    if (!line.starts_with(name) || !line.substr(name.size()).starts_with(':')) continue;
    line.remove_prefix(name.size() + 1);
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    return line;
  }
  return {};
}

}  // namespace orivanta::guidance
