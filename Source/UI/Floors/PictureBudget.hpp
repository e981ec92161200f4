// How large the pictures of a view's floors may be together.
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

/// Shared by the floors of one load. Each floor with pictures may take what is left, divided by the
/// number of such floors that have not been read; what it does not need is left to the others. A
/// picture that several floors show is read once, as long as one of them has it. Any thread.
class PictureBudget {
 public:
  /// 336 MB in memory. A driver that draws in software takes 4/3 of that again.
  static constexpr std::uint64_t mostPixels = std::uint64_t{5} * 4096 * 4096;

  /// For so many floors with pictures.
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

/// Reads the pictures of one model. While it lasts, the asset loader uses it on the thread that
/// made it.
class FloorPictures {
 public:
  using Images = std::map<std::filesystem::path, std::shared_ptr<const graphics::Image>>;

  explicit FloorPictures(std::shared_ptr<PictureBudget> budget);
  ~FloorPictures();
  FloorPictures(const FloorPictures&) = delete;
  FloorPictures& operator=(const FloorPictures&) = delete;

  /// The one that was made last on this thread; null if there is none.
  static FloorPictures* current();

  /// Null for a file that holds no picture that can be read. If they are too large together, the
  /// largest are made smaller, to the same number of pixels as far as whole factors allow.
  Images read(const std::set<std::filesystem::path>& files);

  /// Which pictures were made smaller, for people, without a full stop.
  const std::vector<std::string>& remarks() const { return remarks_; }

 private:
  std::shared_ptr<const graphics::Image> readOne(const std::filesystem::path& file,
                                                 std::uint64_t limit, std::uint64_t& share);

  const std::shared_ptr<PictureBudget> budget_;
  FloorPictures* const former_;
  std::vector<std::string> remarks_;
};

}  // namespace orivanta
