#include "Apps/Viewer/Panels/StepList.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "Apps/Viewer/Panels/StepIcon.hpp"
#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/UI/Display/MarkColors.hpp"

namespace orivanta::viewer {

namespace {

constexpr double tileSide = 34;  // points; behind the icon
constexpr double iconSide = 22;
constexpr double textLeft = theme::padding + tileSide + 12;
constexpr double textMargin = 9;  // above the text, and below it
constexpr double leastHeight = 48;
constexpr int mostLines = 6;

graphics::Color colorOf(guidance::Step::Kind kind, bool isFirst) {
  if (kind == guidance::Step::Kind::arrive) return markColors::end;
  return isFirst ? markColors::start : theme::accent;
}

}  // namespace

class StepList::StepRow : public Row {
 public:
  StepRow(Icon icon, graphics::Color color, const std::string& text)
      : Row(leastHeight),
        icon_(std::make_shared<IconView>(std::move(icon), color)),
        color_(color),
        text_(std::make_shared<Label>(LabelStyle{.lines = mostLines}, text)) {
    addSubview(icon_);
    addSubview(text_);
  }

  void fit(double width) {
    const double text = text_->fitting(width - textLeft - theme::padding).height;
    setHeight(std::max(leastHeight, text + 2 * textMargin));
  }

  void draw(view::Canvas& canvas) override {
    Row::draw(canvas);
    const graphics::Size size = bounds().size;
    const double top = std::min((size.height - tileSide) / 2, textMargin);
    const double inset = (tileSide - iconSide) / 2;
    canvas.fill(directed(*this, {{theme::padding, top}, {tileSide, tileSide}}),
                isMarked() ? color_ : theme::accentTint, 9);
    icon_->setColor(isMarked() ? theme::paper : color_);
    icon_->setFrame(directed(*this, {{theme::padding + inset, top + inset}, {iconSide, iconSide}}));
    text_->setFrame(
        directed(*this, {{textLeft, 0}, {size.width - textLeft - theme::padding, size.height}}));
  }

 private:
  std::shared_ptr<IconView> icon_;
  graphics::Color color_;
  std::shared_ptr<Label> text_;
};

StepList::StepList() : list_(std::make_shared<List>()) { addSubview(list_); }

void StepList::show(const GuidedRoute* route) {
  rows_.clear();
  width_ = 0;
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
}

void StepList::setCurrent(std::optional<std::size_t> index) {
  if (list_->marked() != index) list_->mark(index);
}

double StepList::heightFor(double width, double mostHeight) {
  if (width != width_) {
    width_ = width;
    const auto current = list_->marked();
    for (const auto& row : rows_) row->fit(width);
    list_->setRows({rows_.begin(), rows_.end()});
    list_->setFrame({});
    markedAnew_ = current;
  }
  return list_->heightWithin(mostHeight);
}

void StepList::arrange() {
  list_->setFrame(bounds());
  list_->arrange();
  if (const auto current = std::exchange(markedAnew_, std::nullopt)) list_->mark(current);
}

}  // namespace orivanta::viewer
