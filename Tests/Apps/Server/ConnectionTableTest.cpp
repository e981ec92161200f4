#include "Apps/Server/ConnectionTable.hpp"

#include <gmock/gmock.h>

namespace orivanta::server {
namespace {

using Phase = ConnectionTable::Phase;
using std::chrono::milliseconds;
using testing::ElementsAre;

ConnectionTable::Time at(int time) { return ConnectionTable::Time(milliseconds(time)); }

TEST(ConnectionTable, ClosesTheOldestIdleThenTheOneThatStalledForLongest) {
  ConnectionTable table(5, milliseconds(100), milliseconds(1000));
  std::vector<int> closed;
  std::vector<ConnectionTable::Place> places;
  for (int number = 0; number < 5; ++number) {
    EXPECT_TRUE(table.makeRoom(at(0)));
    places.push_back(table.enter(at(0), [&closed, number] { closed.push_back(number); }));
  }
  EXPECT_THAT(closed, ElementsAre());
  table.update(places[4], Phase::working, at(1));
  table.update(places[0], Phase::sending, at(2));
  table.update(places[1], Phase::sending, at(3));
  table.update(places[2], Phase::working, at(4));
  table.update(places[2], Phase::idle, at(5));
  table.progress(places[0], 1, at(6));

  EXPECT_TRUE(table.makeRoom(at(7)));  // 3 has been idle since the start
  EXPECT_TRUE(table.makeRoom(at(7)));  // a connection being closed no longer counts
  EXPECT_FALSE(table.update(places[3], Phase::working, at(8)));
  table.enter(at(8), [&] { closed.push_back(5); });
  EXPECT_TRUE(table.makeRoom(at(9)));
  EXPECT_FALSE(table.closeSender(at(102)));
  EXPECT_THAT(closed, ElementsAre(3, 2));
  EXPECT_TRUE(table.closeSender(at(103)));
  EXPECT_TRUE(table.closeOne(at(103)));
  EXPECT_FALSE(table.closeOne(at(105)));  // 0 has made progress since, and 4 is being answered
  EXPECT_TRUE(table.closeOne(at(106)));
  EXPECT_THAT(closed, ElementsAre(3, 2, 1, 5, 0));
  for (const auto& place : places) table.leave(place);
}

TEST(ConnectionTable, ClosesTheSlowestSenderAfterItsGrace) {
  ConnectionTable table(3, milliseconds(100), milliseconds(1000));
  std::vector<int> closed;
  std::vector<ConnectionTable::Place> places;
  for (int number = 0; number < 3; ++number)
    places.push_back(table.enter(at(0), [&closed, number] { closed.push_back(number); }));
  const auto sendAll = [&](int begin, std::vector<std::uint64_t> bytes) {
    for (std::size_t number = 0; number < places.size(); ++number) {
      table.update(places[number], Phase::working, at(begin));
      table.update(places[number], Phase::sending, at(begin));
      table.progress(places[number], bytes[number], at(begin + 499));
      table.update(places[number], Phase::idle, at(begin + 499));
    }
  };
  sendAll(0, {30, 500, 600});
  sendAll(2000, {500, 20, 0});  // neither further responses nor waiting extend the grace
  for (std::size_t number = 0; number < places.size(); ++number) {
    table.update(places[number], Phase::working, at(2500));
    table.update(places[number], Phase::sending, at(2500));
  }
  EXPECT_FALSE(table.makeRoom(at(2501)));
  for (int count = 0; count < 3; ++count) EXPECT_TRUE(table.closeOne(at(2502)));
  EXPECT_THAT(closed, ElementsAre(1, 0, 2));
  EXPECT_FALSE(table.closeSender(at(9000)));
  for (const auto& place : places) table.leave(place);
}

}  // namespace
}  // namespace orivanta::server
