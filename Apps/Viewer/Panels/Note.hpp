// A short message that disappears after a while.
#pragma once

#include <memory>
#include <string>

#include "Apps/Viewer/Widgets/Label.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"

namespace orivanta::viewer {

/// Receives no touches.
class Note : public Panel {
 public:
  Note();

  void setText(std::string text) { text_->setText(std::move(text)); }
  const std::string& text() const { return text_->text(); }

  graphics::Size arrange(graphics::Size room);

 private:
  std::shared_ptr<Label> text_;
};

}  // namespace orivanta::viewer
