#include "Apps/Viewer/Panels/StepList.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "Apps/Viewer/Panels/StepIcon.hpp"
#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double tileSide = 34;  // points; behind the icon
constexpr double iconSide = 22;
constexpr double tileGap = 12;    // between the tile and the text
constexpr double textMargin = 9;  // above the text, and below it
constexpr double leastHeight = 48;

theme::Tone colorOf(guidance::Step::Kind kind, bool isFirst) {
  if (kind == guidance::Step::Kind::arrive) return theme::end;
  return isFirst ? theme::start : theme::accent;
}

// The side of the tile, which grows half as much as the text.
double tile() { return tileSide * theme::control() / theme::controlSize; }

}  // namespace

class StepList::StepRow : public Row {
 public:
  StepRow(Icon icon, theme::Tone color, const std::string& text)
      : Row(leastHeight),
        icon_(std::make_shared<IconView>(std::move(icon), color)),
        color_(color),
        text_(std::make_shared<Label>(LabelStyle{.lines = 0}, text)) {
    addSubview(icon_);
    addSubview(text_);
  }

  double heightFor(double width) override {
    return std::max({leastHeight, text_->fitting(textWidth(width)).height + 2 * textMargin,
                     tile() + 2 * textMargin});
  }

  void draw(view::Canvas& canvas) override {
    Row::draw(canvas);
    const graphics::Size size = bounds().size;
    const double side = tile();
    const double icon = side * iconSide / tileSide;
    const double top = std::min((size.height - side) / 2, textMargin);
    const double inset = (side - icon) / 2;
    canvas.fill(directed(*this, {{theme::padding, top}, {side, side}}),
                isMarked() ? color_ : theme::accentTint, 9);
    icon_->setColor(isMarked() ? theme::paper : color_);
    icon_->setFrame(directed(*this, {{theme::padding + inset, top + inset}, {icon, icon}}));
    const double width = textWidth(size.width);
    text_->setFrame(
        directed(*this, {{size.width - theme::padding - width, 0}, {width, size.height}}));
  }

 private:
  static double textWidth(double width) {
    return std::max(1.0, width - 2 * theme::padding - tile() - tileGap);
  }

  std::shared_ptr<IconView> icon_;
  theme::Tone color_;
  std::shared_ptr<Label> text_;
};

StepList::StepList() : list_(std::make_shared<List>()) { addSubview(list_); }

void StepList::show(const GuidedRoute* route) {
  rows_.clear();
  list_->setRows({});
  if (route == nullptr) return;
  for (std::size_t i = 0; i < route->steps.size(); ++i) {
    const guidance::Step& step = route->steps[i];
    rows_.push_back(std::make_shared<StepRow>(stepIcon(route->itinerary, step),
                                              colorOf(step.kind, i == 0), route->texts[i]));
    rows_.back()->action = [this, i] {
      if (chosen) chosen(i);
    };
  }
  list_->setRows({rows_.begin(), rows_.end()});
}

void StepList::setCurrent(std::optional<std::size_t> index) {
  if (list_->marked() != index) list_->mark(index);
}

double StepList::heightFor(double width, double mostHeight) {
  return list_->heightWithin(mostHeight, width);
}

void StepList::arrange() {
  list_->setFrame(bounds());
  list_->arrange();
  const graphics::Size size = bounds().size;
  const bool isResized = !(std::exchange(size_, size) == size);
  if (isResized && list_->marked()) list_->reveal(*list_->marked());
}

}  // namespace orivanta::viewer
