// A line of text that a person types.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "Apps/Viewer/Widgets/Button.hpp"

namespace orivanta::viewer {

/// The caret stays at the end. A tap focuses it; the host brings it what is typed while it is.
class TextField : public Pressable {
 public:
  explicit TextField(std::string placeholder);

  std::function<void()> changed;  ///< after the text was changed by typing

  const std::string& text() const { return text_; }
  void setText(std::string text);
  void setPlaceholder(std::string placeholder);
  bool isFocused() const { return focused_; }
  void setFocused(bool focused);

  /// UTF-8; control characters are left out.
  void insert(std::string_view text);

  /// Takes the last character, with the marks on it; with `word`, the last word.
  void eraseBack(bool word = false);

  /// What an input method is composing, shown after the text but not part of it.
  void setComposition(std::string text);

  void draw(view::Canvas& canvas) override;

 private:
  void show();

  std::string text_;
  std::string composition_;
  std::string placeholder_;
  bool focused_ = false;
  std::shared_ptr<Label> label_;
};

}  // namespace orivanta::viewer
