#include "Source/Guidance/Steps/Sections.hpp"

namespace orivanta::guidance {

namespace {

constexpr double landingMeters = 6.0;  // the longest walk between two flights of one ride

int direction(const Leg& ride) { return (ride.floorsPassed > 0) - (ride.floorsPassed < 0); }

bool isOneRide(const Leg& left, const Leg& right) {
  if (left.connector && left.connector == right.connector) return true;
  return left.connectorKind == right.connectorKind && left.connectorKind != ConnectorKind::lift &&
         direction(left) == direction(right);
}

class Cutter {
 public:
  explicit Cutter(const Itinerary& itinerary)
      : legs_(itinerary.legs), stops_(legs_.size() + 1, nullptr) {
    for (const Visit& visit : itinerary.visits)
      if (visit.leg < stops_.size()) stops_[visit.leg] = &visit;
    for (std::size_t begin = 0; begin < legs_.size(); begin = sections.back().endLeg) add(begin);
  }

  std::vector<Section> sections;

 private:
  void add(std::size_t begin) {
    const bool isRide = legs_[begin].kind == Leg::Kind::ride;
    const std::size_t end = isRide ? endOfRide(begin) : endOfWalk(begin);
    sections.push_back({legs_[begin].kind, begin, end, stops_[begin], stops_[end]});
  }

  std::size_t endOfWalk(std::size_t begin) const {
    std::size_t end = begin + 1;
    while (end < legs_.size() && legs_[end].kind == Leg::Kind::walk && stops_[end] == nullptr)
      ++end;
    return end;
  }

  std::size_t endOfRide(std::size_t begin) const {
    std::size_t last = begin;
    for (std::size_t next = last + 1; next < legs_.size(); ++next) {
      if (stops_[next] != nullptr) break;
      if (legs_[next].kind == Leg::Kind::walk) {
        if (next > last + 1 || !(legs_[next].meters <= landingMeters)) break;
        continue;
      }
      if (!isOneRide(legs_[last], legs_[next])) break;
      last = next;
    }
    return last + 1;
  }

  const std::vector<Leg>& legs_;
  std::vector<const Visit*> stops_;  // by the number of legs before
};

}  // namespace

std::vector<Section> sectionsOf(const Itinerary& itinerary) { return Cutter(itinerary).sections; }

}  // namespace orivanta::guidance
