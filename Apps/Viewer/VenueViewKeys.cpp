// What keys do while a venue is shown.
#include "Apps/Viewer/VenueView.hpp"

namespace orivanta::viewer {

namespace {

constexpr double zoomStep = 1.4;

bool moveCamera(MapCamera& camera, const KeyPress& press) {
  constexpr double step = 110;   // points
  constexpr double angle = 0.2;  // radians
  const auto sign = [&](Key positive, Key negative) {
    return press.key == positive ? 1.0 : press.key == negative ? -1.0 : 0.0;
  };
  const double right = sign(Key::right, Key::left);
  const double up = sign(Key::up, Key::down);
  if (right == 0 && up == 0) return false;
  if (!press.shift) {
    camera.panBy(right * step, up * step, CameraMotion::glide);
  } else if (up != 0) {
    camera.tiltBy(up * angle, CameraMotion::glide);
  } else {
    camera.rotateBy(right * angle, CameraMotion::glide);
  }
  return true;
}

}  // namespace

bool VenueView::handleText(std::string_view text) {
  if (panels_.search->isOpen()) {
    panels_.search->field().insert(text);
    return true;
  }
  return carryOut(text);
}

bool VenueView::carryOut(std::string_view key) {
  if (key == "+" || key == "=")
    camera().zoomBy(zoomStep, CameraMotion::glide);
  else if (key == "-" || key == "_")
    camera().zoomBy(1 / zoomStep, CameraMotion::glide);
  else if (key == "f" || key == "F")
    fitFloor();
  else if (key == "l" || key == "L")
    toggleStack();
  else if (key == "i" || key == "I")
    toggleAttribution();
  else if (key == "w" || key == "W")
    toggleWalk();
  else if (key == "?")
    toggleHelp();
  else if (key == "/")
    panels_.search->open();
  else
    return false;
  return true;
}

bool VenueView::handleKey(const KeyPress& press) {
  switch (press.key) {
    case Key::escape:
      return escape();
    case Key::search:
      panels_.search->open();
      return true;
    default:
      break;
  }
  if (panels_.search->isOpen() && panels_.search->handleKey(press)) return true;
  switch (press.key) {
    case Key::pageUp:
    case Key::pageDown:
      showFloor(panels_.floors->neighbor(press.key == Key::pageUp ? 1 : -1));
      return true;
    case Key::home:
      fitFloor();
      return true;
    default:
      return moveCamera(camera(), press);
  }
}

// Closes what was opened last.
bool VenueView::escape() {
  if (!panels_.help->isHidden()) {
    toggleHelp();
  } else if (panels_.attribution->isOpen()) {
    toggleAttribution();
  } else if (panels_.search->isOpen()) {
    if (!panels_.search->goBack()) panels_.search->close();
  } else if (selected_) {
    select(nullptr);
  } else if (walk_.walker()) {
    stopWalk();
  } else if (session_.hasStops()) {
    session_.clear();
  } else {
    return false;
  }
  return true;
}

void VenueView::fitFloor() {
  kept_.show(
      [this](CameraMotion motion) {
        style_->isStacked() ? style_->showFirstView(motion) : camera().fit(motion);
      },
      CameraMotion::glide);
}

void VenueView::toggleStack() {
  style_->setStacked(!style_->isStacked());
  if (style_->isStacked())
    kept_.keep([this](CameraMotion motion) { style_->showFirstView(motion); });
}

void VenueView::toggleAttribution() {
  panels_.attribution->setOpen(!panels_.attribution->isOpen());
  arrangePanels();
}

void VenueView::toggleHelp() {
  panels_.help->setHidden(!panels_.help->isHidden());
  arrangePanels();
}

}  // namespace orivanta::viewer
