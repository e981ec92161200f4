#include "Apps/Web/Map/PageDownloader.hpp"

#include <algorithm>
#include <utility>

#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta::web {

void PageDownloader::hold(const Venue& venue, const Map& first) {
  for (const auto& floor : *venue.maps)
    if (floor->obj && floor->obj != first.obj) otherModels_.push_back(floor->obj->absoluteString());
}

void PageDownloader::release() {
  otherModels_.clear();
  for (const auto& fetch : std::exchange(waiting_, {})) fetch();
}

// Floors are fetched one after the other, each with its model first.
void PageDownloader::fetchFile(const foundation::Url& url, const std::string& path,
                               const foundation::CancellationToken& cancellation,
                               FetchCompletion completion) {
  const bool isOther = std::find(otherModels_.begin(), otherModels_.end(), url.absoluteString()) !=
                       otherModels_.end();
  if (waiting_.empty() && !isOther)
    return HttpDownloader::fetchFile(url, path, cancellation, std::move(completion));
  waiting_.emplace_back([this, url, path, cancellation, completion = std::move(completion)] {
    HttpDownloader::fetchFile(url, path, cancellation, completion);
  });
}

void PageDownloader::fileWasUsed(const std::string& path) { forgetFile(path); }

}  // namespace orivanta::web
