#include "Apps/Command/ProgressLine.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace orivanta::command {
namespace {

TEST(ProgressLine, IsRewrittenInPlaceAndCleared) {
  using namespace std::chrono_literals;
  std::string terminal;
  const ProgressLine::Clock::time_point start{};
  ProgressLine line([&](std::string_view bytes) { terminal += bytes; }, 8);
  const auto taken = [&] { return std::exchange(terminal, ""); };
  line.show("1 of 6", start);
  EXPECT_EQ(taken(), "\r\033[K1 of 6");
  line.show("2 of 6", start + 49ms);  // too soon
  EXPECT_EQ(taken(), "");
  line.show("3 of 6 collections", start + 50ms);
  EXPECT_EQ(taken(), "\r\033[K3 of 6…");
  line.note("a line\033");
  EXPECT_EQ(taken(), "\r\033[Ka line\uFFFD\n");
  line.note("another");
  EXPECT_EQ(taken(), "another\n");
  line.show("4 of 6", start + 100ms);
  taken();
  line.clear();
  EXPECT_EQ(taken(), "\r\033[K");
  line.clear();
  EXPECT_EQ(taken(), "");
}

}  // namespace
}  // namespace orivanta::command
