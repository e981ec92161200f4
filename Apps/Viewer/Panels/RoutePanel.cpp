#include "Apps/Viewer/Panels/RoutePanel.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Apps/Viewer/ProfileChoices.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/UI/Display/MarkColors.hpp"

namespace orivanta::viewer {

namespace {

constexpr double stopHeight = 40;  // points
constexpr double stopsTop = 6;
constexpr double nameLeft = theme::padding + 20;
constexpr double buttonSide = 42;
constexpr double segmentsHeight = 36;
constexpr double summaryHeight = 34;
constexpr double gap = 8;

}  // namespace

// A line with the name of a stop. Stops in between have a button that removes them.
struct RoutePanel::StopLine {
  std::shared_ptr<Pressable> area;
  std::shared_ptr<Label> name;
  std::shared_ptr<Button> remove;  // null for the ends
};

RoutePanel::RoutePanel()
    : swap_(std::make_shared<Button>(ButtonLook::plain, "\u21C5", 20)),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 14)),
      profiles_(std::make_shared<Segments>()),
      routes_(std::make_shared<Segments>()),
      summary_(std::make_shared<Label>(LabelStyle{.bold = true, .lines = 6})),
      arrival_(std::make_shared<Label>(
          LabelStyle{.color = theme::faint, .alignment = Alignment::trailing})),
      offer_(std::make_shared<Button>(ButtonLook::tinted, "")),
      steps_(std::make_shared<StepList>()) {
  for (const std::shared_ptr<view::View>& part : std::initializer_list<std::shared_ptr<view::View>>{
           swap_, close_, profiles_, routes_, summary_, arrival_, offer_, steps_})
    addSubview(part);
  std::vector<std::string> titles;
  titles.reserve(std::size(profileChoices));
  for (const ProfileChoice& choice : profileChoices) titles.emplace_back(choice.title);
  profiles_->setTitles(titles);
  swap_->action = forward(swapped);
  close_->action = forward(closed);
  offer_->action = [this] {
    if (helpfulProfile_ && profileChosen) profileChosen(*helpfulProfile_);
  };
  const auto pass = [](const std::function<void(std::size_t)>& receiver) {
    return [&receiver](std::size_t index) {
      if (receiver) receiver(index);
    };
  };
  profiles_->chosen = pass(profileChosen);
  routes_->chosen = pass(routeChosen);
  steps_->chosen = pass(stepChosen);
}

RoutePanel::~RoutePanel() = default;

void RoutePanel::addStop(const std::optional<std::string>& name, const char* wish) {
  StopLine line{std::make_shared<Pressable>(),
                std::make_shared<Label>(LabelStyle{.color = name ? theme::ink : theme::faint},
                                        name.value_or(wish)),
                nullptr};
  line.area->addSubview(line.name);
  addSubview(line.area);
  stops_.push_back(std::move(line));
}

void RoutePanel::setStops(const StopNames& names) {
  for (const StopLine& line : stops_) {
    line.area->removeFromSuperview();
    if (line.remove) line.remove->removeFromSuperview();
  }
  stops_.clear();
  addStop(names.from, "Choose a start");
  for (const std::string& name : names.between) {
    addStop(name, "");
    stops_.back().remove = std::make_shared<Button>(ButtonLook::plain, "\u2212", 18);
    stops_.back().remove->action = [this, index = stops_.size() - 2] {
      if (stopRemoved) stopRemoved(index);
    };
    addSubview(stops_.back().remove);
  }
  addStop(names.to, "Choose a destination");
  stops_.front().area->action = forward(fromTapped);
  stops_.back().area->action = forward(toTapped);
  setProblem(names.from && names.to ? "" : "Tap a place or search for one", std::nullopt);
  summary_->setColor(theme::faint);
}

void RoutePanel::setPlanning() {
  setProblem("Planning the route", std::nullopt);
  summary_->setColor(theme::faint);
}

void RoutePanel::setProblem(const std::string& text, std::optional<std::size_t> helpfulProfile) {
  summary_->setText(text);
  summary_->setColor(theme::warning);
  arrival_->setText("");
  routes_->setTitles({});
  steps_->show(nullptr);
  helpfulProfile_ = helpfulProfile;
  if (helpfulProfile)
    offer_->setText(fmt::format("Try \u201C{}\u201D", profileChoices[*helpfulProfile].title));
}

