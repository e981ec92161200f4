#include "Source/Guidance/TextFolding.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace orivanta {

namespace {

using CodePoints = std::vector<utf8proc_int32_t>;

constexpr std::size_t mostBytes = 300;  // approximate limit of a text in its search form

// Returns the first bytes of a text, without an incomplete character at the end.
std::string_view beginningOf(std::string_view text) {
  if (text.size() <= mostBytes) return text;
  std::size_t end = mostBytes;
  while (end > mostBytes - 4 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) --end;
  return text.substr(0, end);
}

// Returns the folded and decomposed text, or nothing if the UTF-8 is invalid.
std::optional<CodePoints> folded(std::string_view text, unsigned extraOptions = 0) {
  const auto options = static_cast<utf8proc_option_t>(
      UTF8PROC_STABLE | UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT | UTF8PROC_CASEFOLD | extraOptions);
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto size = static_cast<utf8proc_ssize_t>(text.size());
  const auto length = utf8proc_decompose(bytes, size, nullptr, 0, options);
  if (length < 0) return std::nullopt;
  CodePoints points(static_cast<std::size_t>(length));
  if (length > 0) utf8proc_decompose(bytes, size, points.data(), length, options);
  return points;
}

void append(std::string& text, utf8proc_int32_t point) {
  std::array<utf8proc_uint8_t, 4> bytes{};
  const auto count = utf8proc_encode_char(point, bytes.data());
  text.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(count));
}

// Accents, vowel points and tone marks have these combining classes; lower classes form other
// letters.
bool isLeftOut(utf8proc_int32_t point) { return utf8proc_get_property(point)->combining_class > 9; }

bool isPartOfWord(utf8proc_int32_t point) {
  switch (utf8proc_category(point)) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ND:
    case UTF8PROC_CATEGORY_NL:
    case UTF8PROC_CATEGORY_NO:
      return true;
    default:
      return false;
  }
}

constexpr utf8proc_int32_t tatweel = 0x0640;  // lengthens Arabic words

// Returns the letter or digit of Arabic script that people type for another one, which may be of
// Persian.
utf8proc_int32_t plainArabic(utf8proc_int32_t point) {
  if (point >= 0x0660 && point <= 0x0669) return '0' + (point - 0x0660);
  if (point >= 0x06F0 && point <= 0x06F9) return '0' + (point - 0x06F0);
  switch (point) {
    case 0x0671:  // alef wasla
      return 0x0627;
    case 0x0629:  // ta marbuta
    case 0x06C1:
    case 0x06D5:
      return 0x0647;
    case 0x0649:  // alef maksura
    case 0x06CC:
      return 0x064A;
    case 0x06A9:
      return 0x0643;
    default:
      return point;
  }
}

// Appends a letter of the search form. Unicode does not decompose letters with strokes and most
// ligatures.
void appendPlain(std::string& text, utf8proc_int32_t point) {
  switch (point) {
    case 0x00E6:
      text += "ae";
      return;
    case 0x0153:
      text += "oe";
      return;
    case 0x00F8:
      text += 'o';
      return;
    case 0x0111:
      text += 'd';
      return;
    case 0x0131:
      text += 'i';
      return;
    case 0x0142:
      text += 'l';
      return;
    default:
      constexpr utf8proc_int32_t firstHiragana = 0x3041;
      constexpr utf8proc_int32_t lastHiragana = 0x3096;
      constexpr utf8proc_int32_t toKatakana = 0x60;
      append(text, point >= firstHiragana && point <= lastHiragana ? point + toKatakana
                                                                   : plainArabic(point));
  }
}

// An apostrophe does not separate words: "Joe's" is found as "joes".
bool isJoiner(utf8proc_int32_t point) {
  return point == '\'' || point == 0x2019 || point == 0x02BC;
}

}  // namespace

std::string caseFolded(std::string_view text) {
  auto points = folded(text);
  if (!points) return std::string(text);
  const auto length =
      utf8proc_normalize_utf32(points->data(), static_cast<utf8proc_ssize_t>(points->size()),
                               static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE));
  points->resize(static_cast<std::size_t>(std::max<utf8proc_ssize_t>(length, 0)));
  std::string form;
  for (const utf8proc_int32_t point : *points) append(form, point);
  return form;
}

std::string searchForm(std::string_view text) {
  std::string form;
  bool gap = false;
  for (const utf8proc_int32_t point :
       folded(beginningOf(text), UTF8PROC_IGNORE).value_or(CodePoints())) {
    if (form.size() >= mostBytes) break;
    if (isLeftOut(point) || isJoiner(point) || point == tatweel) continue;
    if (!isPartOfWord(point)) {
      gap = !form.empty();
      continue;
    }
    if (gap) form += ' ';
    gap = false;
    appendPlain(form, point);
  }
  return form;
}

}  // namespace orivanta
