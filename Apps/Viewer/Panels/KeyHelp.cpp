#include "Apps/Viewer/Panels/KeyHelp.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "Apps/Viewer/Widgets/Direction.hpp"

namespace orivanta::viewer {

namespace {

// The keys are a text, or the key of a message that begins with "interface.".
struct Meaning {
  const char* keys;
  const char* meaningKey;
};

constexpr std::array meanings{
    Meaning{"interface.help.move.keys", "interface.help.move"},
    Meaning{"interface.help.zoom.keys", "interface.help.zoom"},
    Meaning{"interface.help.closer.keys", "interface.help.closer"},
    Meaning{"interface.help.tilt.keys", "interface.help.tilt"},
    Meaning{"interface.help.fingers.keys", "interface.help.fingers"},
    Meaning{"interface.help.floor.keys", "interface.help.floor"},
    Meaning{"F", "interface.help.fit"},
    Meaning{"L", "interface.help.stack"},
    Meaning{"interface.help.search.keys", "interface.help.search"},
    Meaning{"interface.help.tab.keys", "interface.help.tab"},
    Meaning{"interface.help.list.keys", "interface.help.list"},
    Meaning{"interface.help.activate.keys", "interface.help.activate"},
    Meaning{"interface.help.close.keys", "interface.help.close"},
    Meaning{"W", "interface.help.walk"},
    Meaning{"I", "interface.help.attribution"},
    Meaning{"T", "interface.help.textSize"},
    Meaning{"C", "interface.help.contrast"},
    Meaning{"interface.help.screenshot.keys", "interface.help.screenshot"},
    Meaning{"interface.help.help.keys", "interface.help.help"},
    Meaning{"interface.help.venues.keys", "interface.venues.all"},
};

std::string keysOf(const Meaning& line, const guidance::InterfaceTexts& texts) {
  const std::string_view keys = line.keys;
  return keys.starts_with("interface.") ? texts.text(keys) : texts.name(keys);
}

constexpr double edge = 6;  // points above a line, and below it
constexpr double mostWidth = 540;
constexpr double gap = 20;              // between the keys and their meanings
constexpr double mostKeysShare = 0.45;  // of the width

}  // namespace

class KeyHelp::Line : public Row {
 public:
  Line(const Meaning& line, const guidance::InterfaceTexts& texts)
      : Row(theme::controlSize),
        keys_(std::make_shared<Label>(LabelStyle{.bold = true, .lines = 0}, keysOf(line, texts))),
        meaning_(std::make_shared<Label>(LabelStyle{.color = theme::faint, .lines = 0},
                                         texts.text(line.meaningKey))) {
    for (const auto& label : {keys_, meaning_}) addSubview(label);
  }

  double keysWidth() { return keys_->fitting(mostWidth).width; }
  void setKeysWidth(double width) { keysWidth_ = width; }

  double heightFor(double width) override {
    return 2 * edge + std::max(keys_->fitting(keysWidth_).height,
                               meaning_->fitting(meaningWidth(width)).height);
  }

  void draw(view::Canvas&) override {
    const graphics::Size size = bounds().size;
    const double width = meaningWidth(size.width);
    keys_->setFrame(directed(*this, {{theme::padding, 0}, {keysWidth_, size.height}}));
    meaning_->setFrame(
        directed(*this, {{size.width - theme::padding - width, 0}, {width, size.height}}));
  }

 private:
  double meaningWidth(double width) const {
    return std::max(1.0, width - 2 * theme::padding - keysWidth_ - gap);
  }

  std::shared_ptr<Label> keys_;
  std::shared_ptr<Label> meaning_;
  double keysWidth_ = 1;
};

KeyHelp::KeyHelp(const guidance::InterfaceTexts& texts)
    : title_(std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true, .lines = 0},
                                     texts.text("interface.help"))),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 17)),
      list_(std::make_shared<List>()) {
  for (const std::shared_ptr<view::View>& part :
       std::initializer_list<std::shared_ptr<view::View>>{title_, close_, list_})
    addSubview(part);
  close_->action = [this] {
    if (closed) closed();
  };
  for (const Meaning& meaning : meanings) lines_.push_back(std::make_shared<Line>(meaning, texts));
  setWayBack(false);
}

void KeyHelp::setWayBack(bool offered) {
  const std::size_t count = lines_.size() - (offered ? 0 : 1);
  if (list_->size() == count) return;
  list_->setRows({lines_.begin(), lines_.begin() + static_cast<std::ptrdiff_t>(count)});
}

// Gives the keys the width that they need, up to a share of the width.
void KeyHelp::arrangeColumns(double width) {
  double keys = 0;
  for (const auto& line : lines_) keys = std::max(keys, line->keysWidth());
  keys = std::min(keys, mostKeysShare * width);
  for (const auto& line : lines_) line->setKeysWidth(keys);
}

graphics::Size KeyHelp::arrange(graphics::Size room) {
  const double width = std::min(theme::withText(mostWidth), room.width - 2 * theme::margin);
  const double side = theme::control();
  const double titleWidth = std::max(1.0, width - 2 * theme::padding - side);
  const double title = std::max(side, title_->fitting(titleWidth).height) + 2 * edge;
  title_->setFrame({{theme::padding, 0}, {titleWidth, title}});
  close_->setFrame({{width - side - edge, (title - side) / 2}, {side, side}});
  if (isHidden()) return {width, title};
  arrangeColumns(width);
  const double most = room.height - 2 * theme::margin - title - theme::padding;
  const double height = list_->heightWithin(most, width);
  list_->setFrame({{0, title}, {width, height}});
  list_->arrange();
  directChildren(*this, width);
  return {width, title + height + theme::padding};
}

}  // namespace orivanta::viewer
