// Says that a stored venue is shown because there is no connection.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// A text and a button that tries again.
class ConnectionNote : public Panel {
 public:
  explicit ConnectionNote(const guidance::InterfaceTexts& texts);

  std::function<void()> retried;  ///< called by the button; if null, there is no button

  void setText(std::string text) { text_->setText(std::move(text)); }
  const std::string& text() const { return text_->text(); }
  const view::View& button() const { return *retry_; }

  graphics::Size arrange(graphics::Size room);

 private:
  std::shared_ptr<Label> text_;
  std::shared_ptr<Button> retry_;
};

}  // namespace orivanta::viewer
