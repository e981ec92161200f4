#include "Apps/Viewer/Panels/Note.hpp"

#include <algorithm>

namespace orivanta::viewer {

namespace {

constexpr double mostWidth = 560;  // points
constexpr double border = 12;      // above the text, and below it

}  // namespace

Note::Note() : text_(std::make_shared<Label>(LabelStyle{.lines = 0})) {
  addSubview(text_);
  setUserInteractionEnabled(false);
}

graphics::Size Note::arrange(graphics::Size room) {
  constexpr double padding = theme::padding;
  const double most =
      std::min(theme::withText(mostWidth), room.width - 2 * theme::margin) - 2 * padding;
  const graphics::Size text = text_->fitting(most);
  text_->setFrame({{padding, border}, {text.width, text.height}});
  return {text.width + 2 * padding, text.height + 2 * border};
}

}  // namespace orivanta::viewer
