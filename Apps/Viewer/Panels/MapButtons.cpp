#include "Apps/Viewer/Panels/MapButtons.hpp"

#include <array>

namespace orivanta::viewer {

namespace {

struct Sign {
  const char* sign;
  const char* key;
};
constexpr std::array signs{Sign{"+", "+"}, Sign{"\u2212", "-"}, Sign{"\u26F6", "f"},
                           Sign{"?", "?"}};
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

graphics::Size MapButtons::arrange() {
  constexpr double side = theme::controlSize;
  double top = inset;
  for (const auto& button : buttons_) {
    button->setFrame({{inset, top}, {side, side}});
    top += side;
  }
  return {side + 2 * inset, top + inset};
}

}  // namespace orivanta::viewer
