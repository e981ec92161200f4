#include "Apps/Viewer/Panels/KeyHelp.hpp"

#include <algorithm>
#include <array>

namespace orivanta::viewer {

namespace {

struct Meaning {
  const char* keys;
  const char* meaning;
};

constexpr std::array meanings{
    Meaning{"Drag, arrow keys", "Move the map"},
    Meaning{"Wheel, pinch, + and \u2212", "Zoom in and out"},
    Meaning{"Double click", "Zoom in"},
    Meaning{"Right drag, Shift + arrows", "Tilt and rotate"},
    Meaning{"Two fingers up and down", "Tilt"},
    Meaning{"Page Up, Page Down", "Go one floor up or down"},
    Meaning{"F", "Show the whole floor"},
    Meaning{"/ or Ctrl + F", "Search"},
    Meaning{"W", "Simulate walking the route"},
    Meaning{"I", "Show the attribution"},
    Meaning{"S or F12", "Save a screenshot"},
    Meaning{"Esc", "Close the open panel"},
    Meaning{"? or F1", "Show this list"},
    Meaning{"Alt + \u2190, Esc", "All venues"},
};
constexpr double lineHeight = 31;  // points
constexpr double titleHeight = 54;
constexpr double roomyWidth = 440;

}  // namespace

class KeyHelp::Line : public Row {
 public:
  explicit Line(const Meaning& line)
      : Row(lineHeight),
        keys_(std::make_shared<Label>(LabelStyle{.bold = true}, line.keys)),
        meaning_(std::make_shared<Label>(LabelStyle{.color = theme::faint}, line.meaning)) {
    for (const auto& label : {keys_, meaning_}) addSubview(label);
  }

  void draw(view::Canvas&) override {
    const double width = bounds().size.width;
    const double inner = width - 2 * theme::padding;
    for (const auto& label : {keys_, meaning_})
      label->setSize(width < roomyWidth ? theme::smallSize : theme::textSize);
    keys_->setFrame({{theme::padding, 0}, {inner * 0.56, lineHeight}});
    meaning_->setFrame({{theme::padding + inner * 0.58, 0}, {inner * 0.42, lineHeight}});
  }

 private:
  std::shared_ptr<Label> keys_;
  std::shared_ptr<Label> meaning_;
};

KeyHelp::KeyHelp()
    : title_(std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true},
                                     "Keys and gestures")),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 14)),
      list_(std::make_shared<List>()) {
  for (const std::shared_ptr<view::View>& part :
       std::initializer_list<std::shared_ptr<view::View>>{title_, close_, list_})
    addSubview(part);
  close_->action = [this] {
    if (closed) closed();
  };
  for (const Meaning& meaning : meanings) lines_.push_back(std::make_shared<Line>(meaning));
  setWayBack(false);
}

void KeyHelp::setWayBack(bool offered) {
  const std::size_t count = lines_.size() - (offered ? 0 : 1);
  if (list_->size() == count) return;
  list_->setRows({lines_.begin(), lines_.begin() + static_cast<std::ptrdiff_t>(count)});
}

graphics::Size KeyHelp::arrange(graphics::Size room) {
  const double width = std::min(480.0, room.width - 2 * theme::margin);
  title_->setFrame({{theme::padding, 0}, {width - 2 * theme::padding - 30, titleHeight}});
  close_->setFrame({{width - 46, 6}, {42, 42}});
  const double height =
      list_->heightWithin(room.height - 2 * theme::margin - titleHeight - theme::padding);
  list_->setFrame({{0, titleHeight}, {width, height}});
  list_->arrange();
  return {width, titleHeight + height + theme::padding};
}

}  // namespace orivanta::viewer
