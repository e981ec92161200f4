#include "Platform/Graphics/DrawingPath.hpp"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

#include "Platform/Foundation/DecimalNumbers.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

namespace {

using std::numbers::pi;
using Kind = DrawingStep::Kind;

class PathReader {
 public:
  explicit PathReader(std::string_view path) : rest_(path) {}

  bool read() {
    while (skipBlanks()) {
      const char first = rest_.front();
      if (first >= 'A' && first <= 'Z') {
        command_ = first;
        rest_.remove_prefix(1);
        if (command_ == 'Z') add(Kind::close);
      } else if (!readGroup()) {
        return false;
      }
    }
    return true;
  }

  std::vector<DrawingStep> takeSteps() { return std::move(steps_); }

 private:
  bool skipBlanks() {
    while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
    return !rest_.empty();
  }

  bool readNumbers(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      skipBlanks();
      const std::size_t length = foundation::readNumber(rest_, numbers_[i]);
      if (length == 0 || !std::isfinite(numbers_[i])) return false;
      rest_.remove_prefix(length);
    }
    return true;
  }

  // Reads the numbers of the current command.
  bool readGroup() {
    const auto& [a, b, c, d, e, f] = numbers_;
    switch (command_) {
      case 'M':
        return readNumbers(2) && add(Kind::moveTo, numbers_);
      case 'L':
        return readNumbers(2) && add(Kind::lineTo, numbers_);
      case 'C':
        return readNumbers(6) && add(Kind::curveTo, numbers_);
      case 'O':
        return readNumbers(3) && add(Kind::begin) && add(Kind::arc, {a, b, c, 0, 2 * pi}) &&
               add(Kind::close);
      case 'B':
        return readNumbers(5) && addBox(a, b, c, d, e);
      default:
        return false;
    }
  }

  bool addBox(double left, double top, double right, double bottom, double radius) {
    add(Kind::begin);
    add(Kind::arc, {right - radius, top + radius, radius, -pi / 2, 0});
    add(Kind::arc, {right - radius, bottom - radius, radius, 0, pi / 2});
    add(Kind::arc, {left + radius, bottom - radius, radius, pi / 2, pi});
    add(Kind::arc, {left + radius, top + radius, radius, pi, 3 * pi / 2});
    return add(Kind::close);
  }

  bool add(Kind kind, const std::array<double, 6>& numbers = {}) {
    steps_.push_back({kind, numbers});
    return true;
  }

  std::string_view rest_;
  char command_ = ' ';
  std::array<double, 6> numbers_{};
  std::vector<DrawingStep> steps_;
};

}  // namespace

std::optional<std::vector<DrawingStep>> readDrawingPath(std::string_view path) {
  PathReader reader(path);
  if (!reader.read()) return std::nullopt;
  return reader.takeSteps();
}

std::optional<std::uint32_t> drawingSide(double units, double points, double scale) {
  const double pixels = std::ceil(points * scale - 1e-9);
  if (!(units > 0.0) || !(scale > 0.0) || !(pixels >= 1.0) || pixels > Image::maximumSide)
    return std::nullopt;
  const auto side = static_cast<std::uint32_t>(pixels);
  return Image::allows(side, side) ? std::optional(side) : std::nullopt;
}

}  // namespace orivanta::graphics
