#include "Source/Guidance/OpeningHours.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "Source/Location.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::guidance {
namespace {

// Returns the time of "We12:00", "12-24T10:00" or "2027-01-02T10:00".
LocalTime timeOf(const std::string& text) {
  const std::size_t weekday = std::string("MoTuWeThFrSaSu").find(text.substr(0, 2)) / 2;
  if (weekday < 7)
    return LocalTime::parse("2026-11-16T" + text.substr(2))
        .value()
        .plusMinutes(static_cast<long long>(weekday) * 1440);
  return LocalTime::parse(text[2] == '-' ? "2026-" + text : text).value();
}

std::optional<LocalTime> change(const char* text, const char* time) {
  return OpeningHours::parse(text)->nextChange(timeOf(time));
}

}  // namespace

TEST(OpeningHours, TextsAsPeopleWriteThemHaveTheExpectedStates) {
  std::ifstream file(ORIVANTA_TESTS "/Source/Guidance/OpeningHours.txt");
  int texts = 0;
  for (std::string line, word; std::getline(file, line);) {
    const std::size_t arrow = line.find(" => ");
    if (line.starts_with('#') || arrow == std::string::npos) continue;
    ++texts;
    const auto hours = OpeningHours::parse(line.substr(0, arrow));
    EXPECT_EQ(hours.has_value(), !line.ends_with("not read")) << line;
    for (std::istringstream expected(line.substr(arrow + 4)); hours && expected >> word;)
      EXPECT_EQ("+-?"[static_cast<int>(hours->at(timeOf(word.substr(0, word.size() - 1))))],
                word.back())
          << line << " at " << word;
  }
  EXPECT_GT(texts, 200);
}

TEST(OpeningHours, TheNextChangeIsTheFirstMinuteWithAnotherState) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"Mo-Fr 09:00-18:00; Sa 10:00-16:00", "Fr12:00", "Fr18:00"},
      {"Mo-Fr 09:00-18:00; Sa 10:00-16:00", "Sa16:00", "11-23T09:00"},
      {"Mo-Fr 09:00-12:00,12:00-18:00", "Mo09:00", "Mo18:00"},
      {"Fr 20:00-04:00; Sa off", "Fr23:00", "Sa04:00"},
      {"18:00+", "Mo18:30", "Mo19:00"},
      {"18:00+", "Mo19:00", "Tu04:00"},
      {"Mo[3] 10:00-12:00", "11-02T10:00", "Mo10:00"},
      {"2027 off; 2026 open", "12-18T00:00", "2027-01-01T00:00"},
  };
  for (const auto& [text, time, next] : cases) EXPECT_EQ(change(text, time), timeOf(next)) << text;
  EXPECT_FALSE(change("24/7", "Mo12:00"));
  EXPECT_FALSE(change("Mo[3] 10:00-12:00", "11-02T09:59")) << "more than 14 days later";
  EXPECT_FALSE(change("Mo 10:00-12:00", "9999-12-31T23:59")) << "the calendar ends";
}

TEST(OpeningHours, HugeTextsAreNotRead) {
  EXPECT_FALSE(OpeningHours::parse("24/7" + std::string(1 << 20, ';')));
  EXPECT_TRUE(OpeningHours::parse("24/7" + std::string(1900, ';')));
}

TEST(OpeningHours, TimesOfRealPlacesAreRead) {
  int texts = 0;
  int unread = 0;
  for (const std::string& name : test::venueNames()) {
    const auto file = *test::venuesFolder() / name / "location.json";
    for (const auto& [id, location] : test::recordsIn<Location>(test::contentsOf(file))) {
      const std::string description = location->description.value_or("");
      if (std::count(description.begin(), description.end(), ':') < 2) continue;
      ++texts;
      unread += !OpeningHours::parse(description);
    }
  }
  if (texts == 0) GTEST_SKIP();
  EXPECT_LE(unread * 20, texts) << texts;
}

}  // namespace orivanta::guidance
