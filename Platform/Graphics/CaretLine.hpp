// A line of text as a caret sees it.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "Platform/Graphics/Text.hpp"

namespace orivanta::graphics {

/// Places are offsets in bytes between two characters that a person sees, such as a letter with its
/// accents; others count as the one before them. Distances are points from the left edge of the
/// picture that `makeTextImage` makes of the text with this style, without a bound. One thread at a
/// time.
class CaretLine {
 public:
  /// `text`: whole UTF-8 without control characters.
  CaretLine(std::string text, const TextStyle& style);
  ~CaretLine();
  CaretLine(const CaretLine&) = delete;
  CaretLine& operator=(const CaretLine&) = delete;

  /// Where the caret shows.
  double distance(std::size_t place) const;

  /// The place that shows nearest.
  std::size_t placeAt(double distance) const;

  // One character along the text; the same at its ends.
  std::size_t before(std::size_t place) const;
  std::size_t after(std::size_t place) const;

  // One character to a side as the text shows, whichever way it runs; the same at its ends.
  std::size_t leftOf(std::size_t place) const { return beside(place, -1); }
  std::size_t rightOf(std::size_t place) const { return beside(place, 1); }

 private:
  struct Layout;
  std::size_t beside(std::size_t place, int direction) const;

  std::unique_ptr<Layout> layout_;
};

}  // namespace orivanta::graphics
