// The attribution of the venue, shown on the map.
#pragma once

#include <memory>
#include <string>

#include "Apps/Viewer/Widgets/Button.hpp"

namespace orivanta::viewer {

/// One line of small text. If the text is longer, opening the line shows all of it. The frame is at
/// least as high as a control; the line is at its lower end.
class AttributionLine : public Pressable {
 public:
  explicit AttributionLine(std::string text);

  bool isEmpty() const { return text_->text().empty(); }
  const std::string& text() const { return text_->text(); }
  bool isOpen() const { return isOpen_; }
  void setOpen(bool open) { isOpen_ = open; }

  /// Returns the size of the line within `room`. The caller places it at the lower right.
  graphics::Size arrange(graphics::Size room);
  void draw(view::Canvas& canvas) override;

 private:
  std::shared_ptr<Label> text_;
  bool isOpen_ = false;
  double paperHeight_ = 0;  // at the lower end of the frame
};

}  // namespace orivanta::viewer
