// A button with an icon.
#pragma once

#include <memory>
#include <utility>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Apps/Viewer/Widgets/Icon.hpp"

namespace orivanta::viewer {

/// Shows an icon on a disc.
class IconButton : public Pressable {
 public:
  explicit IconButton(Icon icon);

  void setIcon(Icon icon) { icon_->setIcon(std::move(icon)); }
  void draw(view::Canvas& canvas) override;

 private:
  std::shared_ptr<IconView> icon_;
};

}  // namespace orivanta::viewer
