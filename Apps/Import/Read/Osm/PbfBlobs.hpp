// Reads the blocks of an .osm.pbf file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/Sources.hpp"

namespace orivanta::importer {

/// Reads the file from front to back. It keeps a view of the file.
class PbfBlobs {
 public:
  PbfBlobs(const SourceFile& file, const Limits& limits);

  struct Blob {
    std::string_view type;  ///< "OSMHeader" or "OSMData"; empty at the end
    std::string_view data;  ///< unpacked; valid until the next call of `next`
  };

  /// Throws `SourceError` if the file is no .osm.pbf file, a block has an unknown compression, or
  /// the unpacked blocks are larger than `limits.bytes`, and `protozero::exception` if a block is
  /// damaged.
  Blob next();

  /// Whether the file ended within a block.
  bool isCut() const { return isCut_; }

 private:
  std::string_view unpacked(std::string_view blob);
  std::string_view inflated(std::string_view packed, std::size_t size);

  std::string_view rest_;
  std::string name_;
  std::string buffer_;
  std::size_t bytesLeft_;
  std::size_t number_ = 0;
  bool isCut_ = false;
};

}  // namespace orivanta::importer
