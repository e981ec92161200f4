#include "Apps/Viewer/Widgets/Segments.hpp"

#include <algorithm>
#include <array>

#include "Apps/Viewer/Widgets/Direction.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

constexpr double radius = 9;  // points
constexpr double inset = 2;
constexpr double leastGap = 8;  // on both sides of a title together
constexpr std::array textSizes{theme::smallSize, 11.5, 10.5, 9.5};

}  // namespace

void Segments::setTitles(const std::vector<std::string>& titles) {
  for (const auto& cell : cells_) cell->removeFromSuperview();
  cells_.clear();
  labels_.clear();
  chosen_ = 0;
  for (const std::string& title : titles) {
    auto cell = std::make_shared<Pressable>();
    labels_.push_back(std::make_shared<Label>(
        LabelStyle{.size = theme::smallSize, .bold = true, .alignment = Alignment::center}, title));
    cell->addSubview(labels_.back());
    cell->action = [this, index = cells_.size()] {
      if (chosen) chosen(index);
    };
    addSubview(cell);
    cells_.push_back(std::move(cell));
  }
  arrange();
}

// Uses the largest letters with which all titles fit.
double Segments::fitTitles(double width) {
  double whole = 0;
  for (const double textSize : textSizes) {
    whole = 0;
    for (const auto& label : labels_) {
      label->setSize(textSize);
      whole += label->fitting(1000).width + leastGap;
    }
    if (whole <= width) break;
  }
  return whole;
}

void Segments::arrange() {
  const graphics::Size size = bounds().size;
  const double whole = fitTitles(size.width);
  double left = 0;
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const double width = (labels_[i]->fitting(1000).width + leastGap) / whole * size.width;
    cells_[i]->setFrame({{left, 0}, {width, size.height}});
    labels_[i]->setFrame({{inset, 0}, {width - 2 * inset, size.height}});
    left += width;
  }
  directChildren(*this, size.width);
}

void Segments::draw(view::Canvas& canvas) {
  canvas.fill(bounds(), theme::accentTint, radius);
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const bool isChosen = i == chosen_;
    labels_[i]->setColor(isChosen ? theme::paper : theme::accent);
    const graphics::Rect frame = cells_[i]->frame();
    if (isChosen || cells_[i]->isPressed())
      canvas.fill({{frame.minX() + inset, inset},
                   {frame.size.width - 2 * inset, frame.size.height - 2 * inset}},
                  isChosen ? theme::accent : theme::hairline, radius - inset);
  }
}

}  // namespace orivanta::viewer
