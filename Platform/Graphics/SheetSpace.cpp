#include "Platform/Graphics/SheetSpace.hpp"

#include <algorithm>

namespace orivanta::graphics {

namespace {

constexpr std::uint32_t step = 4;
constexpr std::uint32_t gutter = 1;

std::uint32_t withGutter(std::uint32_t length) {
  return (length + gutter + step - 1) / step * step;
}

}  // namespace

SheetSpace::SheetSpace(std::uint32_t side) : side_(side / step * step) {
  shelves_.push_back({0, side_, {{0, side_}}});
}

std::optional<Cell> SheetSpace::take(std::uint32_t width, std::uint32_t height) {
  if (width == 0 || height == 0 || width >= side_ || height >= side_) return std::nullopt;
  const std::uint32_t wide = withGutter(width);
  const std::uint32_t high = withGutter(height);
  const auto found = shelfFor(wide, high);
  if (!found) return std::nullopt;
  if (isEmpty(shelves_[*found]) && shelves_[*found].height > high) {
    const Shelf& whole = shelves_[*found];
    const Shelf rest{whole.y + high, whole.height - high, {{0, side_}}};
    shelves_[*found].height = high;
    shelves_.insert(shelves_.begin() + static_cast<std::ptrdiff_t>(*found) + 1, rest);
  }
  Shelf& shelf = shelves_[*found];
  const auto span = std::find_if(shelf.spans.begin(), shelf.spans.end(),
                                 [&](const Span& free) { return free.width >= wide; });
  const Cell cell{span->x, shelf.y, width, height};
  span->x += wide;
  span->width -= wide;
  if (span->width == 0) shelf.spans.erase(span);
  return cell;
}

// Prefers the lowest used shelf that fits, then an empty one, which is then split. A shelf more
// than 1.5 times as high as needed is used last.
std::optional<std::size_t> SheetSpace::shelfFor(std::uint32_t width, std::uint32_t height) const {
  std::optional<std::size_t> best;
  std::uint64_t bestCost = 0;
  for (std::size_t i = 0; i < shelves_.size(); ++i) {
    const Shelf& shelf = shelves_[i];
    if (shelf.height < height) continue;
    if (std::none_of(shelf.spans.begin(), shelf.spans.end(),
                     [&](const Span& span) { return span.width >= width; }))
      continue;
    const bool isHigh = 2 * shelf.height > 3 * height;
    const std::uint64_t rank = isEmpty(shelf) ? 1 : isHigh ? 2 : 0;
    const std::uint64_t cost = rank * side_ + shelf.height;
    if (best && bestCost <= cost) continue;
    best = i;
    bestCost = cost;
  }
  return best;
}

void SheetSpace::free(const Cell& cell) {
  const auto shelf =
      std::find_if(shelves_.begin(), shelves_.end(), [&](const Shelf& s) { return s.y == cell.y; });
  auto& spans = shelf->spans;
  const auto next =
      std::find_if(spans.begin(), spans.end(), [&](const Span& span) { return span.x > cell.x; });
  const auto made = spans.insert(next, {cell.x, withGutter(cell.width)});
  const auto join = [&](auto left, auto right) {
    if (left->x + left->width != right->x) return false;
    left->width += right->width;
    spans.erase(right);
    return true;
  };
  if (made + 1 != spans.end()) join(made, made + 1);
  if (made != spans.begin()) join(made - 1, made);
  if (isEmpty(*shelf)) joinEmpty(static_cast<std::size_t>(shelf - shelves_.begin()));
}

bool SheetSpace::isEmpty(const Shelf& shelf) const {
  return shelf.spans.size() == 1 && shelf.spans.front().width == side_;
}

// Joins an empty shelf with the empty ones beside it.
void SheetSpace::joinEmpty(std::size_t shelf) {
  const auto at = [&](std::size_t index) {
    return shelves_.begin() + static_cast<std::ptrdiff_t>(index);
  };
  if (shelf + 1 < shelves_.size() && isEmpty(shelves_[shelf + 1])) {
    shelves_[shelf].height += shelves_[shelf + 1].height;
    shelves_.erase(at(shelf + 1));
  }
  if (shelf > 0 && isEmpty(shelves_[shelf - 1])) {
    shelves_[shelf - 1].height += shelves_[shelf].height;
    shelves_.erase(at(shelf));
  }
}

}  // namespace orivanta::graphics
