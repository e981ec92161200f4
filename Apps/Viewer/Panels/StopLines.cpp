#include "Apps/Viewer/Panels/StopLines.hpp"

#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/UI/Display/MarkColors.hpp"

namespace orivanta::viewer {

namespace {

constexpr double lineHeight = 40;  // points
constexpr double firstTop = 6;
constexpr double dotMiddle = theme::padding + 5;
constexpr double nameLeft = theme::padding + 20;
constexpr double buttonSide = 42;
constexpr double dotSide = 10;
constexpr double numberSide = 18;

}  // namespace

struct StopLines::Line {
  std::shared_ptr<Pressable> area;
  std::shared_ptr<Label> name;
  std::shared_ptr<Label> number;   // null for the ends
  std::shared_ptr<Button> remove;  // likewise
};

StopLines::StopLines(const guidance::InterfaceTexts& texts)
    : texts_(texts),
      swap_(std::make_shared<Button>(ButtonLook::plain, "\u21C5", 20)),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 14)) {
  addSubview(swap_);
  addSubview(close_);
  swap_->action = forward(swapped);
  close_->action = forward(closed);
}

StopLines::~StopLines() = default;

void StopLines::add(const std::optional<std::string>& name, const char* wishKey) {
  Line line{std::make_shared<Pressable>(),
            std::make_shared<Label>(LabelStyle{.color = name ? theme::ink : theme::faint},
                                    name ? *name : texts_.text(wishKey)),
            nullptr, nullptr};
  line.area->addSubview(line.name);
  addSubview(line.area);
  lines_.push_back(std::move(line));
}

void StopLines::show(const StopNames& names) {
  for (const Line& line : lines_) {
    line.area->removeFromSuperview();
    if (line.number) line.number->removeFromSuperview();
    if (line.remove) line.remove->removeFromSuperview();
  }
  lines_.clear();
  add(names.from, "interface.route.from");
  for (const std::string& name : names.between) {
    add(name, "");
    lines_.back().remove = std::make_shared<Button>(ButtonLook::plain, "\u2212", 18);
    lines_.back().remove->action = [this, index = lines_.size() - 2] {
      if (removed) removed(index);
    };
    addSubview(lines_.back().remove);
    lines_.back().number = std::make_shared<Label>(
        LabelStyle{.size = 11, .bold = true, .color = theme::paper, .alignment = Alignment::center},
        std::to_string(lines_.size() - 1));
    addSubview(lines_.back().number);
  }
  add(names.to, "interface.route.to");
  const auto choose = [this](RouteEnd end) {
    return [this, end] {
      if (chosen) chosen(end);
    };
  };
  lines_.front().area->action = choose(RouteEnd::start);
  lines_.back().area->action = choose(RouteEnd::destination);
}

double StopLines::arrange(double width) {
  const double right = width - buttonSide - 4;
  double top = firstTop;
  for (const Line& line : lines_) {
    const graphics::Rect name{{nameLeft, top}, {right - nameLeft - 6, lineHeight}};
    line.area->setFrame(name);
    line.name->setFrame({{0, 0}, name.size});
    if (line.remove) line.remove->setFrame({{right, top - 1}, {buttonSide, buttonSide}});
    if (line.number)
      line.number->setFrame({{dotMiddle - numberSide, top}, {2 * numberSide, lineHeight}});
    top += lineHeight;
  }
  close_->setFrame({{right, firstTop - 2}, {buttonSide, buttonSide}});
  swap_->setFrame({{right, top - lineHeight}, {buttonSide, buttonSide}});
  directChildren(*this, width);
  return top + firstTop + 1;
}

void StopLines::draw(view::Canvas& canvas) {
  View::draw(canvas);
  if (lines_.empty()) return;
  const auto fill = [&](graphics::Rect rect, graphics::Color color, double radius) {
    canvas.fill(directed(*this, rect), color, radius);
  };
  const double width = bounds().size.width;
  const double left = theme::padding;
  const double first = firstTop + lineHeight / 2;
  const auto gaps = static_cast<double>(lines_.size() - 1);
  fill({{dotMiddle - 1, first}, {2, lineHeight * gaps}}, theme::hairline, 0);
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const double middle = first + lineHeight * static_cast<double>(i);
    const bool isLast = i + 1 == lines_.size();
    const graphics::Color color =
        i == 0 ? markColors::start : (isLast ? markColors::end : markColors::place);
    const double side = lines_[i].number ? numberSide : dotSide;
    fill({{dotMiddle - side / 2, middle - side / 2}, {side, side}}, color, side / 2);
    if (!isLast)
      fill({{nameLeft, middle + lineHeight / 2}, {width - nameLeft - 52, 1}}, theme::hairline, 0);
  }
  fill({{left, bounds().size.height - 1}, {width - 2 * left, 1}}, theme::hairline, 0);
}

}  // namespace orivanta::viewer
