#include "Apps/Viewer/Widgets/Segments.hpp"

#include <algorithm>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double radius = 9;  // points
constexpr double inset = 2;
constexpr double edge = 8;  // above a title, and below it
constexpr double side = 8;  // beside a title
constexpr double anyWidth = 10'000;

}  // namespace

void Segments::setTitles(const std::vector<std::string>& titles) {
  for (const auto& cell : cells_) cell->removeFromSuperview();
  cells_.clear();
  labels_.clear();
  chosen_ = 0;
  for (const std::string& title : titles) {
    auto cell = std::make_shared<Pressable>();
    labels_.push_back(std::make_shared<Label>(
        LabelStyle{
            .size = theme::smallSize, .bold = true, .alignment = Alignment::center, .lines = 0},
        title));
    cell->addSubview(labels_.back());
    cell->action = [this, index = cells_.size()] {
      if (chosen) chosen(index);
    };
    addSubview(cell);
    cells_.push_back(std::move(cell));
  }
  arrange(bounds().size.width);
}

// Returns the number of titles in each row: as few rows as possible in which all titles fit, with
// about the same number of titles in each.
std::vector<std::size_t> Segments::rowSizes(double width) {
  for (std::size_t rows = 1; rows < cells_.size(); ++rows) {
    std::vector<std::size_t> sizes;
    bool fits = true;
    for (std::size_t row = 0, first = 0; row < rows; ++row) {
      const std::size_t count = (cells_.size() - first + rows - row - 1) / (rows - row);
      double needed = 0;
      for (std::size_t i = first; i < first + count; ++i)
        needed += std::max(labels_[i]->fitting(anyWidth).width + 2 * side, theme::control());
      fits = fits && needed <= width;
      sizes.push_back(count);
      first += count;
    }
    if (fits) return sizes;
  }
  return std::vector<std::size_t>(cells_.size(), 1);
}

// The titles of a row share its width in proportion to their lengths. Returns the lower edge.
double Segments::arrangeRow(std::size_t first, std::size_t count, double width, double top) {
  std::vector<double> widths;
  double whole = 0;
  for (std::size_t i = first; i < first + count; ++i) {
    widths.push_back(std::max(labels_[i]->fitting(anyWidth).width + 2 * side, theme::control()));
    whole += widths.back();
  }
  double height = theme::control();
  for (std::size_t i = 0; i < count; ++i) {
    widths[i] *= width / whole;
    const double text = std::max(1.0, widths[i] - side);
    height = std::max(height, labels_[first + i]->fitting(text).height + 2 * edge);
  }
  double left = 0;
  for (std::size_t i = 0; i < count; ++i) {
    cells_[first + i]->setFrame({{left, top}, {widths[i], height}});
    labels_[first + i]->setFrame({{side / 2, 0}, {std::max(1.0, widths[i] - side), height}});
    left += widths[i];
  }
  return top + height;
}

double Segments::arrange(double width) {
  if (width <= 0 || cells_.empty()) return 0;
  double top = 0;
  std::size_t first = 0;
  for (const std::size_t count : rowSizes(width)) {
    top = arrangeRow(first, count, width, top);
    first += count;
  }
  directChildren(*this, width);
  return top;
}

void Segments::draw(view::Canvas& canvas) {
  const graphics::Size size = bounds().size;
  canvas.fill(bounds(), theme::border, radius);
  canvas.fill({{1, 1}, {size.width - 2, size.height - 2}}, theme::accentTint, radius - 1);
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const bool isChosen = i == chosen_;
    labels_[i]->setColor(isChosen ? theme::paper : theme::accent);
    const graphics::Rect frame = cells_[i]->frame();
    if (isChosen || cells_[i]->isPressed())
      canvas.fill({{frame.minX() + inset, frame.minY() + inset},
                   {frame.size.width - 2 * inset, frame.size.height - 2 * inset}},
                  isChosen ? theme::accent : theme::pressed, radius - inset);
  }
}

}  // namespace orivanta::viewer
