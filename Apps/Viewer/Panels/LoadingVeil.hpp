// Covers the window until there is a map: the logo, an activity indicator and the progress.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Platform/View/ActivityIndicatorView.hpp"
#include "Platform/View/ImageView.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

class LoadingVeil : public view::View {
 public:
  explicit LoadingVeil(const guidance::InterfaceTexts& texts);

  /// If busy, shows the activity indicator and the progress bar, otherwise only the logo.
  void setBusy(bool busy);
  bool isBusy() const { return busy_; }
  void setTitle(const std::string& title) { title_->setText(title); }

  /// `share` is from 0 to 1.
  void setProgress(double share, const std::string& text);

  /// Shows a button that cancels the wait, or no button if the function is null.
  void setWayBack(std::function<void()> wayBack);

  void arrange(graphics::Size size);
  void draw(view::Canvas& canvas) override;

 private:
  std::shared_ptr<view::ImageView> logo_;
  std::shared_ptr<view::ActivityIndicatorView> wheel_;
  std::shared_ptr<Label> title_;
  std::shared_ptr<Label> text_;
  std::shared_ptr<Button> back_;
  graphics::Rect bar_;
  double share_ = 0;
  bool busy_ = true;
};

}  // namespace orivanta::viewer
