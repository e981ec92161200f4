#include "Apps/Viewer/PictureFetch.hpp"

#include <fmt/format.h>

#include <exception>
#include <utility>

#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Source/ImageCollection.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::int64_t pictureSize = 320;

// More than a card has on any screen.
constexpr std::uint64_t mostPixels = std::uint64_t{2048} * 2048;

// Pictures of several places may have the same name.
std::string folderFor(const foundation::Url& url, const std::string& slug) {
  return fmt::format("{}/places/{:x}", HttpDownloader::folderFor(url, slug),
                     std::hash<std::string>()(url.path() + '?' + url.query()));
}

std::shared_ptr<const graphics::Image> readPicture(const std::string& path) try {
  auto picture = graphics::readImage(path, 1.0, mostPixels);
  if (!picture) FileFetch::forget(path);
  return picture;
} catch (const std::exception&) {
  return nullptr;  // no memory for it
}

}  // namespace

void PictureFetch::start(const Location& place, const std::string& slug,
                         std::shared_ptr<HttpDownloader> downloader, Arrived arrived) {
  cancel();
  const auto& pictures = place.picture ? place.picture : place.logo;
  if (!pictures) return;
  const foundation::Url& url = (*pictures)[pictureSize];
  const auto mode = place.picture ? PictureMode::fill : PictureMode::fit;
  arrived_ = std::make_shared<Arrived>(std::move(arrived));
  FileFetch::start(
      {{url, folderFor(url, slug)}}, std::move(downloader), cancellation_.token(),
      {[](std::size_t) {},
       [wanted = std::weak_ptr(arrived_), mode](std::size_t, const FileFetch::Outcome& outcome) {
         if (!outcome) return;
         const auto picture = readPicture(outcome->path);
         if (!picture) return;
         foundation::mainQueue::async([wanted, mode, picture] {
           if (const auto tell = wanted.lock()) (*tell)(picture, mode);
         });
       }});
}

void PictureFetch::cancel() {
  arrived_.reset();
  std::exchange(cancellation_, {}).cancel();
}

}  // namespace orivanta::viewer
