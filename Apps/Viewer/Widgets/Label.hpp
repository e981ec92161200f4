// A text on the screen.
#pragma once

#include <memory>
#include <string>

#include "Apps/Viewer/Theme.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Graphics/Text.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::viewer {

/// Where a text is in its frame. It leads where lines of the interface begin.
enum class Alignment { leading, center, trailing };

struct LabelStyle {
  double size = theme::textSize;  ///< points, for the usual size of text
  bool bold = false;
  theme::Paint color = theme::ink;
  Alignment alignment = Alignment::leading;
  int lines = 1;        ///< at most; 0 for no limit
  bool isSign = false;  ///< a symbol, which grows like controls do and not like text
};

/// Centers the text vertically. Text that does not fit ends in an ellipsis. Text of several lines
/// is smaller if one of its words would be broken. Supports all scripts.
/// Receives no touches. The image of the text is cached until the label or the look changes.
class Label : public view::View {
 public:
  explicit Label(LabelStyle style = {}, std::string text = "");

  const std::string& text() const { return text_; }
  void setText(std::string text);
  void setSize(double points);
  void setColor(theme::Paint color);
  void setLines(int most);

  /// Returns the size of the text if its width is limited to `width`.
  graphics::Size fitting(double width);

  /// Returns whether a part of the text is not visible because the frame is too small or because
  /// the text has too many lines.
  bool isCut() const;

  void draw(view::Canvas& canvas) override;

 private:
  graphics::TextStyle textStyle(double width) const;
  void fitWord(graphics::TextStyle& style) const;
  void forgetPicture();
  const std::shared_ptr<const graphics::Image>& picture(double width, double scale);

  LabelStyle style_;
  std::string text_;
  std::shared_ptr<const graphics::Image> picture_;
  double pictureWidth_ = -1;  // of the cached image; below 0 if it is outdated
  double pictureScale_ = 1;
  graphics::Color pictureColor_;
  unsigned pictureLook_ = 0;  // see `theme::generation`
  double fittingRoom_ = -1;   // the latest argument of `fitting`; below 0 if it is outdated
  double fittingWidth_ = 0;   // the width that it returned
};

}  // namespace orivanta::viewer
