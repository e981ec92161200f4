// A line of text that the user edits.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Platform/Graphics/Pango/CaretLine.hpp"

namespace orivanta::viewer {

enum class CaretStep { left, right, start, end };

/// The host passes typed text while the field has the focus. A text that is longer than the field
/// is scrolled so that the caret is visible. A longer placeholder is smaller, and ends with an
/// ellipsis if it still does not fit.
class TextField : public Pressable {
 public:
  explicit TextField(std::string placeholder);

  std::function<void()> changed;  ///< called after the user has changed the text

  const std::string& text() const { return text_; }
  void setText(std::string text);  ///< the caret is put at its end
  void setPlaceholder(std::string placeholder);
  bool isFocused() const { return focused_; }
  void setFocused(bool focused);

  /// Inserts text at the caret. Drops invalid UTF-8, control characters, blanks at the beginning,
  /// and what exceeds the maximum length.
  void insert(std::string_view text);

  /// Deletes the character before the caret with its combining marks, or the word if `word` is set.
  void eraseBack(bool word = false);

  /// Deletes the character after the caret.
  void eraseForward();

  // Left and right refer to the text as it is displayed.
  void moveCaret(CaretStep step);
  void placeCaret(double x);                    ///< points from the left edge of the field
  std::size_t caret() const { return caret_; }  ///< bytes of the text before it

  /// The text that an input method is composing. It is shown at the caret but is not part of the
  /// text.
  void setComposition(std::string text);

  void draw(view::Canvas& canvas) override;

 private:
  void show();
  void erase(std::size_t from, std::size_t to);
  void scrollToCaret();
  double textLeft() const;

  std::string text_;
  std::string composition_;
  std::string placeholder_;
  std::size_t caret_ = 0;
  bool focused_ = false;
  double scroll_ = 0;  // points of the text that are hidden at the left

  // Of the displayed text: text and composition, or the placeholder.
  std::unique_ptr<graphics::CaretLine> line_;
  std::shared_ptr<const graphics::Image> whole_;    // null until it is drawn
  double wholeWidth_ = 0;                           // of the field for which it was drawn
  std::shared_ptr<const graphics::Image> visible_;  // the part that fits into the field
  unsigned shownLook_ = 0;                          // see `theme::generation`
};

}  // namespace orivanta::viewer
