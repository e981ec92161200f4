#include "Apps/Viewer/Panels/StopLines.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double firstTop = 4;  // points
constexpr double edge = 10;     // above a name, and below it
constexpr double dotMiddle = theme::padding + 5;
constexpr double nameLeft = theme::padding + 20;
constexpr double dotSide = 10;
constexpr double numberSide = 18;
constexpr double mostNumberSide = 34;

}  // namespace

struct StopLines::Line {
  std::shared_ptr<Pressable> area;
  std::shared_ptr<Label> name;
  std::shared_ptr<Label> number;   // null for the ends
  std::shared_ptr<Button> remove;  // likewise
  double top = 0;
  double height = 0;
};

StopLines::StopLines(const guidance::InterfaceTexts& texts)
    : texts_(texts),
      swap_(std::make_shared<Button>(ButtonLook::plain, "\u21C5", 20)),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 17)) {
  addSubview(swap_);
  addSubview(close_);
  swap_->action = forward(swapped);
  close_->action = forward(closed);
}

StopLines::~StopLines() = default;

void StopLines::add(const std::optional<std::string>& name, const char* wishKey) {
  Line line{
      std::make_shared<Pressable>(),
      std::make_shared<Label>(LabelStyle{.color = name ? theme::ink : theme::faint, .lines = 0},
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
  const double side = theme::control();
  const double right = width - side - 4;
  double top = firstTop;
  for (Line& line : lines_) {
    const double nameWidth = std::max(1.0, right - nameLeft - 6);
    line.top = top;
    line.height = std::max(side, line.name->fitting(nameWidth).height + 2 * edge);
    line.area->setFrame({{nameLeft, top}, {nameWidth, line.height}});
    line.name->setFrame({{0, 0}, {nameWidth, line.height}});
    const double middle = top + (line.height - side) / 2;
    if (line.remove) line.remove->setFrame({{right, middle}, {side, side}});
    if (line.number)
      line.number->setFrame({{dotMiddle - numberSide, top}, {2 * numberSide, line.height}});
    top += line.height;
  }
  close_->setFrame({{right, firstTop}, {side, side}});
  swap_->setFrame({{right, top - side}, {side, side}});
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
  const auto middleOf = [](const Line& line) { return line.top + line.height / 2; };
  const double first = middleOf(lines_.front());
  fill({{dotMiddle - 1, first}, {2, middleOf(lines_.back()) - first}}, theme::border, 0);
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Line& line = lines_[i];
    const double middle = middleOf(line);
    const bool isLast = i + 1 == lines_.size();
    const theme::Tone color = i == 0 ? theme::start : (isLast ? theme::end : theme::stop);
    const double side =
        line.number ? std::min(theme::withText(numberSide), mostNumberSide) : dotSide;
    fill({{dotMiddle - side / 2, middle - side / 2}, {side, side}}, color, side / 2);
    if (!isLast)
      fill({{nameLeft, line.top + line.height}, {width - nameLeft - theme::control() - 10, 1}},
           theme::hairline, 0);
  }
  fill({{left, bounds().size.height - 1}, {width - 2 * left, 1}}, theme::hairline, 0);
}

}  // namespace orivanta::viewer
