#include "Platform/Unicode/Forms.hpp"

#include <gtest/gtest.h>
#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <random>

#include "Platform/Unicode/Graphemes.hpp"

namespace orivanta::unicode {
namespace {

constexpr auto folding = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE |
                                                        UTF8PROC_COMPAT | UTF8PROC_CASEFOLD);

std::string textOf(const CodePoints& points) {
  std::string text;
  for (const std::int32_t point : points) {
    std::array<utf8proc_uint8_t, 4> bytes{};
    const auto length = utf8proc_encode_char(point, bytes.data());
    text.append(bytes.begin(), bytes.begin() + length);
  }
  return text;
}

std::optional<CodePoints> expectedDecomposition(std::string_view text, int options) {
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto size = static_cast<utf8proc_ssize_t>(text.size());
  const auto option = static_cast<utf8proc_option_t>(options);
  const auto length = utf8proc_decompose(bytes, size, nullptr, 0, option);
  if (length < 0) return std::nullopt;
  CodePoints points(static_cast<std::size_t>(length));
  utf8proc_decompose(bytes, size, points.data(), length, option);
  return points;
}

CodePoints expectedComposition(CodePoints points) {
  const auto length =
      utf8proc_normalize_utf32(points.data(), static_cast<utf8proc_ssize_t>(points.size()),
                               static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE));
  points.resize(static_cast<std::size_t>(length));
  return points;
}

void expectSameForms(std::string_view text) {
  const auto points = foldedDecomposition(text, false);
  ASSERT_EQ(points, expectedDecomposition(text, folding)) << text;
  ASSERT_EQ(foldedDecomposition(text, true), expectedDecomposition(text, folding | UTF8PROC_IGNORE))
      << text;
  if (!points) return;
  CodePoints composed = *points;
  compose(composed);
  ASSERT_EQ(composed, expectedComposition(*points)) << text;
}

TEST(UnicodeForms, AreThoseOfUtf8proc) {
  for (std::int32_t point = 1; point <= 0x10FFFF; ++point) {
    const Properties& found = propertiesOf(point);
    ASSERT_EQ(found.category, utf8proc_category(point)) << point;
    ASSERT_EQ(found.combiningClass, utf8proc_get_property(point)->combining_class) << point;
    ASSERT_EQ(found.bidiClass, utf8proc_get_property(point)->bidi_class) << point;
    ASSERT_EQ(found.width, utf8proc_charwidth(point)) << point;
    ASSERT_EQ(found.graphemeClass, utf8proc_get_property(point)->boundclass) << point;
    if (found.category == UTF8PROC_CATEGORY_CS) continue;
    ASSERT_NO_FATAL_FAILURE(expectSameForms(textOf({point})));
  }
}

// Letters followed by marks, and sequences of Hangul, are where order and composition matter.
TEST(UnicodeForms, AreThoseOfUtf8procForSequences) {
  const CodePoints alphabet = {'a',    'E',    0x00C5, 0x0301, 0x0323, 0x0308, 0x0345,
                               0x1100, 0x1161, 0x11A8, 0xAC00, 0xAC01, 0x05D0, 0x05B4,
                               0x05BC, 0x0E40, 0x3099, 0x304B, 0x200D, 0x1F600};
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    CodePoints points(random() % 7);
    for (auto& point : points) point = alphabet[random() % alphabet.size()];
    ASSERT_NO_FATAL_FAILURE(expectSameForms(textOf(points)));
  }
}

// Code points of all classes, those that form long clusters most often.
TEST(UnicodeForms, GraphemesAreThoseOfUtf8proc) {
  const CodePoints alphabet = {'a',     '\r',    '\n',    0x0007, 0x0301,  0x1100,  0x1161,
                               0x11A8,  0xAC00,  0xAC01,  0x0903, 0x0600,  0x200D,  0x200D,
                               0x1F468, 0x1F468, 0x1F3FB, 0xFE0F, 0x1F1E9, 0x1F1E9, 0x1F1E9};
  std::mt19937 random(13);
  for (int i = 0; i < 20000; ++i) {
    std::int32_t state = 0;
    utf8proc_int32_t expectedState = 0;
    std::int32_t last = alphabet[random() % alphabet.size()];
    for (int length = 0; length < 7; ++length) {
      const std::int32_t next = alphabet[random() % alphabet.size()];
      ASSERT_EQ(isGraphemeBreak(last, next, state),
                utf8proc_grapheme_break_stateful(last, next, &expectedState))
          << i << ' ' << last << ' ' << next;
      last = next;
    }
  }
}

TEST(UnicodeForms, InvalidTextsAreRefusedAsByUtf8proc) {
  std::mt19937 random(11);
  constexpr std::array<unsigned char, 14> bytes = {'a',  0x80, 0xBF, 0xC0, 0xC2, 0xC3, 0xE0,
                                                   0xED, 0xA0, 0x9F, 0xF0, 0x8F, 0xF4, 0xF5};
  for (int i = 0; i < 20000; ++i) {
    std::string text(random() % 6, ' ');
    for (char& byte : text) byte = static_cast<char>(bytes[random() % bytes.size()]);
    ASSERT_NO_FATAL_FAILURE(expectSameForms(text));
  }
}

}  // namespace
}  // namespace orivanta::unicode
