#include "Apps/Viewer/Panels/RoutePanel.hpp"

#include <utility>

#include "Platform/View/Canvas.hpp"
#include "Source/Location.hpp"
#include "Source/UI/Display/MarkColors.hpp"

namespace orivanta::viewer {

namespace {

constexpr double endHeight = 40;  // points
constexpr double headHeight = 2 * endHeight + 12;
constexpr double summaryHeight = 30;
constexpr double switchHeight = 40;

graphics::Color colorOf(StepKind kind) {
  if (kind == StepKind::departure) return markColors::start;
  return kind == StepKind::arrival ? markColors::end : theme::accent;
}

std::shared_ptr<Pressable> makeEnd(const std::shared_ptr<Label>& label) {
  auto end = std::make_shared<Pressable>();
  end->addSubview(label);
  return end;
}

}  // namespace

RoutePanel::RoutePanel()
    : fromName_(std::make_shared<Label>()),
      toName_(std::make_shared<Label>()),
      swap_(std::make_shared<Button>(ButtonLook::plain, "\u21C5", 20)),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 14)),
      summary_(std::make_shared<Label>(LabelStyle{.bold = true})),
      accessible_(std::make_shared<Switch>("Step-free route")),
      steps_(std::make_shared<List>()) {
  from_ = makeEnd(fromName_);
  to_ = makeEnd(toName_);
  for (const std::shared_ptr<view::View>& part : std::initializer_list<std::shared_ptr<view::View>>{
           from_, to_, swap_, close_, summary_, accessible_, steps_})
    addSubview(part);
  from_->action = forward(fromTapped);
  to_->action = forward(toTapped);
  swap_->action = forward(swapped);
  close_->action = forward(closed);
  accessible_->action = [this] {
    accessible_->setOn(!accessible_->isOn());
    if (accessibleChanged) accessibleChanged(accessible_->isOn());
  };
}

void RoutePanel::showEnd(Label& label, const Location* place, const char* wish) {
  label.setText(place != nullptr ? place->name.value_or("") : wish);
  label.setColor(place != nullptr ? theme::ink : theme::faint);
}

void RoutePanel::setEnds(const Location* from, const Location* to) {
  showEnd(*fromName_, from, "Choose a start");
  showEnd(*toName_, to, "Choose a destination");
  summary_->setText(from == nullptr || to == nullptr ? "Tap a place or search for one" : "");
  summary_->setColor(theme::faint);
  steps_->setRows({});
  route_.reset();
}

void RoutePanel::setRoute(const std::optional<PlannedRoute>& route) {
  route_ = route;
  summary_->setColor(route ? theme::ink : theme::warning);
  if (route)
    summary_->setText(route->summary);
  else
    summary_->setText(accessible_->isOn() ? "No step-free route between these places"
                                          : "No route between these places");
  std::vector<std::shared_ptr<Row>> rows;
  if (route_)
    for (std::size_t i = 0; i < route_->steps.size(); ++i) {
      const RouteStep& step = route_->steps[i];
      rows.push_back(std::make_shared<Row>(RowText{
          .title = step.text, .detail = step.detail, .trailing = "", .dot = colorOf(step.kind)}));
      rows.back()->action = [this, i] {
        if (stepChosen && route_) stepChosen(route_->steps[i]);
      };
    }
  steps_->setRows(std::move(rows));
}

double RoutePanel::arrange(double width, double mostHeight) {
  constexpr double padding = theme::padding;
  const double endWidth = width - padding - 20 - 52;
  from_->setFrame({{padding + 20, 6}, {endWidth, endHeight}});
  to_->setFrame({{padding + 20, 6 + endHeight}, {endWidth, endHeight}});
  for (const auto& label : {fromName_, toName_}) label->setFrame({{0, 0}, {endWidth, endHeight}});
  close_->setFrame({{width - 46, 4}, {42, 42}});
  swap_->setFrame({{width - 46, 6 + endHeight}, {42, 42}});
  double top = headHeight + 6;
  summary_->setFrame({{padding, top}, {width - 2 * padding, summaryHeight}});
  top += summaryHeight;
  accessible_->setFrame({{padding, top}, {width - 2 * padding, switchHeight}});
  top += switchHeight + 4;
  const double height = steps_->heightWithin(mostHeight - top - 8);
  steps_->setFrame({{0, top}, {width, height}});
  steps_->arrange();
  return top + height + 8;
}

void RoutePanel::draw(view::Canvas& canvas) {
  Panel::draw(canvas);
  const double width = bounds().size.width;
  const double left = theme::padding;
  const double first = 6 + endHeight / 2;
  canvas.fill({{left + 4, first}, {2, endHeight}}, theme::hairline);
  canvas.fill({{left, first - 5}, {10, 10}}, markColors::start, 5);
  canvas.fill({{left, first + endHeight - 5}, {10, 10}}, markColors::end, 5);
  canvas.fill({{left + 20, 6 + endHeight}, {width - left - 20 - 52, 1}}, theme::hairline);
  canvas.fill({{left, headHeight}, {width - 2 * left, 1}}, theme::hairline);
}

}  // namespace orivanta::viewer
