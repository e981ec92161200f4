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
    Meaning{"interface.help.search.keys", "interface.help.search"},
    Meaning{"W", "interface.help.walk"},
    Meaning{"I", "interface.help.attribution"},
    Meaning{"interface.help.screenshot.keys", "interface.help.screenshot"},
    Meaning{"Esc", "interface.help.close"},
    Meaning{"interface.help.help.keys", "interface.help.help"},
    Meaning{"Alt + \u2190, Esc", "interface.venues.all"},
};

std::string keysOf(const Meaning& line, const guidance::InterfaceTexts& texts) {
  const std::string_view keys = line.keys;
  return keys.starts_with("interface.") ? texts.text(keys) : texts.name(keys);
}

constexpr double lineHeight = 31;  // points
constexpr double titleHeight = 54;
constexpr double mostWidth = 540;
constexpr double gap = 20;  // between the keys and their meanings
constexpr std::array textSizes{theme::textSize, 13.5, theme::smallSize, 11.5, 10.5};

}  // namespace

class KeyHelp::Line : public Row {
 public:
  Line(const Meaning& line, const guidance::InterfaceTexts& texts)
      : Row(lineHeight),
        keys_(std::make_shared<Label>(LabelStyle{.bold = true}, keysOf(line, texts))),
        meaning_(std::make_shared<Label>(LabelStyle{.color = theme::faint},
                                         texts.text(line.meaningKey))) {
    for (const auto& label : {keys_, meaning_}) addSubview(label);
  }

  void setSize(double textSize) {
    keys_->setSize(textSize);
    meaning_->setSize(textSize);
  }
  double keysWidth() { return keys_->fitting(mostWidth).width; }
  double meaningWidth() { return meaning_->fitting(mostWidth).width; }
  void setMeaningLeft(double left) { meaningLeft_ = left; }

  void draw(view::Canvas&) override {
    const double end = bounds().size.width - theme::padding;
    keys_->setFrame(
        directed(*this, {{theme::padding, 0}, {meaningLeft_ - gap - theme::padding, lineHeight}}));
    meaning_->setFrame(directed(*this, {{meaningLeft_, 0}, {end - meaningLeft_, lineHeight}}));
  }

 private:
  std::shared_ptr<Label> keys_;
  std::shared_ptr<Label> meaning_;
  double meaningLeft_ = 0;
};

KeyHelp::KeyHelp(const guidance::InterfaceTexts& texts)
    : title_(std::make_shared<Label>(LabelStyle{.size = theme::titleSize, .bold = true},
                                     texts.text("interface.help"))),
      close_(std::make_shared<Button>(ButtonLook::plain, "\u2715", 14)),
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

// Uses the largest letters with which both columns fit.
void KeyHelp::arrangeColumns(double width) {
  double keys = 0;
  for (const double textSize : textSizes) {
    keys = 0;
    double meaning = 0;
    for (const auto& line : lines_) {
      line->setSize(textSize);
      keys = std::max(keys, line->keysWidth());
      meaning = std::max(meaning, line->meaningWidth());
    }
    if (keys + gap + meaning + 2 * theme::padding <= width) break;
  }
  const double most = 0.6 * width;
  for (const auto& line : lines_) line->setMeaningLeft(std::min(theme::padding + keys + gap, most));
}

graphics::Size KeyHelp::arrange(graphics::Size room) {
  const double width = std::min(mostWidth, room.width - 2 * theme::margin);
  if (!isHidden()) arrangeColumns(width);
  title_->setFrame({{theme::padding, 0}, {width - 2 * theme::padding - 30, titleHeight}});
  close_->setFrame({{width - 46, 6}, {42, 42}});
  const double height =
      list_->heightWithin(room.height - 2 * theme::margin - titleHeight - theme::padding);
  list_->setFrame({{0, titleHeight}, {width, height}});
  list_->arrange();
  directChildren(*this, width);
  return {width, titleHeight + height + theme::padding};
}

}  // namespace orivanta::viewer
