#include "Platform/Graphics/Color.hpp"

#include <gtest/gtest.h>

namespace orivanta::graphics {
namespace {

TEST(Color, ReadsDigitsAndNames) {
  struct Case {
    std::string_view text;
    Color color;
  };
  for (const auto& [text, color] :
       {Case{"#0fA", {0, 1, 170 / 255.0F, 1}},
        Case{"#FBAC17", {251 / 255.0F, 172 / 255.0F, 23 / 255.0F, 1}},
        Case{"#00000080", {0, 0, 0, 128 / 255.0F}}, Case{"DARKGRAY", colors::darkGray},
        Case{"brown", colors::brown}, Case{"clear", {0, 0, 0, 0}}})
    EXPECT_EQ(Color::parse(text), color) << text;
  for (const char* text : {"", "#", "#12", "#1234", "#12345g", "#123456789", "fff", "re", "reds"})
    EXPECT_EQ(Color::parse(text), std::nullopt) << text;
  EXPECT_EQ(Color::parse({"red\0", 4}), std::nullopt);
}

}  // namespace
}  // namespace orivanta::graphics
