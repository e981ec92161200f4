#include "Apps/Viewer/Panels/MapButtons.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace orivanta::viewer {

namespace {

struct Sign {
  const char* sign;
  const char* key;
  std::size_t rank;  // less important ones are left out first
};
constexpr std::array signs{Sign{"+", "+", 5},      Sign{"\u2212", "-", 6}, Sign{"\u26F6", "f", 0},
                           Sign{"\u2261", "l", 3}, Sign{"Aa", "t", 1},     Sign{"\u25D0", "c", 4},
                           Sign{"?", "?", 2}};
constexpr std::array counts{signs.size(), std::size_t{5}, std::size_t{3}, std::size_t{1}};
constexpr double inset = 4;  // points
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
  std::vector<graphics::Size> sizes;
  for (const std::size_t count : counts) sizes.push_back(sizeOf(count));
  return sizes;
}

void MapButtons::arrange(graphics::Size size) {
  const double side = theme::control();
  const auto room = static_cast<std::size_t>(std::max(0.0, size.height / side));
  double top = inset;
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const bool isShown = signs[i].rank < room;
    buttons_[i]->setHidden(!isShown);
    buttons_[i]->setFrame({{inset, top}, {side, side}});
    if (isShown) top += side;
  }
}

}  // namespace orivanta::viewer
