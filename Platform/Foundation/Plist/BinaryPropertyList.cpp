#include "Platform/Foundation/Plist/BinaryPropertyList.hpp"

#include <cstdint>
#include <string>
#include <utility>

namespace orivanta::foundation {

namespace {

// The file ends with a trailer of 32 bytes. Offset 6 holds the size of an offset, and offset 7 the
// size of an object reference. They are followed by the number of objects, the top object and the
// position of the offset table, 8 bytes each. All numbers are big-endian.
constexpr std::size_t trailerBytes = 32;

// Many entries may refer to the same long string, so their total size is limited.
constexpr std::size_t mostTextBytes = 32U << 20U;

enum Kind : unsigned { integer = 0x1, ascii = 0x5, utf16 = 0x6, dictionary = 0xD };

// An object without its contents: its type, its number of parts, and where they start.
struct Object {
  unsigned kind;
  std::uint64_t count;
  std::uint64_t start;
};

void appendUtf8(std::string& text, std::uint32_t codePoint) {
  const auto append = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
  if (codePoint < 0x80) return append(codePoint);
  if (codePoint < 0x800) {
    append(0xC0 | codePoint >> 6U);
  } else {
    if (codePoint < 0x10000) {
      append(0xE0 | codePoint >> 12U);
    } else {
      append(0xF0 | codePoint >> 18U);
      append(0x80 | (codePoint >> 12U & 0x3FU));
    }
    append(0x80 | (codePoint >> 6U & 0x3FU));
  }
  append(0x80 | (codePoint & 0x3FU));
}

class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {
    if (bytes.size() < trailerBytes) return;
    const std::uint64_t trailer = bytes.size() - trailerBytes;
    offsetBytes_ = number(trailer + 6, 1).value();
    referenceBytes_ = number(trailer + 7, 1).value();
    objectCount_ = number(trailer + 8, 8).value();
    topObject_ = number(trailer + 16, 8).value();
    offsetTable_ = number(trailer + 24, 8).value();
  }

  std::optional<PropertyListDictionary> entries() const {
    const auto top = object(topObject_);
    if (!top || top->kind != dictionary) return std::nullopt;
    if (top->count > bytes_.size()) return std::nullopt;
    PropertyListDictionary entries;
    std::size_t textBytes = 0;
    for (std::uint64_t i = 0; i < top->count; ++i) {
      const auto key = referred(*top, i);
      const auto value = referred(*top, top->count + i);
      const auto keyText = key ? textOf(*key) : std::nullopt;
      if (!keyText || !value) return std::nullopt;
      auto text = textOf(*value);
      textBytes += keyText->size() + (text ? text->size() : 0);
      if (textBytes > mostTextBytes) return std::nullopt;
      entries[*keyText] = std::move(text);
    }
    return entries;
  }

 private:
  std::optional<std::uint64_t> number(std::uint64_t start, std::uint64_t count) const {
    if (count == 0 || count > 8 || count > bytes_.size() || start > bytes_.size() - count)
      return std::nullopt;
    std::uint64_t value = 0;
    for (std::uint64_t i = 0; i < count; ++i)
      value = value << 8U | static_cast<unsigned char>(bytes_[start + i]);
    return value;
  }

  // Counts of 15 and more follow the marker as an integer of 1, 2, 4 or 8 bytes.
  std::optional<Object> object(std::uint64_t index) const {
    if (index >= objectCount_ || index >= bytes_.size()) return std::nullopt;
    const auto offset = number(offsetTable_ + index * offsetBytes_, offsetBytes_);
    const auto marker = offset ? number(*offset, 1) : std::nullopt;
    if (!marker) return std::nullopt;
    Object found{static_cast<unsigned>(*marker >> 4U), *marker & 0xFU, *offset + 1};
    const bool counted = found.kind == ascii || found.kind == utf16 || found.kind == dictionary;
    if (!counted || found.count < 0xF) return found;
    const auto countMarker = number(found.start, 1);
    if (!countMarker || *countMarker >> 4U != integer) return std::nullopt;
    const std::uint64_t countBytes = std::uint64_t{1} << (*countMarker & 0xFU);
    const auto count = number(found.start + 1, countBytes);
    if (!count) return std::nullopt;
    return Object{found.kind, *count, found.start + 1 + countBytes};
  }

  std::optional<Object> referred(const Object& container, std::uint64_t part) const {
    const auto index = number(container.start + part * referenceBytes_, referenceBytes_);
    return index ? object(*index) : std::nullopt;
  }

  std::optional<std::string> textOf(const Object& object) const {
    const std::uint64_t room = bytes_.size() - object.start;
    if (object.kind == ascii && object.count <= room)
      return std::string(bytes_.substr(object.start, object.count));
    if (object.kind == utf16 && object.count <= room / 2) return utf16Text(object);
    return std::nullopt;
  }

  // An unpaired surrogate becomes the replacement character.
  std::string utf16Text(const Object& object) const {
    const auto unitAt = [&](std::uint64_t i) {
      return i < object.count ? static_cast<std::uint32_t>(*number(object.start + 2 * i, 2)) : 0U;
    };
    std::string text;
    for (std::uint64_t i = 0; i < object.count; ++i) {
      std::uint32_t codePoint = unitAt(i);
      if (codePoint >= 0xD800 && codePoint < 0xE000) {
        const std::uint32_t low = unitAt(i + 1);
        const bool paired = codePoint < 0xDC00 && low >= 0xDC00 && low < 0xE000;
        codePoint = paired ? 0x10000 + ((codePoint - 0xD800) << 10U) + (low - 0xDC00) : 0xFFFD;
        if (paired) ++i;
      }
      appendUtf8(text, codePoint);
    }
    return text;
  }

  std::string_view bytes_;
  std::uint64_t offsetBytes_ = 0;
  std::uint64_t referenceBytes_ = 0;
  std::uint64_t objectCount_ = 0;
  std::uint64_t topObject_ = 0;
  std::uint64_t offsetTable_ = 0;
};

}  // namespace

std::optional<PropertyListDictionary> readBinaryPropertyList(std::string_view bytes) {
  return Reader(bytes).entries();
}

}  // namespace orivanta::foundation
