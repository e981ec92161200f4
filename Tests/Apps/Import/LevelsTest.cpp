#include "Apps/Import/Storeys/Levels.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace orivanta::importer {
namespace {

TEST(Levels, TextsAreListsOfNumbersAndRanges) {
  struct Row {
    std::string_view text;
    std::vector<double> values;
    std::string unreadable = {};
  };
  const Row rows[] = {
      {"0", {0}},
      {"-1;0", {-1, 0}},
      {" 2 ; 1;;1 ;", {1, 2}},
      {"0-3", {0, 1, 2, 3}},
      {"-1-3", {-1, 0, 1, 2, 3}},
      {"-3--1", {-3, -2, -1}},
      {"3-1", {1, 2, 3}},
      {"0 - 2;5", {0, 1, 2, 5}},
      {"0\u20132;\u22121", {-1, 0, 1, 2}},
      {"\uFF11\uFF1B2\uFF0D\uFF13", {1, 2, 3}},
      {"+1", {1}},
      {"0.5", {0.5}},
      {"0.5-2.5", {0.5, 1.5, 2.5}},
      {"0,5", {0.5}},
      {"-0,25", {-0.25}},
      {"4,5", {4.5}},
      {"0,1", {0, 1}},
      {"-1,0", {-1, 0}},
      {"0,1,2", {0, 1, 2}},
      {"0, 2", {0, 2}},
      {"", {}},
      {"EG", {}, "EG"},
      {"0;OG;x1", {0}, "OG;x1"},
      {"1e3", {}, "1e3"},
      {"1-2-3", {}, "1-2-3"},
      {"0-100000000", {}, "0-100000000"},
      {"-300-300", {}, "-300-300"},
      {"99999999999999999999", {}, "99999999999999999999"},
      {"nan;inf;--1;-;.5", {}, "nan;inf;--1;-;.5"},
  };
  for (const Row& row : rows) {
    const Levels levels = parseLevels(row.text);
    EXPECT_EQ(levels.values, row.values) << row.text;
    EXPECT_EQ(levels.unreadable, row.unreadable) << row.text;
  }
  EXPECT_EQ(roundedLevel(0.1 + 0.2), 0.3);
  EXPECT_FALSE(std::signbit(roundedLevel(-0.0)));
  EXPECT_EQ(levelText(-1.0) + levelText(0.5) + levelText(-0.0), "-10.50");
}

}  // namespace
}  // namespace orivanta::importer
