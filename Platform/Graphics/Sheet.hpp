// Many small images that renderers keep in one texture.
// Public header.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

class SheetSpace;

/// Where an image is in a sheet.
struct SheetPlace {
  std::uint32_t x = 0;       ///< left edge, pixels
  std::uint32_t y = 0;       ///< upper edge, pixels
  std::uint32_t width = 0;   ///< pixels
  std::uint32_t height = 0;  ///< pixels
  std::uint64_t serial = 0;  ///< increases with each image that a sheet receives; the first has 1

  friend bool operator==(const SheetPlace&, const SheetPlace&) = default;
};

/// An image of a sheet and its place.
struct SheetImage {
  SheetPlace place;                    ///< where it is
  std::shared_ptr<const Image> image;  ///< never null
};

/// A square that holds many images, so that a canvas draws them together. Each renderer uploads the
/// images that it does not have yet, the oldest first. The sheet keeps its images. Thread-safe.
class ORIVANTA_API Sheet {
 public:
  /// The greatest side of a sheet, in pixels. Every renderer supports it.
  static constexpr std::uint32_t maximumSide = 2048;

  /// The initial upload budget, in bytes.
  static constexpr std::size_t defaultUploadBudget = std::size_t{512} * 1024;

  /// Creates an empty sheet. `side`: pixels; limited to `maximumSide`.
  static std::shared_ptr<Sheet> make(std::uint32_t side);
  ~Sheet();
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  /// Returns the width and the height in pixels.
  std::uint32_t side() const { return side_; }

  /// Adds an image. Returns nothing if it is null or if there is no space for it.
  std::optional<SheetPlace> add(std::shared_ptr<const Image> image);

  /// Removes an image. Does nothing if it is no longer in the sheet.
  void remove(const SheetPlace& place);

  /// Returns the image at a place. Returns null if it is no longer in the sheet.
  std::shared_ptr<const Image> image(const SheetPlace& place) const;

  /// Returns the images with a greater serial number than `serial`, the oldest first. After the
  /// first image, it stops at the one that would exceed `mostBytes` of pixels.
  std::vector<SheetImage> since(std::uint64_t serial, std::size_t mostBytes) const;

  /// Returns the bytes of pixels that a renderer uploads for one frame. Images that exceed it are
  /// missing until a later frame.
  std::size_t uploadBudget() const { return uploadBudget_; }

  /// Sets the upload budget. Each frame uploads at least one image if any are missing.
  void setUploadBudget(std::size_t bytes) { uploadBudget_ = bytes; }

 private:
  using Images = std::map<std::uint64_t, SheetImage>;  // by serial number

  explicit Sheet(std::uint32_t side);
  Images::const_iterator find(const SheetPlace& place) const;

  const std::uint32_t side_;
  std::atomic<std::size_t> uploadBudget_ = defaultUploadBudget;
  mutable std::mutex mutex_;  // for the following members
  std::unique_ptr<SheetSpace> space_;
  Images images_;
  std::uint64_t lastSerial_ = 0;
};

}  // namespace orivanta::graphics
