// The 2D scene over the map that contains the markers.
#pragma once

#include <memory>

#include "Platform/Sprite/Scene.hpp"
#include "Platform/View/Coder.hpp"

namespace orivanta {

/// The 2D scene of a map view. Its size does not change after construction; if the map view was
/// created without a size, the overlay gets the view's first size. Main thread, except `update`.
class ORIVANTA_API MapViewOverlay2D : public sprite::Scene {
 public:
  static std::shared_ptr<MapViewOverlay2D> make(graphics::Size size);  ///< points

  /// Creates an overlay from "width" and "height" of an archive. Returns null if one is missing.
  static std::shared_ptr<MapViewOverlay2D> make(const view::Coder& coder);

  /// A fatal error, because a scene needs a size.
  [[noreturn]] static std::shared_ptr<MapViewOverlay2D> make();

  std::shared_ptr<sprite::SpriteNode> pauseNode;  ///< for applications; null until set
  std::shared_ptr<sprite::LabelNode> scoreNode;   ///< for applications; null until set

  /// Returns the score; 0 until set.
  int score() const { return score_; }

  /// Sets the score and shows "Score: " and the number in `scoreNode`. It is a fatal
  /// error if `scoreNode` is null.
  void setScore(int score);

  /// Prints a diagnostic line for each touch that hit a marker.
  void touchesBegan(std::span<const graphics::Point> touches) override;

  /// Does nothing.
  void update(double currentTime) override;

 private:
  explicit MapViewOverlay2D(graphics::Size size);

  int score_ = 0;
};

}  // namespace orivanta
