#include "Source/UI/Display/FirstView.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "Source/UI/Display/AssumedScale.hpp"

namespace orivanta {

namespace {

constexpr double placesFactor = 0.55;
constexpr double entrancesFactor = 0.2;
constexpr double connectorsFactor = 0.15;
constexpr double nearnessFactor = 0.1;
constexpr double nearBest = 0.85;  // of the best score

constexpr double leastMeters = 60;  // along the longer side of the region
constexpr double leastPointsPerMeter = 3;
constexpr double pointsOfRoom = 40;
constexpr double wantedShare = 0.9;
constexpr double wholeFactor = 1.35;
constexpr int sizes = 12;
constexpr std::size_t cells = 256;  // in each direction

double relative(double value, double most) { return most > 0 ? value / most : 0.0; }

bool isOn(const FirstViewPlace& place, std::size_t floor) {
  return place.floor == floor && place.weight > 0 && std::isfinite(place.weight) &&
         std::isfinite(place.position.x) && std::isfinite(place.position.y);
}

std::vector<double> scores(std::span<const FirstViewFloor> floors,
                           std::span<const FirstViewPlace> places) {
  std::vector<double> weights(floors.size());
  for (const FirstViewPlace& place : places)
    if (place.floor < floors.size() && isOn(place, place.floor))
      weights[place.floor] += place.weight;
  FirstViewFloor most;
  double highest = 0;
  for (const FirstViewFloor& floor : floors) {
    most.entrances = std::max(most.entrances, floor.entrances);
    most.connectors = std::max(most.connectors, floor.connectors);
    if (std::isfinite(floor.elevation)) highest = std::max(highest, std::abs(floor.elevation));
  }
  const double mostWeight = *std::max_element(weights.begin(), weights.end());
  std::vector<double> found;
  for (std::size_t i = 0; i < floors.size(); ++i) {
    const double height = relative(std::abs(floors[i].elevation), highest);
    found.push_back(
        placesFactor * relative(weights[i], mostWeight) +
        entrancesFactor * relative(double(floors[i].entrances), double(most.entrances)) +
        connectorsFactor * relative(double(floors[i].connectors), double(most.connectors)) +
        nearnessFactor * (1 - std::min(1.0, height)));
  }
  return found;
}

// The weights in the cells of a floor, as sums of all cells left of and below a corner.
class Histogram {
 public:
  Histogram(const graphics::Rect& bounds, std::size_t floor, std::span<const FirstViewPlace> places)
      : bounds_(bounds), sums_((cells + 1) * (cells + 1)) {
    for (const FirstViewPlace& place : places)
      if (isOn(place, floor))
        at(cellOf(place.position.x - bounds.minX(), bounds.size.width) + 1,
           cellOf(place.position.y - bounds.minY(), bounds.size.height) + 1) += place.weight;
    for (std::size_t y = 1; y <= cells; ++y)
      for (std::size_t x = 1; x <= cells; ++x)
        at(x, y) += at(x - 1, y) + at(x, y - 1) - at(x - 1, y - 1);
  }

  double total() const { return at(cells, cells); }

  // The cells of a window; the ends are exclusive.
  struct Window {
    std::size_t left = 0, bottom = 0, right = 0, top = 0;
    double weight = -1;
  };

  // Returns the window of this size with the greatest weight.
  Window densest(graphics::Size size) const {
    const std::size_t width = cellsIn(size.width, bounds_.size.width);
    const std::size_t height = cellsIn(size.height, bounds_.size.height);
    Window best;
    for (std::size_t y = 0; y + height <= cells; ++y)
      for (std::size_t x = 0; x + width <= cells; ++x) {
        const double weight =
            at(x + width, y + height) - at(x, y + height) - at(x + width, y) + at(x, y);
        if (weight > best.weight + 1e-9) best = {x, y, x + width, y + height, weight};
      }
    return best;
  }

  // Returns whether a window contains a position.
  bool contains(const Window& window, graphics::Point position) const {
    const std::size_t x = cellOf(position.x - bounds_.minX(), bounds_.size.width);
    const std::size_t y = cellOf(position.y - bounds_.minY(), bounds_.size.height);
    return x >= window.left && x < window.right && y >= window.bottom && y < window.top;
  }

 private:
  static std::size_t cellOf(double along, double length) {
    if (!(length > 0)) return 0;
    return static_cast<std::size_t>(std::clamp(along / length * cells, 0.0, cells - 1.0));
  }

  static std::size_t cellsIn(double side, double length) {
    if (!(side < length)) return cells;
    return static_cast<std::size_t>(std::clamp(side / length * cells, 1.0, double(cells)));
  }

