#include "Apps/Viewer/PictureFetch.hpp"

#include <fmt/format.h>

#include <cstdint>
#include <exception>
#include <utility>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Network/AwaitedRequests.hpp"
#include "Source/ImageCollection.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::int64_t pictureSize = 320;
constexpr std::size_t mostBytes = std::size_t{192} << 20U;  // while a picture is fetched

// More than a card has on any screen.
constexpr std::uint64_t mostPixels = std::uint64_t{2048} * 2048;

// Pictures of several places may have the same name.
std::string folderFor(const foundation::Url& url, const std::string& slug) {
  return fmt::format("{}/places/{:x}", HttpDownloader::folderFor(url, slug),
                     std::hash<std::string>()(url.path() + '?' + url.query()));
}

// Blocks. Null if the picture cannot be fetched or read.
std::shared_ptr<const graphics::Image> fetchPicture(HttpDownloader& downloader,
                                                    const foundation::Url& url,
                                                    const std::string& folder,
                                                    network::AwaitedRequests& requests) try {
  if (!foundation::cachesDirectory()) return nullptr;
  const std::string path = downloader.fetchFile(url, folder, requests).path;
  if (path.empty()) return nullptr;
  auto picture = graphics::readImage(path, 1.0, mostPixels);
  if (!picture) HttpDownloader::forgetFile(path);
  return picture;
} catch (const std::exception&) {
  return nullptr;  // no memory for it
}

}  // namespace

struct PictureFetch::Request {
  network::AwaitedRequests requests{network::strictRules(), mostBytes};
  Arrived arrived;  // for the main thread
};

void PictureFetch::start(const Location& place, const std::string& slug,
                         std::shared_ptr<HttpDownloader> downloader, Arrived arrived) {
  cancel();
  const auto& pictures = place.picture ? place.picture : place.logo;
  if (!pictures) return;
  const foundation::Url& url = (*pictures)[pictureSize];
  const auto mode = place.picture ? PictureMode::fill : PictureMode::fit;
  request_ = std::make_shared<Request>();
  request_->arrived = std::move(arrived);
  foundation::SerialQueue::make()->async([request = request_, downloader = std::move(downloader),
                                          url, folder = folderFor(url, slug), mode] {
    const auto picture = fetchPicture(*downloader, url, folder, request->requests);
    if (!picture) return;
    foundation::mainQueue::async([request, mode, picture] {
      if (request->arrived) request->arrived(picture, mode);
    });
  });
}

void PictureFetch::cancel() {
  const auto request = std::exchange(request_, nullptr);
  if (!request) return;
  request->arrived = nullptr;
  request->requests.cancel();
}

}  // namespace orivanta::viewer
