#include "Platform/Graphics/Sheet.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Graphics/SheetSpace.hpp"

namespace orivanta::graphics {

std::shared_ptr<Sheet> Sheet::make(std::uint32_t side) {
  return std::shared_ptr<Sheet>(new Sheet(std::min(side, maximumSide)));
}

Sheet::Sheet(std::uint32_t side) : side_(side), space_(std::make_unique<SheetSpace>(side)) {}

Sheet::~Sheet() = default;

std::optional<SheetPlace> Sheet::add(std::shared_ptr<const Image> image) {
  if (!image) return std::nullopt;
  const std::lock_guard lock(mutex_);
  const auto cell = space_->take(image->width(), image->height());
  if (!cell) return std::nullopt;
  const SheetPlace place{cell->x, cell->y, cell->width, cell->height, ++lastSerial_};
  images_.emplace(place.serial, SheetImage{place, std::move(image)});
  return place;
}

void Sheet::remove(const SheetPlace& place) {
  std::shared_ptr<const Image> removed;  // released after the lock
  const std::lock_guard lock(mutex_);
  const auto found = find(place);
  if (found == images_.end()) return;
  removed = found->second.image;
  images_.erase(found);
  space_->free({place.x, place.y, place.width, place.height});
}

Sheet::Images::const_iterator Sheet::find(const SheetPlace& place) const {
  const auto found = images_.find(place.serial);
  return found != images_.end() && found->second.place == place ? found : images_.end();
}

std::shared_ptr<const Image> Sheet::image(const SheetPlace& place) const {
  const std::lock_guard lock(mutex_);
  const auto found = find(place);
  return found == images_.end() ? nullptr : found->second.image;
}

std::vector<SheetImage> Sheet::since(std::uint64_t serial, std::size_t mostBytes) const {
  std::vector<SheetImage> images;
  std::size_t bytes = 0;
  const std::lock_guard lock(mutex_);
  for (auto at = images_.upper_bound(serial); at != images_.end(); ++at) {
    bytes += at->second.image->pixels().size();
    if (bytes > mostBytes && !images.empty()) break;
    images.push_back(at->second);
  }
  return images;
}

}  // namespace orivanta::graphics
