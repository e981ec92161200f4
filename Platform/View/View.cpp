#include "Platform/View/View.hpp"

#include <algorithm>
#include <atomic>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Guarded.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/GestureRecognizer.hpp"

namespace orivanta::view {

using graphics::Point;
using graphics::read;
using graphics::Rect;
using graphics::swapGuarded;
using graphics::Transaction;

namespace {

constexpr double leastVisibleAlpha = 0.01;

std::atomic<std::uint64_t> frameRequests = 0;  // calls of `setNeedsFrame`

Rect frameOf(const Coder& coder) {
  const auto number = [&](std::string_view key) { return coder.number(key).value_or(0.0); };
  return {{number("x"), number("y")}, {number("width"), number("height")}};
}

// The upper left corner in the coordinates of the root view.
Point cornerOf(const View& view) {
  Point corner;
  const View* at = &view;
  for (const View* above = at->superview(); above != nullptr; above = at->superview()) {
    const Rect frame = at->frame();
    corner.x += frame.minX();
    corner.y += frame.minY();
    at = above;
  }
  return corner;
}

template <class Handles, class Part>
auto placeOf(Handles& handles, const Part& part) {
  return std::find_if(handles.begin(), handles.end(),
                      [&](const auto& handle) { return handle.get() == &part; });
}

}  // namespace

View::View(Rect frame) { setFrame(frame); }

View::View(const Coder& coder) : View(frameOf(coder)) {}

View::~View() {
  const Transaction transaction;
  for (const auto& subview : subviews_) subview->superview_ = nullptr;
  for (const auto& recognizer : gestureRecognizers_) {
    recognizer->view_ = nullptr;
    recognizer->forgetFingers();
  }
}

Rect View::frame() const { return read(frame_); }

void View::setFrame(Rect frame) {
  frame.size = {std::max(0.0, frame.size.width), std::max(0.0, frame.size.height)};
  const Transaction transaction;
  if (frame == frame_) return;
  frame_ = frame;
  needsLayout_ = true;
  graphics::noteChange();
  if (superview_ != nullptr) superview_->needsLayout_ = true;
}

Rect View::bounds() const { return {{}, frame().size}; }

double View::alpha() const { return read(alpha_); }

void View::setAlpha(double alpha) {
  alpha = std::clamp(alpha, 0.0, 1.0);
  graphics::swapGuarded(alpha_, alpha);
}

std::optional<graphics::Color> View::backgroundColor() const { return read(backgroundColor_); }

void View::setBackgroundColor(std::optional<graphics::Color> color) {
  swapGuarded(backgroundColor_, color);
}

bool View::isHidden() const { return read(hidden_); }

void View::setHidden(bool hidden) { swapGuarded(hidden_, hidden); }

bool View::isUserInteractionEnabled() const { return read(userInteractionEnabled_); }

void View::setUserInteractionEnabled(bool enabled) {
  swapGuarded(userInteractionEnabled_, enabled);
}

View* View::superview() const { return read(superview_); }

std::vector<std::shared_ptr<View>> View::subviews() const { return read(subviews_); }

void View::addSubview(const std::shared_ptr<View>& subview) {
  std::shared_ptr<View> added = subview;  // `subview` may be in the list that it leaves
  if (!added) foundation::fatalError("a view cannot hold a child that is null");
  const Transaction transaction;
  for (const View* above = this; above != nullptr; above = above->superview_)
    if (above == added.get())
      foundation::fatalError("a view cannot become a child of itself or of one below it");
  if (added->superview_ == this) return bringSubviewToFront(*added);
  added->removeFromSuperview();
  added->superview_ = this;
  subviews_.push_back(std::move(added));
  needsLayout_ = true;
  graphics::noteChange();
}

void View::removeFromSuperview() {
  const std::shared_ptr<View> self =
      weak_from_this().lock();  // the parent may hold the last reference
  const Transaction transaction;
  if (superview_ != nullptr) superview_->detach(*this);
}

void View::detach(const View& child) {
  std::erase_if(constraints_, [&](const LayoutConstraint& constraint) {
    return constraint.first == &child || constraint.second == &child;
  });
  const auto place = placeOf(subviews_, child);
  (*place)->superview_ = nullptr;
  subviews_.erase(place);
  needsLayout_ = true;
  graphics::noteChange();
}

void View::bringSubviewToFront(const View& subview) {
  const Transaction transaction;
  const auto place = placeOf(subviews_, subview);
  if (place == subviews_.end() || place + 1 == subviews_.end()) return;
  std::rotate(place, place + 1, subviews_.end());
  graphics::noteChange();
}

bool View::translatesAutoresizingMaskIntoConstraints() const {
  return read(translatesAutoresizingMask_);
}

void View::setTranslatesAutoresizingMaskIntoConstraints(bool translates) {
  const Transaction transaction;
  translatesAutoresizingMask_ = translates;
  graphics::noteChange();
  if (superview_ != nullptr) superview_->needsLayout_ = true;
}

void View::addConstraint(const LayoutConstraint& constraint) {
  const Transaction transaction;
  const auto isOwn = [this](const View* view) {
    return view == this || (view != nullptr && view->superview_ == this);
  };
  if (!isOwn(constraint.first) || (constraint.second != nullptr && !isOwn(constraint.second)))
    foundation::fatalError(
        "a layout constraint may refer only to the view that holds it and to its children");
  constraints_.push_back(constraint);
  needsLayout_ = true;
  graphics::noteChange();
  if (superview_ != nullptr) superview_->needsLayout_ = true;
}

void View::addConstraints(std::span<const LayoutConstraint> constraints) {
  const Transaction transaction;
  for (const LayoutConstraint& constraint : constraints) addConstraint(constraint);
}

std::vector<LayoutConstraint> View::constraints() const { return read(constraints_); }

void View::layoutIfNeeded() {
  const Transaction transaction;
  if (needsLayout_) {
    solveLayout(*this);
    didLayOut();
  }
  needsLayout_ = false;
  for (const auto& subview : subviews_) subview->layoutIfNeeded();
}

void View::didLayOut() {}

void View::addGestureRecognizer(const std::shared_ptr<GestureRecognizer>& recognizer) {
  std::shared_ptr<GestureRecognizer> added = recognizer;  // a copy, as above
  if (!added) foundation::fatalError("a view cannot hold a gesture recognizer that is null");
  if (added->view_ != nullptr) added->view_->removeGestureRecognizer(*added);
  added->view_ = this;
  gestureRecognizers_.push_back(std::move(added));
}

void View::removeGestureRecognizer(const GestureRecognizer& recognizer) {
  const auto place = placeOf(gestureRecognizers_, recognizer);
  if (place == gestureRecognizers_.end()) return;
  const std::shared_ptr<GestureRecognizer> removed = *place;
  gestureRecognizers_.erase(place);
  removed->cancel();
  removed->view_ = nullptr;
}

void View::allowSimultaneous(SimultaneousRule rule) { simultaneousRule_ = std::move(rule); }

Point View::convert(Point point, const View& to) const {
  const Transaction transaction;
  const Point from = cornerOf(*this);
  const Point target = cornerOf(to);
  return {point.x + from.x - target.x, point.y + from.y - target.y};
}

std::shared_ptr<View> View::viewAt(Point point) {
  const Transaction transaction;
  if (hidden_ || alpha_ < leastVisibleAlpha || !userInteractionEnabled_) return nullptr;
  if (!bounds().contains(point)) return nullptr;
  for (auto subview = subviews_.rbegin(); subview != subviews_.rend(); ++subview) {
    const Point corner = (*subview)->frame_.origin;
    if (auto found = (*subview)->viewAt({point.x - corner.x, point.y - corner.y})) return found;
  }
  return shared_from_this();
}

void View::touchesBegan(std::span<const Touch> touches) {
  if (View* above = superview()) above->touchesBegan(touches);
}

void View::touchesMoved(std::span<const Touch> touches) {
  if (View* above = superview()) above->touchesMoved(touches);
}

void View::touchesEnded(std::span<const Touch> touches) {
  if (View* above = superview()) above->touchesEnded(touches);
}

void View::draw(Canvas& canvas) {
  if (const auto color = backgroundColor()) canvas.fill(bounds(), *color);
}

bool View::isAnimating() const {
  const Transaction transaction;
  return std::any_of(subviews_.begin(), subviews_.end(), [](const auto& subview) {
    return !subview->isHidden() && subview->isAnimating();
  });
}

bool View::needsFrame() const {
  const Transaction transaction;
  return drawnChange_ != graphics::changeCount() || drawnRequest_ != frameRequests ||
         isAnimating() || differsFromFrame();
}

void View::setNeedsFrame() {
  ++frameRequests;
  graphics::noteChange();
}

void View::frameBegins() { drawnRequest_ = frameRequests; }

void View::frameGathered() {
  drawnChange_ = graphics::changeCount();
  storeFrame();
}

bool View::differsFromFrame() const {
  return std::any_of(subviews_.begin(), subviews_.end(), [](const auto& subview) {
    return !subview->isHidden() && subview->differsFromFrame();
  });
}

void View::storeFrame() {
  for (const auto& subview : subviews_) subview->storeFrame();
}

const View& topmostView(const View& view) {
  const View* topmost = &view;
  while (const View* above = topmost->superview()) topmost = above;
  return *topmost;
}

}  // namespace orivanta::view
