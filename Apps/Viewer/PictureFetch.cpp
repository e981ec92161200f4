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
#include "Platform/Network/AwaitedRequests.hpp"
#include "Source/ImageCollection.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::int64_t pictureSize = 320;
constexpr std::size_t mostBytes = std::size_t{192} << 20U;  // while a picture is fetched

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

// Blocks. Returns null if the picture cannot be fetched or read.
std::shared_ptr<const graphics::Image> fetchPicture(HttpDownloader& downloader,
                                                    const foundation::Url& url,
                                                    const std::string& folder,
                                                    const network::AwaitedRequests& requests) try {
  if (!foundation::cachesDirectory()) return nullptr;
  const auto file = downloader.fetchFile(url, folder, requests);
  if (!file) return nullptr;
  auto picture = graphics::readImage(file->path, 1.0, mostPixels);
  if (!picture) HttpDownloader::forgetFile(file->path);
  return picture;
} catch (const std::exception&) {
  return nullptr;  // out of memory
}

}  // namespace

void PictureFetch::cacheAll(const Venue& venue, std::shared_ptr<HttpDownloader> downloader,
                            const foundation::CancellationToken& cancellation) {
  std::map<std::string, foundation::Url> urls;  // by folder
  if (venue.locations && foundation::cachesDirectory())
    for (const auto& place : *venue.locations)
      if (const auto* url = pictureOf(*place); url && url->lastPathComponent())
        urls.try_emplace(folderFor(*url, venue.slug.value_or("")), *url);
  if (urls.empty()) return;
  network::TransferOptions options{network::strictRules(), downloader->transport, cancellation};
  foundation::SerialQueue::make()->async(
      [downloader = std::move(downloader), urls = std::move(urls), options = std::move(options)] {
        for (const auto& [folder, url] : urls) {
          if (options.cancellation.isCanceled()) return;
          if (HttpDownloader::isCached(url, folder)) continue;
          try {
            downloader->fetchFile(url, folder, network::AwaitedRequests(options, mostBytes));
          } catch (const std::exception&) {  // out of memory
          }
        }
      });
}

void PictureFetch::start(const Location& place, const std::string& slug,
                         std::shared_ptr<HttpDownloader> downloader, Arrived arrived) {
  cancel();
  const foundation::Url* const found = pictureOf(place);
  if (found == nullptr) return;
  const foundation::Url& url = *found;
  const auto mode = place.picture ? PictureMode::fill : PictureMode::fit;
  network::TransferOptions options{network::strictRules(), downloader->transport,
                                   cancellation_.token()};
  foundation::SerialQueue::make()->async(
      [downloader = std::move(downloader), url, mode, folder = folderFor(url, slug),
       options = std::move(options), arrived = std::move(arrived)]() mutable {
        const auto picture =
            fetchPicture(*downloader, url, folder, network::AwaitedRequests(options, mostBytes));
        if (!picture) return;
        foundation::mainQueue::async(
            [cancellation = options.cancellation, arrived = std::move(arrived), mode, picture] {
              if (!cancellation.isCanceled()) arrived(picture, mode);
            });
      });
}

void PictureFetch::cancel() { std::exchange(cancellation_, {}).cancel(); }

}  // namespace orivanta::viewer
