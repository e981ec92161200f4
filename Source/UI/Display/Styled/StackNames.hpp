// The names of stacked floors.
// Private header.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Platform/Graphics/Image.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/UI/Display/Framing.hpp"
#include "Source/UI/Display/Styled/StackContents.hpp"

namespace orivanta {

class FloorProjection;

/// Draws the names in a column at the left of the floors, or at the edge of the view if there is no
/// room. They keep a distance from each other. Used under transactions.
class StackNames {
 public:
  /// Where names can be.
  struct Room {
    graphics::Size view;  ///< points
    Insets covered;       ///< of the view
  };

  /// Returns the margins of the view in which the names and the attribution have room.
  static Insets margins(const StackedFloors& stack, const MapTheme& theme);

  /// Removes the names and their images.
  void clear();

  /// Removes the names; the images are kept.
  void hide() { drawn_.clear(); }

  /// Places the names for a frame. `share`: 0 if the floors lie in each other, 1 if they are
  /// stacked. `scale`: pixels per point.
  void arrange(const StackContents& contents, const FloorProjection& projection, const Room& room,
               double share, double scale);

  /// Draws the names where they were placed.
  void draw(view::Canvas& canvas, const StackContents& contents, double share) const;

  /// Returns the floor whose name is at a point of the last frame, or null.
  std::shared_ptr<Map> at(graphics::Point point) const;

  /// Returns the right edge of the column, or `otherwise` if there are no names.
  double rightEdge(double otherwise) const;

 private:
  struct Name {
    std::shared_ptr<Map> floor;  // null for a note
    double y = 0;
    graphics::Rect rect{};
    std::shared_ptr<const graphics::Image> image{};
  };

  struct Text {
    std::string text;
    bool isShown;  // the text is the name of the shown floor
    std::shared_ptr<const graphics::Image> image;
  };

  std::vector<Name> namesOf(const StackContents& contents, const FloorProjection& projection,
                            double share, double& left);
  void place(std::vector<Name>& names, const Room& room, double height, double left) const;
  std::shared_ptr<const graphics::Image> textImage(const std::string& text, bool isShown,
                                                   const MapTheme& theme);
  void drawName(view::Canvas& canvas, const Name& name, const StackContents& contents,
                double share) const;

  std::vector<Name> drawn_;
  double scale_ = 0;  // of the images
  std::vector<Text> texts_;
};

}  // namespace orivanta
