#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

#include "Source/UI/Labels/LabelPlacement.hpp"
#include "Tests/Support/LabelScene.hpp"

namespace orivanta {
namespace {

constexpr int frames = 1000;
constexpr int framesTwice = 100;   // to compare the results
constexpr double mostOverlap = 3;  // of a part that fades out, points

struct Part {
  graphics::Rect rect;
  std::size_t label;
  bool isLeaving;
};

// Sorted from left to right.
std::vector<Part> visibleParts(const LabelPlacement& placement) {
  std::vector<Part> parts;
  for (const ShownLabel& shown : placement.shown()) {
    if (shown.symbolOpacity > 0)
      parts.push_back({shown.symbol, shown.label, shown.isSymbolLeaving});
    if (shown.nameOpacity > 0) parts.push_back({shown.name, shown.label, shown.isNameLeaving});
  }
  std::sort(parts.begin(), parts.end(), [](const Part& left, const Part& right) {
    return left.rect.minX() < right.rect.minX();
  });
  return parts;
}

double overlap(const graphics::Rect& left, const graphics::Rect& right) {
  return std::min(std::min(left.maxX(), right.maxX()) - std::max(left.minX(), right.minX()),
                  std::min(left.maxY(), right.maxY()) - std::max(left.minY(), right.minY()));
}

// Counts the faults in what is visible in a frame.
int faultsIn(const std::vector<Part>& parts, const LabelFrame& frame) {
  int faults = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const graphics::Rect& rect = parts[i].rect;
    faults += rect.minX() < 0 || rect.minY() < 0 || rect.maxX() > 1280 || rect.maxY() > 800;
    for (const auto blocked : {frame.panels, frame.marks})
      for (const graphics::Rect& box : blocked) faults += box.intersects(rect);
    for (std::size_t j = i + 1; j < parts.size() && parts[j].rect.minX() < rect.maxX(); ++j) {
      if (parts[i].label == parts[j].label || (parts[i].isLeaving && parts[j].isLeaving)) continue;
      const bool isLeaving = parts[i].isLeaving || parts[j].isLeaving;
      faults += overlap(rect, parts[j].rect) > (isLeaving ? mostOverlap + 1e-9 : 0.0);
    }
  }
  return faults;
}

// Watches names from frame to frame.
class Names {
 public:
  void watch(const LabelPlacement& placement, const LabelFrame& frame) {
    std::map<std::size_t, Name> now;
    for (const ShownLabel& shown : placement.shown()) {
      if (!(shown.nameOpacity > 0)) continue;
      const graphics::Point anchor = frame.places[shown.label].point;
      Name name{{shown.name.midX() - anchor.x, shown.name.midY() - anchor.y},
                frame.time,
                shown.isNameLeaving};
      const auto before = names_.find(shown.label);
      if (before != names_.end()) {
        name.since = before->second.since;
        jumps += std::hypot(name.offset.x - before->second.offset.x,
                            name.offset.y - before->second.offset.y) > 1;
        hasty += name.isLeaving && !before->second.isLeaving && frame.time - name.since < 0.5;
      } else {
        ++come;
      }
      now[shown.label] = name;
    }
    for (const auto& [label, name] : names_)
      hasty += !now.contains(label) && !name.isLeaving && frame.time - name.since < 0.5;
    most = std::max(most, now.size());
    names_ = std::move(now);
  }

  int jumps = 0;
  int hasty = 0;  // names that went within half a second of coming
  int come = 0;
  std::size_t most = 0;

 private:
  struct Name {
    graphics::Point offset;
    double since;
    bool isLeaving;
  };
  std::map<std::size_t, Name> names_;
};

TEST(LabelMotion, NamesKeepTheirPlaceAndCoverNothing) {
  test::LabelScene scene;
  LabelPlacement placement;
  LabelPlacement again;
  placement.setLabels(scene.labels);
  again.setLabels(scene.labels);
  Names names;
  int faults = 0;
  for (int i = 0; i < frames; ++i) {
    const LabelFrame frame = scene.frame(i);
    placement.update(frame);
    if (i < framesTwice) again.update(frame);
    const std::vector<Part> parts = visibleParts(placement);
    faults += faultsIn(parts, frame);
    names.watch(placement, frame);
    ASSERT_TRUE(i >= framesTwice || visibleParts(again).size() == parts.size())
        << "not deterministic at frame " << i;
  }
  EXPECT_EQ(faults, 0);
  EXPECT_EQ(names.jumps, 0);
  EXPECT_LE(names.hasty, frames / test::LabelScene::framesPerSecond / 2) << "of " << names.come;
  EXPECT_GT(names.most, 40U) << "too few names to test with";
}

}  // namespace
}  // namespace orivanta
