// The list of venues to choose from.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

class VenueList : public Panel {
 public:
  explicit VenueList(const guidance::InterfaceTexts& texts);

  std::function<void(const std::shared_ptr<Venue>&)> chosen;

  std::size_t size() const { return venues_.size(); }
  void show(const std::vector<std::shared_ptr<Venue>>& venues);

  void moveMark(int down) { list_->moveMark(down); }
  void chooseMarked();

  graphics::Size arrange(graphics::Size room);

 private:
  const bool isRightToLeft_;
  std::vector<std::shared_ptr<Venue>> venues_;
  std::shared_ptr<Label> title_;
  std::shared_ptr<List> list_;
};

}  // namespace orivanta::viewer
