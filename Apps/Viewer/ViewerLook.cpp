// The look of the interface, and which controls the keyboard reaches.
#include <fmt/format.h>

#include <array>
#include <cmath>

#include "Apps/Viewer/PanelLayout.hpp"
#include "Apps/Viewer/Viewer.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::array textScales{1.0, 1.25, 1.5, 1.75, 2.0};

// Returns the next larger scale, or the smallest one after the largest.
double nextScale(double scale) {
  for (const double next : textScales)
    if (next > scale + 0.01) return next;
  return textScales.front();
}

}  // namespace

void Viewer::setLook(const theme::Look& look) {
  look_ = look;
  arrange();
}

void Viewer::applyLook() {
  theme::Look look = look_;
  look.textScale *= textGrowth(size_);
  theme::use(look);
  root_->setBackgroundColor(theme::backdrop);
}

// Changes the size of text or the contrast, and says which it is now. Returns false for other keys.
bool Viewer::changeLook(std::string_view key) {
  theme::Look look = look_;
  std::string remark;
  if (key == "t" || key == "T") {
    look.textScale = nextScale(look.textScale);
    const std::string percent = fmt::to_string(std::lround(100 * look.textScale));
    remark = texts_.text("interface.note.textSize", {{"percent", percent}});
  } else if (key == "c" || key == "C") {
    look.hasHighContrast = !look.hasHighContrast;
    remark = texts_.text(look.hasHighContrast ? "interface.note.contrast.high"
                                              : "interface.note.contrast.normal");
  } else {
    return false;
  }
  setLook(look);
  hideNote();
  this->remark(remark);
  return true;
}

Focus::Areas Viewer::focusAreas() const {
  if (!message_->isHidden()) return {message_.get()};
  if (!venueList_->isHidden()) return {venueList_.get()};
  if (!veil_->isHidden()) return {veil_.get()};
  Focus::Areas areas = venueView_ ? venueView_->inReadingOrder() : Focus::Areas();
  if (!connectionNote_->isHidden()) areas.push_back(connectionNote_.get());
  return areas;
}

}  // namespace orivanta::viewer
