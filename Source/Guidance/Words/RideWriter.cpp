#include "Source/Guidance/Words/RideWriter.hpp"

#include <algorithm>
#include <cstdint>

#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/KindWords.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Guidance/Words/MessageKeys.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::guidance {

namespace {

// Whether words already end in a name, as "the stairs" in "Stairs" or "Level 2" in "2".
bool endsInName(const std::string& words, const std::string& name) {
  return (" " + searchForm(words)).ends_with(" " + searchForm(name));
}

}  // namespace

ConnectorKind kindLeft(const Itinerary& itinerary, const Step& step) {
  const auto isRide = [&](std::size_t leg) {
    return leg < itinerary.legs.size() && itinerary.legs[leg].kind == Leg::Kind::ride;
  };
  if (isRide(step.leg)) return itinerary.legs[step.leg].connectorKind;
  if (step.leg > 0 && isRide(step.leg - 1)) return itinerary.legs[step.leg - 1].connectorKind;
  return ConnectorKind::other;
}

RideWriter::RideWriter(const Messages& messages, const Itinerary& itinerary, const Step& step)
    : messages_(messages), step_(step) {
  if (step_.leg >= itinerary.legs.size()) return;
  first_ = &itinerary.legs[step_.leg];
  const Leg* last = first_;
  const std::size_t end = std::max(step_.leg, step_.lastLeg) + 1;
  for (std::size_t i = step_.leg; i < std::min(end, itinerary.legs.size()); ++i) {
    if (itinerary.legs[i].kind != Leg::Kind::ride) continue;
    last = &itinerary.legs[i];
    floors_ += last->floorsPassed;
  }
  const bool arrives = !last->nodes.empty() && last->nodes.back();
  if (arrives && last->nodes.back()->map != first_->map) destination_ = last->nodes.back()->map;
}

std::string RideWriter::text() const {
  const std::string taken = connector();
  const std::string to = destination_ ? floor() : std::string();
  if (to.empty()) return messages_.format("ride", {{"connector", taken}});
  if (floors_ == 0) return messages_.format("ride.level", {{"connector", taken}, {"floor", to}});
  const auto count = static_cast<std::uint64_t>(floors_ < 0 ? -floors_ : floors_);
  return messages_.format(floors_ < 0 ? "ride.down" : "ride.up", "floors", count,
                          {{"connector", taken}, {"floor", to}});
}

std::string RideWriter::connector() const {
  const std::string key =
      "connector." + wordOf(first_ == nullptr ? ConnectorKind::other : first_->connectorKind);
  std::string words = messages_.format(key + sideKey(step_.side));
  const std::string name = first_ == nullptr ? std::string() : first_->sign;
  const std::string sign = messages_.name(name);
  if (sign.empty() || endsInName(messages_.format(key), name)) return words;
  return messages_.format("connector.sign", {{"connector", words}, {"sign", sign}});
}

std::string RideWriter::floor() const {
  const std::string label = floorLabel(*destination_);
  std::string sign = messages_.name(label);
  std::string name = messages_.name(floorName(*destination_));
  if (name.empty()) return sign;
  if (sign.empty() || endsInName(floorName(*destination_), label)) return name;
  return messages_.format("floor", {{"short", sign}, {"name", name}});
}

}  // namespace orivanta::guidance