void RoutePanel::setRoute(const GuidedPlan& plan, std::size_t index, const std::string& arrival) {
  const GuidedRoute& route = plan.routes[index];
  setProblem(route.summary, std::nullopt);
  summary_->setColor(theme::ink);
  arrival_->setText(arrival);
  std::vector<std::string> titles;
  for (const GuidedRoute& each : plan.routes) titles.push_back(each.summary);
  if (titles.size() > 1) routes_->setTitles(titles);
  routes_->setChosen(index);
  steps_->show(&route);
}

double RoutePanel::arrangeStops(double width) {
  const double right = width - buttonSide - 4;
  double top = stopsTop;
  for (const StopLine& line : stops_) {
    const graphics::Rect name{{nameLeft, top}, {right - nameLeft - 6, stopHeight}};
    line.area->setFrame(name);
    line.name->setFrame({{0, 0}, name.size});
    if (line.remove) line.remove->setFrame({{right, top - 1}, {buttonSide, buttonSide}});
    top += stopHeight;
  }
  close_->setFrame({{right, 4}, {buttonSide, buttonSide}});
  swap_->setFrame({{right, top - stopHeight}, {buttonSide, buttonSide}});
  return top + 6;
}

// Arranges the summary and what belongs to it. Returns the lower edge.
double RoutePanel::arrangeSummary(double width, double top) {
  const double inner = width - 2 * theme::padding;
  const double arrivalWidth = arrival_->text().empty() ? 0 : arrival_->fitting(inner).width + 4;
  const double textWidth = inner - arrivalWidth;
  const double height = std::max(summaryHeight, summary_->fitting(textWidth).height + gap);
  summary_->setFrame({{theme::padding, top}, {textWidth, height}});
  arrival_->setFrame({{width - theme::padding - arrivalWidth, top}, {arrivalWidth, height}});
  top += height;
  routes_->setHidden(routes_->size() < 2 || isWalking_);
  if (!routes_->isHidden()) {
    routes_->setFrame({{theme::padding, top}, {inner, segmentsHeight}});
    routes_->arrange();
    top += segmentsHeight + gap;
  }
  offer_->setHidden(!helpfulProfile_);
  if (helpfulProfile_) {
    offer_->setFrame({{theme::padding, top + 4}, {inner, theme::controlSize}});
    top += theme::controlSize + gap + 4;
  }
  return top;
}

double RoutePanel::arrange(double width, double mostHeight) {
  double top = arrangeStops(width) + gap;
  profiles_->setHidden(isWalking_);
  if (!isWalking_) {
    profiles_->setFrame({{theme::padding, top}, {width - 2 * theme::padding, segmentsHeight}});
    profiles_->arrange();
    top += segmentsHeight + 4;
  }
  top = arrangeSummary(width, top);
  const double height = steps_->heightFor(width, mostHeight - top - gap);
  steps_->setFrame({{0, top}, {width, height}});
  steps_->arrange();
  return top + height + gap;
}

void RoutePanel::draw(view::Canvas& canvas) {
  Panel::draw(canvas);
  if (stops_.empty()) return;
  const double width = bounds().size.width;
  const double left = theme::padding;
  const double first = stopsTop + stopHeight / 2;
  const auto gaps = static_cast<double>(stops_.size() - 1);
  canvas.fill({{left + 4, first}, {2, stopHeight * gaps}}, theme::hairline);
  for (std::size_t i = 0; i < stops_.size(); ++i) {
    const double middle = first + stopHeight * static_cast<double>(i);
    const bool isLast = i + 1 == stops_.size();
    const graphics::Color color =
        i == 0 ? markColors::start : (isLast ? markColors::end : theme::amber);
    canvas.fill({{left, middle - 5}, {10, 10}}, color, 5);
    if (!isLast)
      canvas.fill({{nameLeft, middle + stopHeight / 2}, {width - nameLeft - 52, 1}},
                  theme::hairline);
  }
  const double end = stopsTop + stopHeight * (gaps + 1) + 6;
  canvas.fill({{left, end}, {width - 2 * left, 1}}, theme::hairline);
}

}  // namespace orivanta::viewer
