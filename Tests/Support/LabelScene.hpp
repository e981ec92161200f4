// A floor with 2,000 places, and a camera that pans, zooms and turns over it, for tests and
// benchmarks of labels.
#pragma once

#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include "Source/UI/Labels/LabelAnchor.hpp"
#include "Source/UI/Labels/PlaceLabel.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta::test {

/// Scene units are meters.
class LabelScene {
 public:
  static constexpr double framesPerSecond = 60;

  /// Two thirds of the places have a room in a grid of rooms.
  LabelScene() {
    std::mt19937 random(7);
    const auto upTo = [&](unsigned limit) { return static_cast<double>(random() % limit); };
    constexpr std::array<double, 9> ranks{98, 95, 90, 70, 64, 50, 48, 48, 22};
    for (int i = 0; i < 2000; ++i) {
      PlaceLabel label;
      label.rank = ranks[random() % ranks.size()] + upTo(14);
      const ZoomStep step = MapTheme::light()->zoomStep(label.rank);
      label.scales = {step.iconFrom, step.nameFrom};
      const double width = 6 + 7 * (4 + upTo(14));
      label.names = {{width, 20}, {6 + width / 2, 34}, {12 + width / 3, 48}};
      const graphics::Point middle{(i % 50) * 8.0 + upTo(3), static_cast<int>(i / 50) * 7.0};
      if (i % 3 == 0) {
        label.symbolSize = 16;
      } else {
        const double half = 2 + upTo(3) / 2;
        LabelArea area;
        area.addRing(std::array<graphics::Point, 4>{{{middle.x - half, middle.y - 2},
                                                     {middle.x + half, middle.y - 2},
                                                     {middle.x + half, middle.y + 2},
                                                     {middle.x - half, middle.y + 2}}});
        label.room =
            std::make_shared<LabelRoom>(area, std::span<const LabelArea>(), LabelAnchor{middle, 2});
        label.symbolSize = 5;
        label.symbolFirst = false;
        label.insideOnly = label.rank < 40;
      }
      anchors_.push_back(middle);
      labels.push_back(std::move(label));
    }
  }

  /// Returns a frame of a camera that never stands still. It refers to the scene, and is valid
  /// until the next call.
  LabelFrame frame(int number) {
    const double time = number / framesPerSecond;
    const double scale = 6 * std::exp2(1.5 * std::sin(0.7 * time));
    const double turn = 0.8 * std::sin(0.4 * time);
    const graphics::Point center{200 + 120 * std::sin(0.25 * time),
                                 140 + 80 * std::sin(0.37 * time)};
    const double cosine = std::cos(turn);
    const double sine = std::sin(turn);
    const auto project = [&](graphics::Point anchor) {
      const double x = anchor.x - center.x;
      const double y = anchor.y - center.y;
      return graphics::Point{640 + scale * (x * cosine + y * sine),
                             400 - scale * 0.8 * (y * cosine - x * sine)};
    };
    places_.clear();
    for (const graphics::Point anchor : anchors_) places_.push_back({project(anchor), scale});
    marks_.clear();
    for (const double pin : {100.0, 190.0, 260.0}) {
      const graphics::Point at = project({pin, 130});
      marks_.push_back({{at.x - 15, at.y - 30}, {30, 30}});
    }
    for (double along = 0; along < 100; along += 10 / scale) {
      const graphics::Point at = project({150 + along, 120 + along / 3});
      marks_.push_back({{at.x - 5, at.y - 5}, {10, 10}});
    }
    return {time, {1280, 800}, 1, std::acos(0.8), turn, places_, panels_, marks_, {}};
  }

  std::vector<PlaceLabel> labels;

 private:
  std::vector<graphics::Point> anchors_;
  std::vector<ProjectedPlace> places_;
  std::vector<graphics::Rect> marks_;
  std::vector<graphics::Rect> panels_{{{1000, 0}, {280, 600}}, {{0, 740}, {400, 60}}};
};

}  // namespace orivanta::test
