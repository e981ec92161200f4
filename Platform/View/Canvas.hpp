// The interface that views draw with: the port between the views and a renderer.
// Public header.
#pragma once

#include <memory>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Graphics/Sheet.hpp"
#include "Platform/View/Fwd.hpp"

namespace orivanta::view {

/// An image of a sheet, and how it is drawn.
struct SheetPiece {
  graphics::SheetPlace place;  ///< of the image in the sheet
  graphics::Rect rect;         ///< to which the image is stretched, in points of the view
  double alpha = 1.0;          ///< 0 to 1
  double turn = 0.0;           ///< clockwise about the center of `rect`, in radians
};

/// A canvas for one frame. Coordinates are points of the view that draws, with the origin in its
/// upper left corner and y downwards. The canvas multiplies every alpha by the alpha of the view
/// and of its ancestors. Later drawing covers earlier drawing.
class ORIVANTA_API Canvas {
 public:
  virtual ~Canvas() = default;

  /// Returns the time of the frame in seconds. It increases from frame to frame.
  virtual double time() const = 0;

  /// Returns the device pixels per point.
  virtual double scale() const = 0;

  /// Limits all further drawing of the view, and all drawing of its descendants, to a rectangle of
  /// the view, rounded to whole pixels, within the limits of its ancestors. The default
  /// implementation does nothing.
  virtual void clip(const graphics::Rect& rect);

  /// Fills a rectangle. `cornerRadius`: points; 0 for square corners.
  virtual void fill(const graphics::Rect& rect, const graphics::Color& color,
                    double cornerRadius = 0.0) = 0;

  /// Draws the image stretched to the rectangle and rotated clockwise about its center. `turn`:
  /// radians.
  virtual void draw(const std::shared_ptr<const graphics::Image>& image, const graphics::Rect& rect,
                    double alpha = 1.0, double turn = 0.0) = 0;

  /// Draws the view's 3D scene in front of the view's background if that is opaque, and the overlay
  /// scene in front of both. Where nothing is drawn, earlier drawing remains visible.
  virtual void draw(SceneView& view, const graphics::Rect& rect) = 0;

  /// Draws images of a sheet, in their order. Images that are no longer in the sheet are left out.
  /// The renderer's canvas draws all pieces with one draw call. It leaves out images that are not
  /// uploaded yet, see `graphics::Sheet::uploadBudget`, and requests another frame. The default
  /// implementation draws each piece as a separate image. Does nothing if `sheet` is null.
  virtual void draw(const std::shared_ptr<graphics::Sheet>& sheet,
                    std::span<const SheetPiece> pieces);
};

}  // namespace orivanta::view
