// The URLs of one picture in several pixel sizes.
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

/// Immutable once built; any thread.
class ORIVANTA_API ImageCollection {
 public:
  /// From a URL text, or from an object with renditions under "xxsmall" (64 pixels), "xsmall"
  /// (128), "small" (256), "medium" (512), "large" (1024), "xlarge" (2048) and "xxlarge" (4096),
  /// and the full picture under "original". Null when there is none of these.
  static std::shared_ptr<const ImageCollection> make(const RawData& raw);

  /// The smallest rendition that is not smaller than `size` points on the main screen; without
  /// one, the original. The screen's scale is read once per process, on first use, and rounded up.
  /// A size whose pixels overflow 64 bits stops the program.
  const foundation::Url& operator[](std::int64_t size) const;

  /// The full-size picture.
  const foundation::Url& original() const { return original_; }

  /// About how many bytes it takes.
  std::size_t memory() const;

 private:
  ImageCollection(foundation::Url original, std::map<std::int64_t, foundation::Url> collection);

  foundation::Url original_;
  std::map<std::int64_t, foundation::Url> collection_;  // by pixel size, ascending
};

}  // namespace orivanta
