// Collects what a tree of views draws in one frame.
#pragma once

#include <vector>

#include "Platform/Render/Quad.hpp"
#include "Platform/Render/SceneGatherer.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::render {

/// A 3D scene of the frame, and the pixels that its picture needs.
struct PaintedScene {
  SceneSnapshot snapshot;
  std::uint32_t width;
  std::uint32_t height;
};

/// Lives under a transaction; what it has collected refers to no view, node or sprite.
class CanvasPainter : public view::Canvas {
 public:
  CanvasPainter(SceneGatherer& gatherer, double scale, double time)
      : gatherer_(gatherer), scale_(scale), time_(time) {}

  /// The view, at the upper left corner of the picture whatever its own frame says, and all below.
  void paint(view::View& root) { paint(root, {0, 0}, 1.0); }

  double time() const override { return time_; }
  double scale() const override { return scale_; }
  void fill(const graphics::Rect& rect, const graphics::Color& color, double cornerRadius) override;
  void draw(const std::shared_ptr<const graphics::Image>& image, const graphics::Rect& rect,
            double alpha, double turn) override;
  void draw(view::SceneView& view, const graphics::Rect& rect) override;

  std::vector<Quad> quads;
  std::vector<PaintedScene> scenes;

 private:
  void paint(view::View& view, graphics::Point origin, double alpha);
  void paintOverlay(const view::SceneView& view, const graphics::Rect& rect);

  /// Of a rectangle of the view that draws, in pixels.
  QuadVertex place(const graphics::Rect& rect) const;

  SceneGatherer& gatherer_;
  double scale_;
  double time_;
  graphics::Point origin_;  ///< of the view that draws
  double alpha_ = 1.0;
};

}  // namespace orivanta::render
