#include "Apps/Viewer/Panels/RoutePanel.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "Apps/Viewer/ProfileChoices.hpp"
#include "Apps/Viewer/Widgets/Direction.hpp"

namespace orivanta::viewer {

namespace {

constexpr double gap = 8;                // points
constexpr double mostRemarkShare = 0.5;  // of the width beside the summary

Icon playIcon() {
  return {{{{8, 5}, {18, 12}, {8, 19}, {8, 5}}, {{11, 10}, {11, 14}, {14, 12}, {11, 10}}}, 3.4};
}
Icon pauseIcon() { return {{{{8, 5}, {8, 19}}, {{16, 5}, {16, 19}}}, 4}; }

// The height of the instructions from which the panel is complete: about two of them.
double leastSteps() { return 2 * theme::withText(48); }

std::vector<std::string> profileTitles(const guidance::InterfaceTexts& texts) {
  std::vector<std::string> titles;
  titles.reserve(profileChoices.size());
  for (const ProfileChoice& choice : profileChoices) titles.push_back(texts.text(choice.titleKey));
  return titles;
}

}  // namespace

RoutePanel::RoutePanel(const guidance::InterfaceTexts& texts)
    : texts_(texts),
      stops_(std::make_shared<StopLines>(texts)),
      profiles_(std::make_shared<Segments>()),
      routes_(std::make_shared<Segments>()),
      summary_(std::make_shared<Label>(LabelStyle{.bold = true, .lines = 0})),
      remark_(std::make_shared<Label>(
          LabelStyle{.color = theme::faint, .alignment = Alignment::trailing, .lines = 0})),
      warning_(std::make_shared<Label>(
          LabelStyle{.size = theme::smallSize, .bold = true, .color = theme::warning, .lines = 0})),
      walkButton_(std::make_shared<IconButton>(playIcon())),
      offer_(std::make_shared<Button>(ButtonLook::tinted, "")),
      steps_(std::make_shared<StepList>()) {
  for (const std::shared_ptr<view::View>& part : std::initializer_list<std::shared_ptr<view::View>>{
           stops_, profiles_, routes_, summary_, remark_, warning_, walkButton_, offer_, steps_})
    addSubview(part);
  profiles_->setTitles(profileTitles(texts));
  walkButton_->action = forward(walkTapped);
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

void RoutePanel::setStops(const StopNames& names) {
  stops_->show(names);
  setProblem(names.from && names.to ? "" : texts_.text("interface.route.hint"), std::nullopt);
  summary_->setColor(theme::faint);
}

void RoutePanel::setPlanning() {
  setProblem(texts_.text("interface.route.planning"), std::nullopt);
  summary_->setColor(theme::faint);
}

void RoutePanel::setProblem(const std::string& text, std::optional<std::size_t> helpfulProfile) {
  summary_->setText(text);
  summary_->setColor(theme::warning);
  remark_->setText("");
  warning_->setText("");
  routes_->setTitles({});
  steps_->show(nullptr);
  helpfulProfile_ = helpfulProfile;
  if (!helpfulProfile) return;
  const std::string profile = texts_.text(profileChoices[*helpfulProfile].titleKey);
  offer_->setText(texts_.text("interface.route.try", {{"profile", profile}}));
}

void RoutePanel::setRoute(const GuidedPlan& plan, std::size_t index, const std::string& remark) {
  const GuidedRoute& route = plan.routes[index];
  setProblem(route.summary, std::nullopt);
  summary_->setColor(theme::ink);
  remark_->setText(remark);
  warning_->setText(route.warning);
  std::vector<std::string> titles;
  for (const GuidedRoute& each : plan.routes) titles.push_back(each.title);
  if (titles.size() > 1) routes_->setTitles(titles);
  routes_->setChosen(index);
  steps_->show(&route);
}

void RoutePanel::setWalk(WalkState state) {
  walk_ = state;
  walkButton_->setIcon(state == WalkState::walking ? pauseIcon() : playIcon());
}

// Arranges the summary, the remark, the button for a walk and the warning. Returns the lower edge.
double RoutePanel::arrangeSummary(double width, double top) {
  const double inner = width - 2 * theme::padding;
  walkButton_->setHidden(!steps_->hasSteps());
  const double button = walkButton_->isHidden() ? 0 : theme::control();
  const double most = mostRemarkShare * (inner - button);
  const double remark = remark_->text().empty() ? 0 : remark_->fitting(most).width + 8;
  const double text = inner - remark - button - (button > 0 ? gap : 0);
  const double height = std::max({theme::control(), summary_->fitting(text).height + gap,
                                  remark_->fitting(std::max(1.0, remark)).height + gap});
  summary_->setFrame({{theme::padding, top}, {text, height}});
  remark_->setFrame({{theme::padding + text, top}, {remark, height}});
  walkButton_->setFrame(
      {{width - theme::padding - button + 4, top + (height - button) / 2}, {button, button}});
  const double warned = warning_->text().empty() ? 0 : warning_->fitting(inner).height + gap;
  warning_->setFrame({{theme::padding, top + height}, {inner, warned}});
  return top + height + warned;
}

// Arranges the choice of routes, and the profile that may help. Returns the lower edge.
double RoutePanel::arrangeChoices(double width, double top) {
  const double inner = width - 2 * theme::padding;
  routes_->setHidden(routes_->size() < 2 || walk_ != WalkState::none || leftOut_ > 0);
  if (!routes_->isHidden()) {
    const double height = routes_->arrange(inner);
    routes_->setFrame({{theme::padding, top}, {inner, height}});
    top += height + gap;
  }
  offer_->setHidden(!helpfulProfile_);
  if (helpfulProfile_) {
    const double height = offer_->heightFor(inner);
    offer_->setFrame({{theme::padding, top + 4}, {inner, height}});
    top += height + gap + 4;
  }
  return top;
}

double RoutePanel::arrange(double width, double mostHeight) {
  leftOut_ = 0;
  double height = arrangeParts(width, mostHeight);
  const double least =
      steps_->hasSteps() ? std::min(steps_->heightFor(width, 1e9), leastSteps()) : 0;
  const auto isTight = [&] { return mostHeight - steps_->frame().minY() - gap < least; };
  while (least > 0 && leftOut_ < 2 && isTight()) {
    ++leftOut_;
    height = arrangeParts(width, mostHeight);
  }
  directChildren(*this, width);
  return height;
}

double RoutePanel::arrangeParts(double width, double mostHeight) {
  stops_->setHidden(leftOut_ > 1);
  double top = gap;
  if (leftOut_ < 2) {
    const double stops = stops_->arrange(width);
    stops_->setFrame({{0, 0}, {width, stops}});
    top += stops;
  }
  profiles_->setHidden(walk_ != WalkState::none || leftOut_ > 1);
  if (!profiles_->isHidden()) {
    const double inner = width - 2 * theme::padding;
    const double height = profiles_->arrange(inner);
    profiles_->setFrame({{theme::padding, top}, {inner, height}});
    top += height + gap;
  }
  top = arrangeChoices(width, arrangeSummary(width, top));
  const double height = std::max(0.0, steps_->heightFor(width, mostHeight - top - gap));
  steps_->setFrame({{0, top}, {width, height}});
  steps_->arrange();
  return top + height + gap;
}

}  // namespace orivanta::viewer
