#include "Apps/Viewer/Panels/MapButtons.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace orivanta::viewer {

namespace {

struct Sign {
  const char* sign;
  const char* key;
};
constexpr std::array signs{Sign{"+", "+"},      Sign{"\u2212", "-"}, Sign{"\u26F6", "f"},
                           Sign{"\u2261", "l"}, Sign{"Aa", "t"},     Sign{"\u25D0", "c"},
                           Sign{"?", "?"}};
constexpr std::size_t fewest = 3;  // the last ones
constexpr double inset = 4;        // points
constexpr double signSize = 19;

}  // namespace

MapButtons::MapButtons() {
  for (const Sign& sign : signs) {
    buttons_.push_back(std::make_shared<Button>(ButtonLook::plain, sign.sign, signSize));
    buttons_.back()->action = [this, key = sign.key] {
      if (tapped) tapped(key);
    };
    addSubview(buttons_.back());
  }
}

std::vector<graphics::Size> MapButtons::sizes() const {
  const double side = theme::control();
  const auto sizeOf = [&](std::size_t count) {
    return graphics::Size{side + 2 * inset, static_cast<double>(count) * side + 2 * inset};
  };
  return {sizeOf(buttons_.size()), sizeOf(fewest)};
}

void MapButtons::arrange(graphics::Size size) {
  const double side = theme::control();
  const auto room = static_cast<std::size_t>(std::max(0.0, size.height / side));
  const std::size_t hidden = buttons_.size() - std::min(room, buttons_.size());
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const double top = inset + side * (static_cast<double>(i) - static_cast<double>(hidden));
    buttons_[i]->setHidden(i < hidden);
    buttons_[i]->setFrame({{inset, top}, {side, side}});
  }
}

}  // namespace orivanta::viewer
