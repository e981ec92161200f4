#include "Source/UI/Display/Styled/LabelPicture.hpp"

#include <array>
#include <tuple>

#include "Platform/Graphics/Drawing.hpp"
#include "Platform/Graphics/Text.hpp"

namespace orivanta {

namespace {

std::shared_ptr<const graphics::Image> makeName(const LabelPicture& name, const MapTheme& theme,
                                                double scale) {
  graphics::TextStyle style;
  style.fontFamily = theme.fontFamily;
  style.fontSize = name.size;
  style.color = theme.colors.text;
  style.outlineColor = theme.colors.halo;
  style.outlineWidth = theme.sizes.halo;
  style.wholeLines = true;
  return graphics::makeTextImage(name.text, style, scale);
}

std::shared_ptr<const graphics::Image> makeDot(const LabelPicture& dot, const MapTheme& theme,
                                               double scale) {
  const std::array<graphics::DrawingPart, 2> parts{
      {{"O0 0 2.5", theme.colors.iconSymbol}, {"O0 0 1.75", theme.disc(dot.kind)}}};
  return graphics::makeDrawingImage(parts, 5, dot.size, scale);
}

}  // namespace

bool LabelPicture::operator<(const LabelPicture& other) const {
  return std::tie(form, kind, state, size, text) <
         std::tie(other.form, other.kind, other.state, other.size, other.text);
}

std::shared_ptr<const graphics::Image> makeLabelImage(const LabelPicture& picture,
                                                      const MapTheme& theme, double scale) {
  switch (picture.form) {
    case LabelPicture::Form::name:
      return makeName(picture, theme, scale);
    case LabelPicture::Form::icon:
      return makeIconImage(picture.kind, theme, picture.size, scale, picture.state);
    case LabelPicture::Form::dot:
      return makeDot(picture, theme, scale);
    case LabelPicture::Form::here:
      return makeHereIconImage(theme, picture.size, scale);
  }
  return nullptr;
}

}  // namespace orivanta
