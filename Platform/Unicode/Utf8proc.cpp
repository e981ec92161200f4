// The functions of utf8proc that the project uses, for the target that has no binary of it.
#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "Platform/Unicode/Forms.hpp"
#include "Platform/Unicode/Graphemes.hpp"

namespace {

namespace unicode = orivanta::unicode;

constexpr int foldingOptions =
    UTF8PROC_STABLE | UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT | UTF8PROC_CASEFOLD;

std::string_view textOf(const utf8proc_uint8_t* bytes, utf8proc_ssize_t length) {
  return {reinterpret_cast<const char*>(bytes),
          static_cast<std::size_t>(std::max<utf8proc_ssize_t>(length, 0))};
}

}  // namespace

utf8proc_ssize_t utf8proc_iterate(const utf8proc_uint8_t* text, utf8proc_ssize_t length,
                                  utf8proc_int32_t* point) {
  *point = -1;
  if (length <= 0) return 0;
  const auto read = unicode::readCodePoint(textOf(text, length), *point);
  return read == 0 ? UTF8PROC_ERROR_INVALIDUTF8 : static_cast<utf8proc_ssize_t>(read);
}

utf8proc_ssize_t utf8proc_encode_char(utf8proc_int32_t point, utf8proc_uint8_t* text) {
  if (point < 0 || point > 0x10FFFF) return 0;
  const auto value = static_cast<std::uint32_t>(point);
  const auto part = [&](unsigned shift) {
    return static_cast<utf8proc_uint8_t>(0x80U | (value >> shift & 0x3FU));
  };
  if (value < 0x80) {
    text[0] = static_cast<utf8proc_uint8_t>(value);
    return 1;
  }
  if (value < 0x800) {
    text[0] = static_cast<utf8proc_uint8_t>(0xC0U | value >> 6U);
    text[1] = part(0);
    return 2;
  }
  if (value < 0x10000) {
    text[0] = static_cast<utf8proc_uint8_t>(0xE0U | value >> 12U);
    text[1] = part(6);
    text[2] = part(0);
    return 3;
  }
  text[0] = static_cast<utf8proc_uint8_t>(0xF0U | value >> 18U);
  text[1] = part(12);
  text[2] = part(6);
  text[3] = part(0);
  return 4;
}

// The result is valid until the next call. There is one thread.
const utf8proc_property_t* utf8proc_get_property(utf8proc_int32_t point) {
  static utf8proc_property_t property;
  const unicode::Properties& found = unicode::propertiesOf(point);
  property.category = found.category;
  property.combining_class = found.combiningClass;
  property.bidi_class = found.bidiClass;
  property.ignorable = found.isIgnorable;
  property.charwidth = found.width;
  return &property;
}

utf8proc_category_t utf8proc_category(utf8proc_int32_t point) {
  return static_cast<utf8proc_category_t>(unicode::propertiesOf(point).category);
}

int utf8proc_charwidth(utf8proc_int32_t point) { return unicode::propertiesOf(point).width; }

utf8proc_bool utf8proc_grapheme_break_stateful(utf8proc_int32_t first, utf8proc_int32_t second,
                                               utf8proc_int32_t* state) {
  return unicode::isGraphemeBreak(first, second, *state);
}

utf8proc_ssize_t utf8proc_decompose(const utf8proc_uint8_t* text, utf8proc_ssize_t length,
                                    utf8proc_int32_t* points, utf8proc_ssize_t room,
                                    utf8proc_option_t options) {
  if ((options & ~UTF8PROC_IGNORE) != foldingOptions) std::abort();  // nobody asks for other forms
  const auto found =
      unicode::foldedDecomposition(textOf(text, length), (options & UTF8PROC_IGNORE) != 0);
  if (!found) return UTF8PROC_ERROR_INVALIDUTF8;
  const auto count = static_cast<utf8proc_ssize_t>(found->size());
  std::copy_n(found->begin(), std::min(count, room), points);
  return count;
}

utf8proc_ssize_t utf8proc_normalize_utf32(utf8proc_int32_t* points, utf8proc_ssize_t length,
                                          utf8proc_option_t options) {
  if (options != (UTF8PROC_STABLE | UTF8PROC_COMPOSE)) std::abort();
  unicode::CodePoints composed(points, points + length);
  unicode::compose(composed);
  std::copy(composed.begin(), composed.end(), points);
  return static_cast<utf8proc_ssize_t>(composed.size());
}
