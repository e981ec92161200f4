// Shows a problem and what the user can do about it.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Apps/Viewer/VenueSource.hpp"
#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

class MessagePanel : public Panel {
 public:
  explicit MessagePanel(const guidance::InterfaceTexts& texts);

  std::function<void()> retried;
  std::function<void()> dismissed;  ///< called by the second button; may be null

  /// `otherWay` is the text of the second button. If it is empty, there is no second button.
  void show(const Problem& problem, const std::string& otherWay = "");

  const std::string& title() const { return title_->text(); }

  graphics::Size arrange(graphics::Size room);

 private:
  std::shared_ptr<Label> title_;
  std::shared_ptr<Label> detail_;
  std::shared_ptr<Button> retry_;
  std::shared_ptr<Button> other_;
};

}  // namespace orivanta::viewer
