#include "Source/Guidance/LocalTime.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace orivanta::guidance {

TEST(LocalTime, OnlyDatesThatExistAreParsed) {
  for (const char* text : {"2026-11-21T18:30", "2028-02-29T00:00", "0001-01-01T23:59"})
    EXPECT_EQ(LocalTime::parse(text).value().text(), text);
  EXPECT_EQ(LocalTime::parse("2026-11-21T18:30:59.25"), LocalTime::parse("2026-11-21T18:30"));
  for (const char* text :
       {"", "2026-11-21", "2026-11-21 18:30", "2026-02-29T00:00", "2026-13-01T00:00",
        "0000-01-01T00:00", "2026-11-21T24:00", "2026-11-21T18:60", "2026-11-21T18:30Z",
        "2026-11-21T18:30:", "2026-11-21T18:30:5", "2026-11-21T18:30:61", "2026-11-21T8:30",
        "+026-11-21T18:30", "2026-11-21T18:30+01:00"})
    EXPECT_FALSE(LocalTime::parse(text)) << text;
}

TEST(LocalTime, MinutesAndWeekdaysFollowTheCalendar) {
  const LocalTime time{2028, 2, 28, 23, 30};
  EXPECT_EQ(time.weekday(), 0);
  EXPECT_EQ(time.plusMinutes(45), (LocalTime{2028, 2, 29, 0, 15}));
  EXPECT_EQ(time.plusMinutes(45).plusMinutes(-45), time);
  constexpr auto most = std::numeric_limits<long long>::max();
  EXPECT_EQ(time.plusMinutes(most), (LocalTime{9999, 12, 31, 23, 59}));
  EXPECT_EQ(time.plusMinutes(-most - 1), (LocalTime{1, 1, 1, 0, 0}));
}

}  // namespace orivanta::guidance