  double& at(std::size_t x, std::size_t y) { return sums_[y * (cells + 1) + x]; }
  double at(std::size_t x, std::size_t y) const { return sums_[y * (cells + 1) + x]; }

  graphics::Rect bounds_;
  std::vector<double> sums_;
};

// Lengths of the longer side of the region in scene units.
struct Lengths {
  double least = 0;
  double most = 0;
};

// `unitsPerMeter` is 0 if the venue has no scale.
std::optional<Lengths> lengths(double room, double view, double unitsPerMeter) {
  if (!(unitsPerMeter > 0) && !(room > 0)) return std::nullopt;
  double pointsPerUnit = std::numeric_limits<double>::max();
  if (unitsPerMeter > 0) pointsPerUnit = leastPointsPerMeter / unitsPerMeter;
  if (room > 0) pointsPerUnit = std::min(pointsPerUnit, pointsOfRoom / room);
  const double most = view / pointsPerUnit;
  const double least =
      leastMeters * (unitsPerMeter > 0 ? unitsPerMeter : room / metersOfMedianRoom);
  return Lengths{std::min(least, most), most};
}

graphics::Rect around(graphics::Point middle, graphics::Size size) {
  return {{middle.x - size.width / 2, middle.y - size.height / 2}, size};
}

// Returns the middle of the places in a window, so that they are centered in the view.
graphics::Point middleOf(const Histogram& histogram, const Histogram::Window& window,
                         std::size_t floor, std::span<const FirstViewPlace> places) {
  graphics::Point least{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
  graphics::Point most{std::numeric_limits<double>::lowest(),
                       std::numeric_limits<double>::lowest()};
  for (const FirstViewPlace& place : places)
    if (isOn(place, floor) && histogram.contains(window, place.position)) {
      least = {std::min(least.x, place.position.x), std::min(least.y, place.position.y)};
      most = {std::max(most.x, place.position.x), std::max(most.y, place.position.y)};
    }
  return {(least.x + most.x) / 2, (least.y + most.y) / 2};
}

}  // namespace

double firstViewWeight(bool isNameGenerated, bool isBackground, bool hasArea) {
  return (isNameGenerated ? 0.25 : 1.0) * (isBackground ? 0.25 : 1.0) * (hasArea ? 1.0 : 0.5);
}

double medianRoom(std::size_t floor, std::span<const FirstViewPlace> places) {
  std::vector<double> sides;
  for (const FirstViewPlace& place : places)
    if (isOn(place, floor) && place.area > 0 && std::isfinite(place.area))
      sides.push_back(std::sqrt(place.area));
  if (sides.empty()) return 0;
  const auto middle = sides.begin() + static_cast<std::ptrdiff_t>(sides.size() / 2);
  std::nth_element(sides.begin(), middle, sides.end());
  return *middle;
}

std::optional<std::size_t> firstFloor(std::span<const FirstViewFloor> floors,
                                      std::span<const FirstViewPlace> places) {
  if (floors.empty()) return std::nullopt;
  const std::vector<double> found = scores(floors, places);
  const double best = *std::max_element(found.begin(), found.end());
  std::optional<std::size_t> chosen;
  for (std::size_t i = 0; i < floors.size(); ++i)
    if (found[i] >= nearBest * best &&
        (!chosen || std::abs(floors[i].elevation) < std::abs(floors[*chosen].elevation)))
      chosen = i;
  return chosen;
}

FirstRegion firstRegion(const FirstViewFloor& floor, std::size_t floorIndex,
                        std::span<const FirstViewPlace> places, graphics::Size freeView,
                        std::optional<double> unitsPerMeter) {
  const FirstRegion whole{floor.areas, true, 1};
  const double longer = std::max(freeView.width, freeView.height);
  if (!(std::min(freeView.width, freeView.height) > 0)) return whole;
  const auto range = lengths(medianRoom(floorIndex, places), longer, unitsPerMeter.value_or(0));
  const Histogram histogram(floor.areas, floorIndex, places);
  if (!range || !(histogram.total() > 0)) return whole;
  graphics::Size size;
  Histogram::Window window;
  for (int i = 0; i < sizes && window.weight < wantedShare * histogram.total(); ++i) {
    const double length = range->least * std::pow(range->most / range->least, i / (sizes - 1.0));
    size = {freeView.width / longer * length, freeView.height / longer * length};
    window = histogram.densest(size);
  }
  if (floor.areas.size.width <= wholeFactor * size.width &&
      floor.areas.size.height <= wholeFactor * size.height)
    return whole;
  return {around(middleOf(histogram, window, floorIndex, places), size), false,
          window.weight / histogram.total()};
}

}  // namespace orivanta
