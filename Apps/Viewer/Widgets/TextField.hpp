// A line of text that a person types.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "Apps/Viewer/Widgets/Button.hpp"
#include "Platform/Graphics/CaretLine.hpp"

namespace orivanta::viewer {

enum class CaretStep { left, right, start, end };

/// The host brings it what is typed while it has the focus. What is longer than the field is
/// scrolled so that the caret shows.
class TextField : public Pressable {
 public:
  explicit TextField(std::string placeholder);

  std::function<void()> changed;  ///< after the text was changed by typing

  const std::string& text() const { return text_; }
  void setText(std::string text);  ///< with the caret at its end
  void setPlaceholder(std::string placeholder);
  bool isFocused() const { return focused_; }
  void setFocused(bool focused);

  /// At the caret. Broken UTF-8, control characters and blanks at the beginning are left out, and
  /// what is too long.
  void insert(std::string_view text);

  /// Takes the character before the caret, with the marks on it; with `word`, the word.
  void eraseBack(bool word = false);

  /// Takes the character behind the caret.
  void eraseForward();

  // The caret: left and right as the text shows.
  void moveCaret(CaretStep step);
  void placeCaret(double x);                    ///< points from the left edge of the field
  std::size_t caret() const { return caret_; }  ///< bytes of the text before it

  /// What an input method is composing, shown at the caret but not part of the text.
  void setComposition(std::string text);

  void draw(view::Canvas& canvas) override;

 private:
  void show();
  void erase(std::size_t from, std::size_t to);
  void scrollToCaret();
  const std::shared_ptr<const graphics::Image>& picture(double scale);

  std::string text_;
  std::string composition_;
  std::string placeholder_;
  std::size_t caret_ = 0;
  bool focused_ = false;
  double scroll_ = 0;  // points of the text that are left of the field

  // Of what shows: text and composition, or the placeholder.
  std::unique_ptr<graphics::CaretLine> line_;
  std::shared_ptr<const graphics::Image> whole_;    // null until it is drawn
  std::shared_ptr<const graphics::Image> visible_;  // the part that the field has room for
};

}  // namespace orivanta::viewer
