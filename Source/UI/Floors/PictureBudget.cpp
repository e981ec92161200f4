#include "Source/UI/Floors/PictureBudget.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"
#include "Platform/Graphics/ImageFile.hpp"

namespace orivanta {

namespace fs = std::filesystem;
using graphics::Image;

namespace {

thread_local FloorPictures* currentPictures = nullptr;

std::uint64_t pixelsIn(const fs::path& file) {
  const auto size = graphics::readImageSize(file);
  return size && Image::allows(size->width, size->height) ? size->pixels() : 0;
}

std::uint64_t pixelsOf(const Image& image) { return std::uint64_t{image.width()} * image.height(); }

// Returns the number of pixels to which larger pictures must be reduced, so that the total is at
// most `share`.
std::uint64_t limitFor(std::vector<std::uint64_t> sizes, std::uint64_t share) {
  foundation::sort(sizes.begin(), sizes.end());
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const std::uint64_t even = share / (sizes.size() - i);
    if (sizes[i] > even) return even;
    share -= sizes[i];
  }
  return Image::maximumPixels;
}

}  // namespace

PictureBudget::PictureBudget(std::size_t floors, std::uint64_t pixels)
    : pixelsLeft_(pixels), floorsLeft_(floors) {}

std::uint64_t PictureBudget::takeShare() {
  const std::lock_guard lock(mutex_);
  const std::uint64_t share = pixelsLeft_ / std::max(floorsLeft_, std::size_t{1});
  pixelsLeft_ -= share;
  if (floorsLeft_ > 0) --floorsLeft_;
  return share;
}

void PictureBudget::giveBack(std::uint64_t pixels) {
  const std::lock_guard lock(mutex_);
  pixelsLeft_ += pixels;
}

std::shared_ptr<PictureBudget::Entry> PictureBudget::entryFor(const fs::path& file) {
  const std::lock_guard lock(mutex_);
  auto& entry = entries_[file];
  if (!entry) entry = std::make_shared<Entry>();
  return entry;
}

FloorPictures::FloorPictures(std::shared_ptr<PictureBudget> budget)
    : budget_(std::move(budget)), former_(std::exchange(currentPictures, this)) {}

FloorPictures::~FloorPictures() { currentPictures = former_; }

FloorPictures* FloorPictures::current() { return currentPictures; }

FloorPictures::Images FloorPictures::read(const std::set<fs::path>& files) {
  Images images;
  std::vector<std::uint64_t> sizes;
  for (const fs::path& file : files) {
    const auto entry = budget_->entryFor(file);
    const std::lock_guard lock(entry->mutex);
    if (auto image = entry->image.lock())
      images[file] = std::move(image);
    else
      sizes.push_back(pixelsIn(file));
  }
  if (sizes.empty()) return images;
  std::uint64_t share = budget_->takeShare();
  const std::uint64_t limit = limitFor(std::move(sizes), share);
  for (const fs::path& file : files) {
    if (images.contains(file)) continue;
    images[file] = readOne(file, limit, share);
  }
  budget_->giveBack(share);
  return images;
}

// Subtracts the pixels from the share unless another floor has already read the picture.
std::shared_ptr<const Image> FloorPictures::readOne(const fs::path& file, std::uint64_t limit,
                                                    std::uint64_t& share) {
  const auto entry = budget_->entryFor(file);
  const std::lock_guard lock(entry->mutex);
  if (auto image = entry->image.lock()) return image;
  auto image = graphics::readImage(file, 1.0, std::min(limit, share));
  entry->image = image;
  if (!image) return nullptr;
  share -= std::min(share, pixelsOf(*image));
  if (const auto size = graphics::readImageSize(file); size && size->pixels() > pixelsOf(*image))
    remarks_.push_back(fmt::format("{} was reduced to {} x {} pixels (original: {} x {})",
                                   file.filename().string(), image->width(), image->height(),
                                   size->width, size->height));
  return image;
}

}  // namespace orivanta
