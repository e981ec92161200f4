#include "Apps/Package/Picture.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "Platform/Graphics/ImageFile.hpp"

namespace orivanta::package {

namespace {

std::uint8_t toByte(double share) {
  const double raised = std::clamp(share, 0.0, 1.0) * 255.0 + 0.5;  // std::lround takes longer
  return static_cast<std::uint8_t>(raised);
}

void put(std::uint8_t* pixel, Color color, double alpha) {
  pixel[0] = toByte(color.red);
  pixel[1] = toByte(color.green);
  pixel[2] = toByte(color.blue);
  pixel[3] = toByte(alpha);
}

// The "over" operator (Porter and Duff, 1984) for straight alpha.
void blend(std::uint8_t* pixel, Color color, double share) {
  if (share >= 1.0) return put(pixel, color, share);
  const double under = pixel[3] / 255.0 * (1.0 - share);
  const double alpha = share + under;
  if (alpha <= 0.0) return;
  const Color below = {pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0};
  put(pixel, mixed(color, below, under / alpha), alpha);
}

// The fraction of a pixel that is covered, sampled on a grid of points. If the samples at the
// corners and in the middle agree, the others are assumed to agree as well.
double coverage(int x, int y, const std::function<bool(Point)>& covers) {
  constexpr int grid = 4;
  const bool first = covers({x + 0.5, y + 0.5});
  const auto agrees = [&](double right, double down) {
    return covers({x + right, y + down}) == first;
  };
  if (agrees(0.1, 0.1) && agrees(0.9, 0.1) && agrees(0.1, 0.9) && agrees(0.9, 0.9))
    return first ? 1.0 : 0.0;
  int hits = 0;
  for (int row = 0; row < grid; ++row)
    for (int column = 0; column < grid; ++column)
      if (covers({x + (column + 0.5) / grid, y + (row + 0.5) / grid})) ++hits;
  return hits / double{grid * grid};
}

std::vector<double> crossingsAt(const Outline& ring, double y) {
  std::vector<double> crossings;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point a = ring[i];
    const Point b = ring[i + 1 < ring.size() ? i + 1 : 0];
    if ((a.y > y) != (b.y > y)) crossings.push_back(a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y));
  }
  return crossings;
}

// Where the border of an outline crosses horizontal lines, computed once for each line of a row of
// pixels.
class Crossings {
 public:
  explicit Crossings(const Outline& outline) : outline_(outline) {}

  bool contains(Point point) {
    bool inside = false;
    for (const double x : at(point.y)) inside ^= point.x < x;
    return inside;
  }

 private:
  struct Line {
    double y = std::numeric_limits<double>::quiet_NaN();
    std::vector<double> crossings;
  };

  const std::vector<double>& at(double y) {
    for (const Line& line : lines_)
      if (line.y == y) return line.crossings;
    Line& oldest = lines_[next_++ % lines_.size()];
    oldest = {y, crossingsAt(outline_, y)};
    return oldest.crossings;
  }

  const Outline& outline_;
  std::array<Line, 7> lines_;  // as many as `coverage` samples in a row
  std::size_t next_ = 0;
};

constexpr int linesPerRow = 4;

// Adds the shares of the pixels on a horizontal line that are inside an odd number of rings.
void addSpans(const std::vector<Outline>& rings, double y, std::vector<double>& shares) {
  std::vector<double> crossings;
  for (const Outline& ring : rings) {
    const std::vector<double> ofRing = crossingsAt(ring, y);
    crossings.insert(crossings.end(), ofRing.begin(), ofRing.end());
  }
  std::sort(crossings.begin(), crossings.end());
  const double width = static_cast<double>(shares.size());
  for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
    const double from = std::clamp(crossings[i], 0.0, width);
    const double to = std::clamp(crossings[i + 1], 0.0, width);
    for (double x = std::floor(from); x < to; x += 1.0)
      shares[static_cast<std::size_t>(x)] += std::min(to, x + 1.0) - std::max(from, x);
  }
}

}  // namespace

