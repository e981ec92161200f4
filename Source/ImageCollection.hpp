// The URLs of one picture in several sizes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// Immutable and thread-safe.
class ORIVANTA_API ImageCollection {
 public:
  /// Creates a collection from a URL string, or from an object with renditions under "xxsmall" (64
  /// pixels), "xsmall" (128), "small" (256), "medium" (512), "large" (1024), "xlarge" (2048) and
  /// "xxlarge" (4096), and the full-size picture under "original". Returns null if there is none of
  /// these.
  static std::shared_ptr<const ImageCollection> make(const RawData& raw);

  /// Returns the smallest rendition that has at least `size` points on the main screen, or the
  /// original if there is none. The scale of the screen is read once per process, on first use, and
  /// rounded up. Stops the program if the size in pixels overflows 64 bits.
  const foundation::Url& operator[](std::int64_t size) const;

  /// The full-size picture.
  const foundation::Url& original() const { return original_; }

  /// Returns the approximate size in memory, in bytes.
  std::size_t memory() const;

 private:
  ImageCollection(foundation::Url original, std::map<std::int64_t, foundation::Url> collection);

  foundation::Url original_;
  std::map<std::int64_t, foundation::Url> collection_;  // by size in pixels, ascending
};

}  // namespace orivanta
