#include "Apps/Viewer/Widgets/Focus.hpp"

#include <algorithm>
#include <initializer_list>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Apps/Viewer/Widgets/List.hpp"
#include "Apps/Viewer/Widgets/TextField.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double outerWidth = 2;  // points

// A control and its place in the topmost view.
struct Stop {
  std::shared_ptr<view::View> view;
  graphics::Rect place;
};

graphics::Rect placeInRoot(const view::View& view, const graphics::Rect& rect) {
  return {view.convert(rect.origin, view::topmostView(view)), rect.size};
}

bool isVisible(const view::View& view) {
  for (const view::View* at = &view; at != nullptr; at = at->superview())
    if (at->isHidden()) return false;
  return view.superview() != nullptr && view.bounds().size.width > 0 &&
         view.bounds().size.height > 0;
}

bool isControl(const view::View& view) {
  if (const auto* list = dynamic_cast<const List*>(&view))
    return list->takesFocus() && list->size() > 0;
  const auto* pressable = dynamic_cast<const Pressable*>(&view);
  return pressable != nullptr && pressable->action != nullptr;
}

void collect(view::View& view, std::vector<Stop>& stops) {
  if (!isVisible(view) || !view.isUserInteractionEnabled()) return;
  if (isControl(view)) stops.push_back({view.shared_from_this(), placeInRoot(view, view.bounds())});
  if (dynamic_cast<const List*>(&view) != nullptr) return;
  for (const auto& child : view.subviews()) collect(*child, stops);
}

// Sorts controls by lines from the top, and each line from where lines begin. Controls whose
// middles are above the lower edge of the line's first control are in one line.
void sortForReading(std::vector<Stop>& stops, bool rightToLeft) {
  std::stable_sort(stops.begin(), stops.end(), [](const Stop& one, const Stop& other) {
    return one.place.minY() < other.place.minY();
  });
  for (auto line = stops.begin(); line != stops.end();) {
    const double bottom = line->place.maxY();
    const auto end = std::find_if(line, stops.end(),
                                  [&](const Stop& stop) { return stop.place.midY() >= bottom; });
    const auto next = end == line ? line + 1 : end;
    std::stable_sort(line, next, [&](const Stop& one, const Stop& other) {
      return rightToLeft ? one.place.maxX() > other.place.maxX()
                         : one.place.minX() < other.place.minX();
    });
    line = next;
  }
}

bool isTyping(const view::View& view) {
  const auto* field = dynamic_cast<const TextField*>(&view);
  return field != nullptr && field->isFocused();
}

}  // namespace

std::vector<std::shared_ptr<view::View>> controlsOf(const Focus::Areas& areas) {
  std::vector<std::shared_ptr<view::View>> controls;
  for (view::View* area : areas) {
    if (area == nullptr) continue;
    std::vector<Stop> stops;
    collect(*area, stops);
    sortForReading(stops, isRightToLeft(*area));
    for (const Stop& stop : stops) controls.push_back(stop.view);
  }
  return controls;
}

std::shared_ptr<view::View> Focus::focused() const {
  auto view = focused_.lock();
  return view && isVisible(*view) ? view : nullptr;
}

bool Focus::clear() {
  const bool wasVisible = focused() != nullptr;
  focused_.reset();
  if (wasVisible) view::View::setNeedsFrame();
  return wasVisible;
}

void Focus::move(bool back, const Areas& areas) {
  const auto controls = controlsOf(areas);
  if (controls.empty()) return focused_.reset();
  auto at = std::find(controls.begin(), controls.end(), focused());
  if (at == controls.end())
    at = std::find_if(controls.begin(), controls.end(),
                      [](const auto& control) { return isTyping(*control); });
  if (at == controls.end())
    at = back ? controls.end() - 1 : controls.begin();
  else if (back)
    at = at == controls.begin() ? controls.end() - 1 : at - 1;
  else
    at = at + 1 == controls.end() ? controls.begin() : at + 1;
  focused_ = *at;
  if (auto* list = dynamic_cast<List*>(at->get())) list->focus();
}

bool Focus::handleKey(const KeyPress& press, const Areas& areas) {
  if (press.key == Key::tab) {
    move(press.shift, areas);
    view::View::setNeedsFrame();
    return true;
  }
  const auto view = focused();
  if (!view) return false;
  const auto controls = controlsOf(areas);
  if (std::find(controls.begin(), controls.end(), view) == controls.end()) return false;
  view::View::setNeedsFrame();
  if (auto* list = dynamic_cast<List*>(view.get())) return list->handleKey(press);
  auto& pressable = dynamic_cast<Pressable&>(*view);
  if (pressable.handleKey(press)) return true;
  if ((press.key != Key::enter && press.key != Key::space) || isTyping(*view)) return false;
  pressable.activate();
  return true;
}

std::optional<graphics::Rect> Focus::focusedRect() const {
  const auto view = focused();
  if (!view) return std::nullopt;
  const auto* list = dynamic_cast<const List*>(view.get());
  const auto rect = list != nullptr ? list->focusedRect() : std::optional(view->bounds());
  return rect ? std::optional(placeInRoot(*view, *rect)) : std::nullopt;
}

FocusRing::FocusRing(const Focus& focus) : focus_(focus) { setUserInteractionEnabled(false); }

void FocusRing::draw(view::Canvas& canvas) {
  const auto rect = focus_.focusedRect();
  if (!rect) return;
  // The ring lies around the control, or inside the window at its edges.
  const graphics::Size room = bounds().size;
  double left = std::max(0.0, rect->minX() - width);
  double top = std::max(0.0, rect->minY() - width);
  double right = std::min(room.width, rect->maxX() + width);
  double bottom = std::min(room.height, rect->maxY() + width);
  const auto frame = [&](double thickness, graphics::Color color) {
    const double high = bottom - top;
    for (const graphics::Rect& side : std::initializer_list<graphics::Rect>{
             {{left, top}, {right - left, thickness}},
             {{left, bottom - thickness}, {right - left, thickness}},
             {{left, top}, {thickness, high}},
             {{right - thickness, top}, {thickness, high}}})
      canvas.fill(side, color);
    left += thickness;
    top += thickness;
    right -= thickness;
    bottom -= thickness;
  };
  frame(outerWidth, theme::paper);
  frame(width - outerWidth, theme::ink);
}

}  // namespace orivanta::viewer