Picture::Picture(int width, int height, Color background, double alpha)
    : width_(width),
      height_(height),
      bytes_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4) {
  std::array<std::uint8_t, 4> first{};
  put(first.data(), background, alpha);
  for (std::size_t i = 0; i < bytes_.size(); i += first.size())
    std::copy(first.begin(), first.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(i));
}

std::uint8_t* Picture::pixel(int x, int y) {
  return &bytes_[(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                  static_cast<std::size_t>(x)) *
                 4];
}

void Picture::paint(const Box& box, const std::function<bool(Point)>& covers, Color color) {
  for (int y = box.top; y < box.bottom; ++y)
    for (int x = box.left; x < box.right; ++x) {
      const double share = coverage(x, y, covers);
      if (share > 0.0) blend(pixel(x, y), color, share);
    }
}

void Picture::paint(const std::function<bool(Point)>& covers, Color color) {
  paint({0, 0, width_, height_}, covers, color);
}

void Picture::fill(const Outline& outline, Color color) {
  Point least = {static_cast<double>(width_), static_cast<double>(height_)};
  Point most = {0.0, 0.0};
  for (const Point point : outline) {
    least = {std::min(least.x, point.x), std::min(least.y, point.y)};
    most = {std::max(most.x, point.x), std::max(most.y, point.y)};
  }
  Crossings crossings(outline);
  paint(
      boxAround(least, most), [&](Point point) { return crossings.contains(point); }, color);
}

void Picture::fill(const std::vector<Outline>& rings, Color color) {
  Point least = {static_cast<double>(width_), static_cast<double>(height_)};
  Point most = {0.0, 0.0};
  for (const Outline& ring : rings)
    for (const Point point : ring) {
      least = {std::min(least.x, point.x), std::min(least.y, point.y)};
      most = {std::max(most.x, point.x), std::max(most.y, point.y)};
    }
  const Box box = boxAround(least, most);
  std::vector<double> shares(static_cast<std::size_t>(width_));
  for (int y = box.top; y < box.bottom; ++y) {
    std::fill(shares.begin(), shares.end(), 0.0);
    for (int line = 0; line < linesPerRow; ++line)
      addSpans(rings, y + (line + 0.5) / linesPerRow, shares);
    for (int x = box.left; x < box.right; ++x)
      if (const double share = shares[static_cast<std::size_t>(x)] / linesPerRow; share > 0.0)
        blend(pixel(x, y), color, std::min(share, 1.0));
  }
}

Picture::Box Picture::boxAround(Point least, Point most) const {
  const auto within = [](double value, int end) {
    return static_cast<int>(std::clamp(value, 0.0, static_cast<double>(end)));
  };
  return {within(std::floor(least.x), width_), within(std::floor(least.y), height_),
          within(std::ceil(most.x), width_), within(std::ceil(most.y), height_)};
}

void Picture::paint(Point least, Point most, const std::function<double(Point)>& distance,
                    Color color) {
  const Box box = boxAround(least, most);
  for (int y = box.top; y < box.bottom; ++y)
    for (int x = box.left; x < box.right; ++x) {
      const double share = std::clamp(0.5 - distance({x + 0.5, y + 0.5}), 0.0, 1.0);
      if (share > 0.0) blend(pixel(x, y), color, share);
    }
}

void Picture::shade(const std::function<Color(int, int)>& colorAt) {
  for (int y = 0; y < height_; ++y)
    for (int x = 0; x < width_; ++x) put(pixel(x, y), colorAt(x, y), 1.0);
}

void Picture::write(const std::filesystem::path& file) const {
  const auto image = graphics::Image::make(static_cast<std::uint32_t>(width_),
                                           static_cast<std::uint32_t>(height_), bytes_);
  if (!image) throw std::runtime_error("no image for " + file.string());
  if (const auto written = writePng(*image, file, graphics::PngEffort::low); !written)
    throw std::runtime_error(written.error().description);
}

}  // namespace orivanta::package
