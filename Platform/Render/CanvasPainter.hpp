// Collects what a view tree draws in one frame.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "Platform/Render/Quad.hpp"
#include "Platform/Render/SceneGatherer.hpp"
#include "Platform/Render/SheetTextures.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::render {

/// A 3D scene of the frame, and the size in pixels of its rendered image.
struct PaintedScene {
  SceneSnapshot snapshot;
  std::uint32_t width;
  std::uint32_t height;
};

/// Lives within a transaction. The collected data does not refer to views, nodes or sprites.
class CanvasPainter : public view::Canvas {
 public:
  CanvasPainter(SceneGatherer& gatherer, SheetTextures& sheets, double scale, double time)
      : gatherer_(gatherer), sheets_(sheets), scale_(scale), time_(time) {}

  /// Paints a view and its subviews. The root view is placed at the upper left corner of the frame,
  /// regardless of its `frame`.
  void paint(view::View& root) { paint(root, {0, 0}, 1.0); }

  double time() const override { return time_; }
  double scale() const override { return scale_; }
  void clip(const graphics::Rect& rect) override;
  void fill(const graphics::Rect& rect, const graphics::Color& color, double cornerRadius) override;
  void draw(const std::shared_ptr<const graphics::Image>& image, const graphics::Rect& rect,
            double alpha, double turn) override;
  void draw(view::SceneView& view, const graphics::Rect& rect) override;
  void draw(const std::shared_ptr<graphics::Sheet>& sheet,
            std::span<const view::SheetPiece> pieces) override;

  std::vector<Quad> quads;
  std::vector<PaintedScene> scenes;

 private:
  void paint(view::View& view, graphics::Point origin, double alpha);
  void paintOverlay(const view::SceneView& view, const graphics::Rect& rect);

  void add(Quad quad);

  /// A rectangle of the current view, in pixels.
  QuadVertex place(const graphics::Rect& rect) const;

  /// As above, for an image with these sides in pixels.
  QuadVertex placeImage(const graphics::Rect& rect, const std::array<std::uint32_t, 2>& sides,
                        double alpha, double turn) const;

  SceneGatherer& gatherer_;
  SheetTextures& sheets_;
  double scale_;
  double time_;
  graphics::Point origin_;  ///< origin of the current view
  double alpha_ = 1.0;
  std::optional<PixelBox> clip_;  ///< of the current view
};

}  // namespace orivanta::render
