// The limit for the total size of the pictures of a view's floors.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "Platform/Graphics/Image.hpp"

namespace orivanta {

/// Shared by the floors of one load. Each floor with pictures may use the remaining pixels, divided
/// by the number of such floors that have not been read. Pixels that it does not use remain for the
/// others. A picture of several floors is read once, as long as one of them holds it. Any thread.
class PictureBudget {
 public:
  /// 336 MB in memory. A software renderer uses another 4/3 of that.
  static constexpr std::uint64_t mostPixels = std::uint64_t{5} * 4096 * 4096;

  /// `floors` is the number of floors with pictures.
  explicit PictureBudget(std::size_t floors, std::uint64_t pixels = mostPixels);

 private:
  friend class FloorPictures;

  struct Entry {
    std::mutex mutex;  // held while the picture is read
    std::weak_ptr<const graphics::Image> image;
  };

  std::uint64_t takeShare();
  void giveBack(std::uint64_t pixels);
  std::shared_ptr<Entry> entryFor(const std::filesystem::path& file);

  std::mutex mutex_;
  std::uint64_t pixelsLeft_;
  std::size_t floorsLeft_;
  std::map<std::filesystem::path, std::shared_ptr<Entry>> entries_;
};

/// Reads the pictures of one model. While it exists, the asset loader uses it on the thread that
/// created it.
class FloorPictures {
 public:
  using Images = std::map<std::filesystem::path, std::shared_ptr<const graphics::Image>>;

  explicit FloorPictures(std::shared_ptr<PictureBudget> budget);
  ~FloorPictures();
  FloorPictures(const FloorPictures&) = delete;
  FloorPictures& operator=(const FloorPictures&) = delete;

  /// Returns the most recently created object of this thread, or null if there is none.
  static FloorPictures* current();

  /// Reads pictures; the result has null for a file that cannot be read as a picture. If they are
  /// too large together, the largest are reduced to the same number of pixels, as far as integer
  /// factors allow.
  Images read(const std::set<std::filesystem::path>& files);

  /// Returns which pictures were reduced, as readable texts without a final period.
  const std::vector<std::string>& remarks() const { return remarks_; }

 private:
  std::shared_ptr<const graphics::Image> readOne(const std::filesystem::path& file,
                                                 std::uint64_t limit, std::uint64_t& share);

  const std::shared_ptr<PictureBudget> budget_;
  FloorPictures* const former_;
  std::vector<std::string> remarks_;
};

}  // namespace orivanta
