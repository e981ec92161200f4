#include "Apps/Viewer/Panels/FloorSwitch.hpp"

#include <algorithm>
#include <utility>

#include "Platform/View/ActivityIndicatorView.hpp"
#include "Platform/View/Canvas.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Map.hpp"

namespace orivanta::viewer {

namespace {

constexpr double inset = 4;  // points
constexpr double dotSide = 9;
constexpr double dotBorder = 1.5;
constexpr double smallestSize = 7;  // of the letters of a long name
constexpr double anyWidth = 1000;

bool canBeShown(FloorState state) {
  return state != FloorState::failed && state != FloorState::withoutModel;
}

}  // namespace

class FloorSwitch::Cell : public Row {
 public:
  explicit Cell(std::shared_ptr<Map> shownFloor)
      : Row(theme::controlSize),
        floor(std::move(shownFloor)),
        label_(std::make_shared<Label>(LabelStyle{.bold = true, .alignment = Alignment::center},
                                       floorLabel(*floor))) {
    addSubview(label_);
    addSubview(wheel_);
    wheel_->setStyle(view::ActivityIndicatorStyle::gray);
  }

  double heightFor(double) override { return theme::control(); }

  // Uses the largest letters with which the name fits.
  void fit(double width) {
    double size = theme::textSize;
    label_->setSize(size);
    const double needed = label_->fitting(anyWidth).width;
    if (needed > width - 2) size = std::max(smallestSize, size * (width - 3) / needed);
    label_->setSize(size);
    wheel_->setColor(theme::accent);
  }

  void setAwaited(bool awaited) {
    label_->setHidden(awaited);
    if (awaited)
      wheel_->startAnimating();
    else
      wheel_->stopAnimating();
  }

  void draw(view::Canvas& canvas) override {
    const graphics::Size size = bounds().size;
    label_->setFrame({{1, 0}, {size.width - 2, size.height}});
    wheel_->setFrame(bounds());
    label_->setColor(isCurrent ? theme::paper
                               : (state == FloorState::ready ? theme::ink : theme::faint));
    if (isCurrent || isPressed())
      canvas.fill(bounds(), isCurrent ? theme::accent : theme::pressed, theme::radius - inset);
    if (!isOnRoute) return;
    const graphics::Rect dot{{size.width - dotSide - 3, 3}, {dotSide, dotSide}};
    canvas.fill({{dot.minX() - dotBorder, dot.minY() - dotBorder},
                 {dotSide + 2 * dotBorder, dotSide + 2 * dotBorder}},
                isCurrent ? theme::accent : theme::paper, dotSide);
    canvas.fill(dot, isCurrent ? theme::paper : theme::accent, dotSide / 2);
  }

  const std::shared_ptr<Map> floor;
  FloorState state = FloorState::waiting;
  bool isCurrent = false;
  bool isOnRoute = false;

 private:
  std::shared_ptr<Label> label_;
  std::shared_ptr<view::ActivityIndicatorView> wheel_ =
      std::make_shared<view::ActivityIndicatorView>();
};

FloorSwitch::FloorSwitch(std::vector<std::shared_ptr<Map>> floors) {
  for (const auto& floor : floorsFromTop(std::move(floors))) {
    const auto cell = std::make_shared<Cell>(floor);
    cell->action = [this, floor] {
      if (chosen) chosen(floor);
    };
    cells_.push_back(cell);
  }
  list_->setRows({cells_.begin(), cells_.end()});
  addSubview(list_);
}

void FloorSwitch::setState(const Map& floor, FloorState state) {
  for (const auto& cell : cells_)
    if (*cell->floor == floor) cell->state = state;
}

void FloorSwitch::setAwaited(const std::shared_ptr<Map>& floor) {
  for (const auto& cell : cells_) cell->setAwaited(cell->floor == floor);
}

void FloorSwitch::setCurrent(std::shared_ptr<Map> floor) {
  current_ = std::move(floor);
  for (const auto& cell : cells_) cell->isCurrent = cell->floor == current_;
  revealCurrent();
}

void FloorSwitch::revealCurrent() {
  for (std::size_t i = 0; i < cells_.size(); ++i)
    if (cells_[i]->isCurrent) list_->reveal(i);
}

void FloorSwitch::setRoute(const std::vector<std::shared_ptr<Map>>& floors) {
  for (const auto& cell : cells_)
    cell->isOnRoute = std::find(floors.begin(), floors.end(), cell->floor) != floors.end();
}

std::shared_ptr<Map> FloorSwitch::neighbor(int up) const {
  const auto at = std::find_if(cells_.begin(), cells_.end(),
                               [this](const auto& cell) { return cell->floor == current_; });
  auto index = at - cells_.begin();
  const auto count = static_cast<std::ptrdiff_t>(cells_.size());
  do index -= up;
  while (index >= 0 && index < count &&
         !canBeShown(cells_[static_cast<std::size_t>(index)]->state));
  if (index < 0 || index >= count) return nullptr;
  return cells_[static_cast<std::size_t>(index)]->floor;
}

graphics::Size FloorSwitch::arrange(double mostHeight) {
  const double side = theme::control();
  for (const auto& cell : cells_) cell->fit(side);
  const double most = std::max(side, mostHeight - 2 * inset);
  const double height = cells_.empty() ? 0 : list_->heightWithin(most, side);
  const bool hasChanged = height != list_->bounds().size.height;
  list_->setFrame({{inset, inset}, {side, height}});
  list_->arrange();
  if (hasChanged) revealCurrent();
  return {side + 2 * inset, height + 2 * inset};
}

}  // namespace orivanta::viewer
