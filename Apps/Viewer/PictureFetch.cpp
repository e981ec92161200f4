#include "Apps/Viewer/PictureFetch.hpp"

#include <fmt/format.h>

#include <cstdint>
#include <exception>
#include <map>
#include <utility>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/Fnv.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Source/ImageCollection.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::int64_t pictureSize = 320;

// More than a card needs on any screen.
constexpr std::uint64_t mostPixels = std::uint64_t{2048} * 2048;

// Pictures of several places may have the same name.
std::string folderFor(const foundation::Url& url, const std::string& slug) {
  return fmt::format("{}/places/{:016x}", HttpDownloader::folderFor(url, slug),
                     foundation::Fnv::of(url.path() + '?' + url.query()));
}

// Returns the URL of the picture that a card shows, or null.
const foundation::Url* pictureOf(const Location& place) {
  const auto& pictures = place.picture ? place.picture : place.logo;
  return pictures ? &(*pictures)[pictureSize] : nullptr;
}

// Blocks. Returns null if the picture cannot be read.
std::shared_ptr<const graphics::Image> readPicture(const std::string& path) try {
  auto picture = graphics::readImage(path, 1.0, mostPixels);
  if (!picture) HttpDownloader::forgetFile(path);
  return picture;
} catch (const std::exception&) {
  return nullptr;  // out of memory
}

// Fetches pictures one after the other. Looking for a cached picture takes a while, so it takes
// place on a queue.
class PictureCaching : public std::enable_shared_from_this<PictureCaching> {
 public:
  PictureCaching(std::map<std::string, foundation::Url> urls,
                 std::shared_ptr<HttpDownloader> downloader,
                 foundation::CancellationToken cancellation)
      : waiting_(std::move(urls)),
        downloader_(std::move(downloader)),
        cancellation_(std::move(cancellation)) {}

  void proceed() {
    queue_->async([self = shared_from_this()] { self->fetchNext(); });
  }

 private:
  void fetchNext() {
    while (!waiting_.empty() && !cancellation_.isCanceled()) {
      const auto next = waiting_.extract(waiting_.begin());
      if (HttpDownloader::isCached(next.mapped(), next.key())) continue;
      return downloader_->fetchFile(next.mapped(), next.key(), cancellation_,
                                    [self = shared_from_this()](const auto&) { self->proceed(); });
    }
  }

  const std::shared_ptr<foundation::SerialQueue> queue_ = foundation::SerialQueue::make();
  std::map<std::string, foundation::Url> waiting_;  // by folder; used on the queue
  const std::shared_ptr<HttpDownloader> downloader_;
  const foundation::CancellationToken cancellation_;
};

}  // namespace

void PictureFetch::cacheAll(const Venue& venue, std::shared_ptr<HttpDownloader> downloader,
                            const foundation::CancellationToken& cancellation) {
  std::map<std::string, foundation::Url> urls;  // by folder
  if (venue.locations && foundation::cachesDirectory())
    for (const auto& place : *venue.locations)
      if (const auto* url = pictureOf(*place); url && url->lastPathComponent())
        urls.try_emplace(folderFor(*url, venue.slug.value_or("")), *url);
  if (urls.empty()) return;
  std::make_shared<PictureCaching>(std::move(urls), std::move(downloader), cancellation)->proceed();
}

void PictureFetch::start(const Location& place, const std::string& slug,
                         const std::shared_ptr<HttpDownloader>& downloader, Arrived arrived) {
  cancel();
  const foundation::Url* const url = pictureOf(place);
  if (url == nullptr || !url->lastPathComponent()) return;
  const auto mode = place.picture ? PictureMode::fill : PictureMode::fit;
  const auto cancellation = cancellation_.token();
  downloader->fetchFile(
      *url, folderFor(*url, slug), cancellation,
      [downloader, cancellation, mode, arrived = std::move(arrived)](const auto& file) {
        const auto picture = file ? readPicture(file->path) : nullptr;
        if (!picture) return;
        foundation::mainQueue::async([cancellation, arrived, mode, picture] {
          if (!cancellation.isCanceled()) arrived(picture, mode);
        });
      });
}

void PictureFetch::cancel() { std::exchange(cancellation_, {}).cancel(); }

}  // namespace orivanta::viewer
