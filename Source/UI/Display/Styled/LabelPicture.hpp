// The images of names and symbols on a styled map.
// Private header.
#pragma once

#include <memory>
#include <string>

#include "Platform/Graphics/Image.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"
#include "Source/UI/Style/MapIcons.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// What the image of a label shows. Fields that its form does not use are ignored when it is drawn.
struct LabelPicture {
  /// The kinds of images.
  enum class Form {
    name,  ///< a text with a halo
    icon,  ///< the icon of a place
    dot,   ///< a disc with a ring
    here   ///< the icon of a visitor's own position
  };

  Form form = Form::name;               ///< what is drawn
  std::string text;                     ///< of a name; its lines are separated by line breaks
  double size = 0;                      ///< points: font size of a name, width of others
  PlaceKind kind = PlaceKind::other;    ///< of an icon or a dot
  IconState state = IconState::normal;  ///< of an icon

  bool operator<(const LabelPicture& other) const;
};

/// Draws the image. A name is as large as its lines, or larger if its halo lies outside of them.
/// Returns null if a name has no visible glyphs, or if the image would exceed the limits of
/// `graphics::Image`. `scale`: pixels per point. Any thread.
std::shared_ptr<const graphics::Image> makeLabelImage(const LabelPicture& picture,
                                                      const MapTheme& theme, double scale);

}  // namespace orivanta
