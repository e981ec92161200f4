// The 2D scene over the map, in which the markers live.
#pragma once

#include <memory>

#include "Platform/Sprite/Scene.hpp"
#include "Platform/View/Coder.hpp"

namespace orivanta {

/// Keeps the size that it was made with, or the first one of a map view that was made without a
/// size. Main thread, but for `update`.
class ORIVANTA_API MapViewOverlay2D : public sprite::Scene {
 public:
  static std::shared_ptr<MapViewOverlay2D> make(graphics::Size size);  ///< points

  /// From "width" and "height" of an archive; null when one is missing.
  static std::shared_ptr<MapViewOverlay2D> make(const view::Coder& coder);

  /// A scene needs a size: a fatal error.
  [[noreturn]] static std::shared_ptr<MapViewOverlay2D> make();

  std::shared_ptr<sprite::SpriteNode> pauseNode;  ///< the application's own; null until it sets one
  std::shared_ptr<sprite::LabelNode> scoreNode;   ///< the same

  /// The number that was set last; 0 until then.
  int score() const { return score_; }

  /// Shows "Score: " and the number in `scoreNode`; without one it is a fatal error.
  void setScore(int score);

  /// Says on the diagnostics which touches landed on a marker.
  void touchesBegan(std::span<const graphics::Point> touches) override;

  /// Does nothing.
  void update(double currentTime) override;

 private:
  explicit MapViewOverlay2D(graphics::Size size);

  int score_ = 0;
};

}  // namespace orivanta
