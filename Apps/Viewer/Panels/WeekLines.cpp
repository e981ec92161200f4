#include "Apps/Viewer/Panels/WeekLines.hpp"

#include <algorithm>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Apps/Viewer/Widgets/Panel.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double firstHeight = theme::controlSize;
constexpr double arrowWidth = 20;
constexpr double inset = 10;
constexpr double dayShare = 0.38;  // of the width
constexpr double lineGap = 5;
constexpr double radius = 10;

}  // namespace

WeekLines::WeekLines(const guidance::InterfaceTexts& texts)
    : texts_(texts),
      today_(std::make_shared<Label>(LabelStyle{.size = theme::smallSize, .lines = 0})),
      arrow_(std::make_shared<Label>(LabelStyle{
          .size = 14, .color = theme::accent, .alignment = Alignment::trailing, .isSign = true})) {
  addSubview(today_);
  addSubview(arrow_);
}

void WeekLines::show(const std::vector<DayHours>& week, const std::string& text) {
  for (const Line& line : lines_)
    for (const auto& label : {line.day, line.hours}) label->removeFromSuperview();
  lines_.clear();
  lines_.reserve(week.size());
  setUserInteractionEnabled(!week.empty());
  today_->setText(week.empty() ? text
                               : texts_.text("interface.hours.today",
                                             {{"hours", texts_.name(week.front().hours)}}));
  for (const DayHours& each : week) {
    const bool isToday = lines_.empty();
    lines_.push_back(
        {std::make_shared<Label>(LabelStyle{.size = theme::smallSize, .bold = isToday, .lines = 0},
                                 each.day),
         std::make_shared<Label>(LabelStyle{.size = theme::smallSize,
                                            .bold = isToday,
                                            .alignment = Alignment::trailing,
                                            .lines = 0},
                                 each.hours)});
    addSubview(lines_.back().day);
    addSubview(lines_.back().hours);
  }
}

double WeekLines::arrange(double width, std::size_t most) {
  if (today_->text().empty()) return 0;
  const double inner = width - 2 * inset;
  const double arrow = lines_.empty() ? 0 : arrowWidth;
  const double first = std::max(firstHeight, today_->fitting(inner - arrow).height + 2 * lineGap);
  today_->setFrame({{inset, 0}, {inner - arrow, first}});
  arrow_->setText(lines_.empty() ? "" : isOpen_ ? "\u25B4" : "\u25BE");
  arrow_->setFrame({{inset + inner - arrow, 0}, {arrow, first}});
  double top = first;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Line& line = lines_[i];
    const bool isShown = isOpen_ && i < most;
    line.day->setHidden(!isShown);
    line.hours->setHidden(!isShown);
    if (!isShown) continue;
    const double dayWidth = inner * dayShare;
    const double height =
        std::max(line.day->fitting(dayWidth).height, line.hours->fitting(inner - dayWidth).height);
    line.day->setFrame({{inset, top}, {dayWidth, height}});
    line.hours->setFrame({{inset + dayWidth, top}, {inner - dayWidth, height}});
    top += height + lineGap;
  }
  directChildren(*this, width);
  return top > first ? top + lineGap : first;
}

void WeekLines::draw(view::Canvas& canvas) {
  View::draw(canvas);
  drawControlGround(canvas, bounds(), isPressed(), radius);
}

}  // namespace orivanta::viewer
