#include "Apps/Import/Read/Osm/OsmRings.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace orivanta::importer {

namespace {

// Twice the area, in units of positions. Positive for a counterclockwise ring.
double signedArea(const OsmRing& ring) {
  double sum = 0.0;
  const double left = ring.empty() ? 0.0 : ring.front().longitude;
  const double bottom = ring.empty() ? 0.0 : ring.front().latitude;
  for (std::size_t i = 0; i + 1 < ring.size(); ++i)
    sum += (ring[i].longitude - left) * (ring[i + 1].latitude - bottom) -
           (ring[i + 1].longitude - left) * (ring[i].latitude - bottom);
  return sum;
}

bool isRing(const OsmRing& piece) { return piece.size() >= 4 && piece.front() == piece.back(); }

// The pieces that are not used yet, by the positions of their ends.
class Ends {
 public:
  explicit Ends(const std::vector<OsmRing>& pieces) : pieces_(pieces), isUsed_(pieces.size()) {
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      byEnd_[pieces[i].front()].push_back(i);
      byEnd_[pieces[i].back()].push_back(i);
    }
  }

  void use(std::size_t piece) { isUsed_[piece] = true; }
  bool isUsed(std::size_t piece) const { return isUsed_[piece]; }

  // Appends an unused piece that begins or ends where `ring` ends. Returns false if there is none.
  bool extend(OsmRing& ring) {
    std::vector<std::size_t>& candidates = byEnd_[ring.back()];
    while (!candidates.empty() && isUsed_[candidates.back()]) candidates.pop_back();
    if (candidates.empty()) return false;
    const std::size_t piece = candidates.back();
    use(piece);
    const OsmRing& next = pieces_[piece];
    if (next.front() == ring.back())
      ring.insert(ring.end(), next.begin() + 1, next.end());
    else
      ring.insert(ring.end(), next.rbegin() + 1, next.rend());
    return true;
  }

 private:
  const std::vector<OsmRing>& pieces_;
  std::vector<bool> isUsed_;
  std::map<OsmPosition, std::vector<std::size_t>> byEnd_;
};

}  // namespace

std::vector<OsmRing> joinedRings(std::vector<OsmRing> pieces, std::size_t& open) {
  std::vector<OsmRing> rings;
  std::vector<OsmRing> parts;
  for (OsmRing& piece : pieces) {
    if (isRing(piece))
      rings.push_back(std::move(piece));
    else if (piece.size() >= 2)
      parts.push_back(std::move(piece));
  }
  Ends ends(parts);
  open = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (ends.isUsed(i)) continue;
    ends.use(i);
    OsmRing ring = parts[i];
    std::size_t used = 1;
    while (ring.front() != ring.back() && ends.extend(ring)) ++used;
    if (isRing(ring))
      rings.push_back(std::move(ring));
    else
      open += used;
  }
  return rings;
}

OsmRing normalized(OsmRing ring, bool isCounterclockwise) {
  if (ring.size() < 2) return ring;
  ring.pop_back();
  std::rotate(ring.begin(), std::min_element(ring.begin(), ring.end()), ring.end());
  ring.push_back(ring.front());
  if ((signedArea(ring) > 0.0) != isCounterclockwise) std::reverse(ring.begin(), ring.end());
  return ring;
}

std::vector<OsmPolygon> polygonsOf(std::vector<OsmRing> outer, const std::vector<OsmRing>& inner) {
  std::vector<OsmThing> shapes;
  std::vector<std::pair<double, std::size_t>> bySize;
  std::sort(outer.begin(), outer.end());
  for (OsmRing& ring : outer) {
    const double size = std::abs(signedArea(ring));
    if (!isRing(ring) || size == 0.0) continue;
    bySize.emplace_back(size, shapes.size());
    OsmThing& shape = shapes.emplace_back();
    for (const OsmPosition position : ring) shape.box.add(position);
    shape.polygons.push_back({normalized(std::move(ring), true), {}});
  }
  std::sort(bySize.begin(), bySize.end());
  std::vector<std::vector<OsmRing>> holes(shapes.size());
  // No building has so many; a hostile relation takes no longer.
  const bool areCountless = shapes.size() * inner.size() > 20'000'000;
  for (const OsmRing& ring : areCountless ? std::vector<OsmRing>() : inner) {
    if (!isRing(ring) || signedArea(ring) == 0.0) continue;
    const auto around = std::find_if(bySize.begin(), bySize.end(), [&](const auto& candidate) {
      return contains(shapes[candidate.second], ring.front()) ||
             contains(shapes[candidate.second], ring[1]);
    });
    if (around != bySize.end()) holes[around->second].push_back(normalized(ring, false));
  }
  std::vector<OsmPolygon> polygons;
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    std::sort(holes[i].begin(), holes[i].end());
    polygons.push_back({std::move(shapes[i].polygons[0].outer), std::move(holes[i])});
  }
  std::sort(
      polygons.begin(), polygons.end(),
      [](const OsmPolygon& first, const OsmPolygon& second) { return first.outer < second.outer; });
  return polygons;
}

}  // namespace orivanta::importer
