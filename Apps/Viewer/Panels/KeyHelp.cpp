#include "Apps/Viewer/Panels/KeyHelp.hpp"

#include <algorithm>
#include <array>

namespace orivanta::viewer {

namespace {

struct Line {
  const char* keys;
  const char* meaning;
};

constexpr std::array lines{
    Line{"Drag, arrow keys", "Move the map"},
    Line{"Wheel, pinch, + and \u2212", "Closer and farther"},
    Line{"Double click", "Come closer"},
    Line{"Right drag, Shift + arrows", "Tilt and turn"},
    Line{"Two fingers up and down", "Tilt"},
    Line{"Page Up, Page Down", "Floor up, floor down"},
    Line{"F", "Show the whole floor"},
    Line{"/ or Ctrl + F", "Search"},
    Line{"S or F12", "Save a picture"},
    Line{"Esc", "Close what is open"},
    Line{"? or F1", "This list"},
    Line{"Alt + \u2190, Esc", "All venues"},
};
constexpr double lineHeight = 31;  // points
constexpr double titleHeight = 54;
constexpr double roomyWidth = 440;

}  // namespace

KeyHelp::KeyHelp()
    : title_(std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true},
                                     "Keys and gestures")),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 14)) {
  addSubview(title_);
  addSubview(close_);
  close_->action = [this] {
    if (closed) closed();
  };
  for (const Line& line : lines) {
    lines_.emplace_back(std::make_shared<Label>(LabelStyle{.bold = true}, line.keys),
                        std::make_shared<Label>(LabelStyle{.color = theme::faint}, line.meaning));
    addSubview(lines_.back().first);
    addSubview(lines_.back().second);
  }
}

graphics::Size KeyHelp::arrange(graphics::Size room) {
  const double width = std::min(480.0, room.width - 2 * theme::margin);
  const double inner = width - 2 * theme::padding;
  title_->setFrame({{theme::padding, 0}, {inner - 30, titleHeight}});
  close_->setFrame({{width - 46, 6}, {42, 42}});
  double top = titleHeight;
  for (const auto& [keys, meaning] : lines_) {
    const bool isWayBack = keys == lines_.back().first;
    keys->setHidden(isWayBack && !offersWayBack_);
    meaning->setHidden(isWayBack && !offersWayBack_);
    if (keys->isHidden()) break;
    for (const auto& label : {keys, meaning})
      label->setSize(width < roomyWidth ? theme::smallSize : theme::textSize);
    keys->setFrame({{theme::padding, top}, {inner * 0.56, lineHeight}});
    meaning->setFrame({{theme::padding + inner * 0.58, top}, {inner * 0.42, lineHeight}});
    top += lineHeight;
  }
  return {width, top + theme::padding};
}

}  // namespace orivanta::viewer
