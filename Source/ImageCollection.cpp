#include "Source/ImageCollection.hpp"

#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/Screen.hpp"
#include "Source/RawData.hpp"

namespace orivanta {

namespace {

constexpr std::array<std::pair<std::string_view, std::int64_t>, 7> renditions{{{"xxsmall", 64},
                                                                               {"xsmall", 128},
                                                                               {"small", 256},
                                                                               {"medium", 512},
                                                                               {"large", 1024},
                                                                               {"xlarge", 2048},
                                                                               {"xxlarge", 4096}}};

std::int64_t screenScale() {
  static const auto scale = static_cast<std::int64_t>(std::ceil(foundation::mainScreenScale()));
  return scale;
}

}  // namespace

std::shared_ptr<const ImageCollection> ImageCollection::make(const RawData& raw) {
  std::map<std::int64_t, foundation::Url> collection;
  auto original = raw.url();
  if (!original) {
    for (const auto& [key, pixels] : renditions)
      if (auto url = raw[key].url()) collection.emplace(pixels, std::move(*url));
    original = raw["original"].url();
  }
  if (!original && collection.empty()) return nullptr;
  if (!original) original = collection.rbegin()->second;
  return std::shared_ptr<const ImageCollection>(
      new ImageCollection(std::move(*original), std::move(collection)));
}

ImageCollection::ImageCollection(foundation::Url original,
                                 std::map<std::int64_t, foundation::Url> collection)
    : original_(std::move(original)), collection_(std::move(collection)) {}

std::size_t ImageCollection::memory() const {
  constexpr std::size_t heapBytes = 64;  // per part, for the heap and the pointers
  std::size_t bytes = sizeof(ImageCollection) + heapBytes + original_.absoluteString().size();
  for (const auto& [pixels, url] : collection_)
    bytes += sizeof(url) + 2 * heapBytes + url.absoluteString().size();
  return bytes;
}

const foundation::Url& ImageCollection::operator[](std::int64_t size) const {
  std::int64_t target = 0;
  if (__builtin_mul_overflow(size, screenScale(), &target))
    foundation::fatalError("arithmetic overflow in a picture's size");
  const auto rendition = collection_.lower_bound(target);
  return rendition == collection_.end() ? original_ : rendition->second;
}

}  // namespace orivanta
