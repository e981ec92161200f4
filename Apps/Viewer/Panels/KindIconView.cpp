#include "Apps/Viewer/Panels/KindIconView.hpp"

#include <map>
#include <mutex>
#include <tuple>

#include "Apps/Viewer/Theme.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::size_t mostImages = 500;

using IconKey = std::tuple<bool, PlaceKind, IconState, double, double>;

// Returns the image for a dark or light look, a side in points and a scale. All views share the
// images, so that each is drawn and uploaded once.
std::shared_ptr<const graphics::Image> sharedIcon(const IconKey& key) {
  static std::mutex mutex;
  static std::map<IconKey, std::shared_ptr<const graphics::Image>> images;
  const std::lock_guard lock(mutex);
  const auto known = images.find(key);
  if (known != images.end()) return known->second;
  if (images.size() >= mostImages) images.clear();
  const auto& [isDark, kind, state, side, scale] = key;
  const auto theme = isDark ? MapTheme::dark() : MapTheme::light();
  auto image = makeIconImage(kind, *theme, side, scale, state);
  images.emplace(key, image);
  return image;
}

}  // namespace

KindIconView::KindIconView(PlaceKind kind) : kind_(kind) { setUserInteractionEnabled(false); }

void KindIconView::setIcon(PlaceKind kind, IconState state) {
  kind_ = kind;
  state_ = state;
  setNeedsFrame();
}

void KindIconView::draw(view::Canvas& canvas) {
  View::draw(canvas);
  const double side = bounds().size.width;
  if (side <= 0) return;
  if (const auto image = sharedIcon({theme::look().isDark, kind_, state_, side, canvas.scale()}))
    canvas.draw(image, bounds());
}

}  // namespace orivanta::viewer
