#include "Apps/Viewer/Panels/LoadingVeil.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/UI/AssetLoader.hpp"

namespace orivanta::viewer {

namespace {

constexpr graphics::Size logoSize{210, 90};  // points
constexpr double barWidth = 220;
constexpr double barHeight = 4;
constexpr double barGap = 12;
constexpr double leastLine = 20;  // height, for the usual size of text
constexpr double lineGap = 6;

std::shared_ptr<const graphics::Image> logoImage() {
  return graphics::decodeImage(
      foundation::unwrap(orivanta::AssetLoader().bundle.bytes("MapLogo", "png")));
}

}  // namespace

LoadingVeil::LoadingVeil(const guidance::InterfaceTexts& texts)
    : logo_(std::make_shared<view::ImageView>(logoImage())),
      wheel_(std::make_shared<view::ActivityIndicatorView>()),
      title_(std::make_shared<Label>(LabelStyle{
          .size = theme::titleSize, .bold = true, .alignment = Alignment::center, .lines = 0})),
      text_(std::make_shared<Label>(
          LabelStyle{.color = theme::faint, .alignment = Alignment::center, .lines = 0})),
      back_(std::make_shared<Button>(ButtonLook::tinted, texts.text("interface.venues.all"))) {
  wheel_->setStyle(view::ActivityIndicatorStyle::whiteLarge);
  wheel_->startAnimating();
  logo_->setUserInteractionEnabled(false);
  for (const std::shared_ptr<view::View>& part :
       std::initializer_list<std::shared_ptr<view::View>>{logo_, wheel_, title_, text_, back_})
    addSubview(part);
}

void LoadingVeil::setBusy(bool busy) {
  busy_ = busy;
  if (busy)
    wheel_->startAnimating();
  else
    wheel_->stopAnimating();
  title_->setHidden(!busy);
  text_->setHidden(!busy);
  back_->setHidden(!busy || !back_->action);
}

void LoadingVeil::setProgress(double share, const std::string& text) {
  share_ = std::clamp(share, 0.0, 1.0);
  text_->setText(text);
}

void LoadingVeil::setWayBack(std::function<void()> wayBack) {
  back_->action = std::move(wayBack);
  back_->setHidden(!busy_ || !back_->action);
}

void LoadingVeil::arrange(graphics::Size size) {
  setBackgroundColor(theme::backdrop);
  wheel_->setColor(theme::accent);
  const double middle = size.width / 2;
  double top = std::max(20.0, size.height * 0.5 - 170);
  logo_->setFrame({{middle - logoSize.width / 2, top}, logoSize});
  top += logoSize.height + 34;
  wheel_->setFrame({{middle - 18.5, top}, {37, 37}});
  top += 37 + 22;
  const double width = size.width - 2 * theme::margin;
  for (const auto& label : {title_, text_}) {
    const double height = std::max(label->fitting(width).height, theme::withText(leastLine));
    label->setFrame({{theme::margin, top}, {width, height}});
    top += height + lineGap;
  }
  bar_ = {{middle - barWidth / 2, top + barGap}, {barWidth, barHeight}};
  const double backWidth = std::min(back_->fittingWidth(), width);
  back_->setFrame({{middle - backWidth / 2, bar_.maxY() + 2 * barGap},
                   {backWidth, back_->heightFor(backWidth)}});
}

void LoadingVeil::draw(view::Canvas& canvas) {
  View::draw(canvas);
  if (!busy_) return;
  canvas.fill(bar_, theme::border, barHeight / 2);
  if (share_ > 0)
    canvas.fill(directed(*this, {bar_.origin, {barWidth * share_, barHeight}}), theme::accent,
                barHeight / 2);
}

}  // namespace orivanta::viewer
