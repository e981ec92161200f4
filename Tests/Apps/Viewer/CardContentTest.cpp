#include "Apps/Viewer/Content/CardContent.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::viewer {
namespace {

using guidance::InterfaceTexts;
using guidance::LocalTime;

const LocalTime friday{2026, 11, 20, 12, 0};

TEST(HoursText, SaysWhetherAPlaceIsOpenAndUntilWhen) {
  const struct {
    const char* hours;
    LocalTime now;
    const char* state;
  } cases[] = {
      {"Mo-Sa 09:00-20:00", friday, "Open until 20:00"},
      {"Mo-Fr 08:00-24:00", friday, "Open until 24:00"},
      {"Mo-Sa 18:00-02:00", {2026, 11, 21, 1, 0}, "Open until 02:00"},
      {"24/7", friday, "Open 24 hours"},
      {"Mo-Sa 00:00-24:00", friday, "Open now"},
      {"Mo-Sa 13:30-20:00", friday, "Closed · opens at 13:30"},
      {"Sa 09:00-20:00", friday, "Closed · opens tomorrow at 09:00"},
      {"Mo-Th 09:00-20:00", friday, "Closed · opens Monday at 09:00"},
      {"2027 Jan 09:00-20:00", friday, "Closed now"},
      {R"(Fr "by appointment")", friday, ""},
      {R"(Fr "by appointment"; Sa 10:00-12:00)",
       {2026, 11, 19, 12, 0},
       "Closed · opens Saturday at 10:00"},
  };
  for (const auto& each : cases)
    EXPECT_EQ(stateText(*guidance::OpeningHours::parse(each.hours), each.now, InterfaceTexts()),
              each.state)
        << each.hours;
  const auto hours = *guidance::OpeningHours::parse("Mo-Sa 09:00-20:00");
  EXPECT_EQ(stateText(hours, {2026, 11, 21, 21, 0}, InterfaceTexts("de")),
            "Geschlossen · öffnet Montag um 09:00");
}

TEST(HoursText, ListsTheHoursOnTheDaysOnWhichTheyBegin) {
  const struct {
    const char* hours;
    std::array<const char*, 7> week;  // from Friday on
  } cases[] = {
      {"Mo-Th 09:00-12:00,14:00-18:00; Fr 22:00-08:00; Sa 10:00-14:00",
       {"22:00–08:00", "10:00–14:00", "Closed", "09:00–12:00, 14:00–18:00",
        "09:00–12:00, 14:00–18:00", "09:00–12:00, 14:00–18:00", "09:00–12:00, 14:00–18:00"}},
      {R"(Mo-Th 00:00-24:00; Fr 08:00-24:00; Sa "by appointment")",
       {"08:00–24:00", "Not known", "Closed", "Open 24 hours", "Open 24 hours", "Open 24 hours",
        "Open 24 hours"}},
  };
  for (const auto& each : cases) {
    const auto week = weekOf(*guidance::OpeningHours::parse(each.hours), friday, InterfaceTexts());
    ASSERT_EQ(week.size(), each.week.size());
    EXPECT_EQ(week[1].day, "Saturday");
    for (std::size_t day = 0; day < week.size(); ++day)
      EXPECT_EQ(week[day].hours, each.week[day]) << each.hours << ", " << week[day].day;
  }
}

// Each case is a place or a connector with some members.
TEST(CardContent, SaysWhatARecordAndTheTimeMean) {
  const struct {
    bool isConnector;
    const char *members, *title, *detail, *state;
    bool isClosed;
    const char *hours, *contact, *description;
  } cases[] = {
      {false, R"("hours": "Mo-Fr 09:00-18:00", "categories": ["c2"], "phone": "+49 351 1")",
       "Bakery", "Food  ·  Ground", "Open until 18:00", false, "09:00–18:00", "+49 351 1", ""},
      {false, R"("description": "Bread; Mo-Th 09:00-17:00; Fr 09:00-11:00")", "Bakery", "Ground",
       "Closed · opens Monday at 09:00", true, "09:00–11:00", "", "Bread"},
      {false, R"("description": "Mo-Fr 10:00-13:00")", "Bakery", "Ground", "Open until 13:00",
       false, "10:00–13:00", "", ""},
      {false, R"("description": "Open", "website": "https://a.example/b/")", "Bakery", "Ground", "",
       false, "", "a.example/b", "Open"},
      {false, R"("hours": "sunrise-sunset", "description": "Mo-Fr 10:00-13:00")", "Bakery",
       "Ground", "", false, "sunrise-sunset", "", "Mo-Fr 10:00-13:00"},
      {false, R"("id": "closed", "hours": "24/7")", "Bakery", "Ground", "Closed now", true,
       "Open 24 hours", "", ""},
      {true, R"("name": "Lift A", "type": "elevator")", "Lift A", "Elevator  ·  Floors G, F1", "",
       false, "", "", ""},
      {true, R"("id": "closed", "nameGenerated": true, "type": "stairs", "hours": "24/7")",
       "Stairs", "Floors G, F1", "Out of order", true, "Open 24 hours", "", ""},
  };
  for (const auto& each : cases) {
    test::TwoFloorVenue records;
    const auto record = [&](const char* rest) {
      const std::string members = each.members;
      const auto missing = [&](const char* key, const char* value) {
        return members.find(key) == std::string::npos ? fmt::format("{}: {}, ", key, value) : "";
      };
      return fmt::format("[{{{}{}{}{}, {}}}]", missing(R"("id")", R"("l")"),
                         missing(R"("name")", R"("Bakery")"), missing(R"("type")", R"("x")"),
                         members, rest);
    };
    if (each.isConnector)
      records.vortices = record(R"("nodes": ["u1", "n3"])");
    else
      records.locations = record(R"("nodes": [{"node": "n1"}])");
    const auto venue = records.load();
    const std::shared_ptr<Location> place =
        each.isConnector ? venue->vortices->front() : venue->locations->front();
    const InterfaceTexts texts;
    const KindWords words;
    const guidance::Closures closures({"closed"});
    const CardContent content = cardContent(*place, {*venue, closures, friday, texts, words});
    EXPECT_EQ(content.title, each.title) << each.members;
    EXPECT_EQ(content.detail, each.detail) << each.members;
    EXPECT_EQ(content.state, each.state) << each.members;
    EXPECT_EQ(content.isClosed, each.isClosed) << each.members;
    EXPECT_EQ(content.week.empty() ? content.hours : content.week.front().hours, each.hours)
        << each.members;
    EXPECT_EQ(content.phone + content.website, each.contact) << each.members;
    EXPECT_EQ(content.description, each.description) << each.members;
  }
}

}  // namespace
}  // namespace orivanta::viewer
