// Something went wrong, and what can be done about it.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Apps/Viewer/VenueSource.hpp"
#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"

namespace orivanta::viewer {

class MessagePanel : public Panel {
 public:
  MessagePanel();

  std::function<void()> retried;
  std::function<void()> dismissed;  ///< the other way out; without one it is not offered

  /// `otherWay`: what the second button says.
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
