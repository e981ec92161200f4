#include "Source/UI/Display/Styled/OutlineChains.hpp"

#include <cstddef>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace orivanta {

namespace {

using Key = std::tuple<float, float, float>;

Key keyOf(const graphics::Vector3& point) { return {point.x, point.y, point.z}; }

// The pieces that are not in a line yet.
class Rest {
 public:
  explicit Rest(std::span<const OutlinePiece> pieces) {
    for (const OutlinePiece& piece : pieces) {
      starts_.emplace(keyOf(piece.from), &piece);
      ends_.insert(keyOf(piece.to));
    }
  }

  bool hasBefore(const OutlinePiece& piece) const { return ends_.count(keyOf(piece.from)) > 0; }

  // Follows the pieces from a point; the line is empty if none begins there.
  scene::Ribbons::Line take(const graphics::Vector3& from) {
    scene::Ribbons::Line line;
    graphics::Vector3 point = from;
    for (auto next = starts_.find(keyOf(from)); next != starts_.end();
         next = starts_.find(keyOf(point))) {
      line.points.push_back(point);
      line.colors.push_back(next->second->color);
      point = next->second->to;
      starts_.erase(next);
      line.isClosed = point == from;
      if (line.isClosed) return line;
    }
    if (!line.points.empty()) line.points.push_back(point);
    return line;
  }

 private:
  std::multimap<Key, const OutlinePiece*> starts_;
  std::set<Key> ends_;
};

}  // namespace

std::vector<scene::Ribbons::Line> chainPieces(std::span<const OutlinePiece> pieces) {
  std::vector<scene::Ribbons::Line> lines;
  Rest rest(pieces);
  for (const bool withoutBefore : {true, false})
    for (const OutlinePiece& piece : pieces) {
      if (withoutBefore && rest.hasBefore(piece)) continue;
      if (auto line = rest.take(piece.from); !line.points.empty()) lines.push_back(std::move(line));
    }
  return lines;
}

}  // namespace orivanta
