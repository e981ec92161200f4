// What a view draws on: the port between the views and a renderer.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/View/Fwd.hpp"

namespace orivanta::view {

/// Coordinates are points of the view that draws, from its upper left corner with y downwards. The
/// canvas multiplies every alpha by that of the view and of the views above it. Later drawing
/// covers earlier. Lives for one frame.
class ORIVANTA_API Canvas {
 public:
  virtual ~Canvas() = default;

  /// The time of the frame in seconds, rising from frame to frame.
  virtual double time() const = 0;

  /// Device pixels per point.
  virtual double scale() const = 0;

  /// Fills a rectangle, with round corners of a radius in points.
  virtual void fill(const graphics::Rect& rect, const graphics::Color& color,
                    double cornerRadius = 0.0) = 0;

  /// Stretches the image over the rectangle, turned clockwise about its center by radians.
  virtual void draw(const std::shared_ptr<const graphics::Image>& image, const graphics::Rect& rect,
                    double alpha = 1.0, double turn = 0.0) = 0;

  /// The view's 3D scene, with the background behind it when that is opaque, and the overlay over
  /// both. What lies under it shows through elsewhere.
  virtual void draw(SceneView& view, const graphics::Rect& rect) = 0;
};

}  // namespace orivanta::view
