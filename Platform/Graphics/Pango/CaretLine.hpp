// A line of text with positions for a caret.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "Platform/Graphics/Text.hpp"

namespace orivanta::graphics {

/// A place is a byte offset between two user-perceived characters, such as a letter with its
/// accents; other offsets are treated as the place before them. Distances are in points from the
/// left edge of the image that `makeTextImage` makes of the text with this style and no maximum
/// width. Not thread-safe.
class CaretLine {
 public:
  /// `text` must be valid UTF-8 without control characters.
  CaretLine(std::string text, const TextStyle& style);
  ~CaretLine();
  CaretLine(const CaretLine&) = delete;
  CaretLine& operator=(const CaretLine&) = delete;

  /// The position of the caret.
  double distance(std::size_t place) const;

  /// The place nearest to a distance.
  std::size_t placeAt(double distance) const;

  // The place one character before or after; the same place at the ends of the text.
  std::size_t before(std::size_t place) const;
  std::size_t after(std::size_t place) const;

  // The place one character to the left or right as displayed, regardless of the writing direction;
  // the same place at the ends.
  std::size_t leftOf(std::size_t place) const { return beside(place, -1); }
  std::size_t rightOf(std::size_t place) const { return beside(place, 1); }

 private:
  struct Layout;
  std::size_t beside(std::size_t place, int direction) const;

  std::unique_ptr<Layout> layout_;
};

}  // namespace orivanta::graphics
