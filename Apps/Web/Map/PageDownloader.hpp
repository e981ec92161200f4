// Fetches the files of floors for a page.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/UI/MapDownloader.hpp"

namespace orivanta::web {

/// A downloader that removes files as soon as they have been read: here the caches directory is in
/// memory. The browser's own cache keeps them between visits. One thread.
class PageDownloader : public HttpDownloader {
 public:
  /// Lets the files of other floors wait until `release`, so that the page's only thread reads and
  /// draws this floor first. The floor must be the first one of the next load.
  void hold(const Venue& venue, const Map& first);

  /// Fetches what waits, and no longer lets files wait.
  void release();

  void fetchFile(const foundation::Url& url, const std::string& path,
                 const foundation::CancellationToken& cancellation,
                 FetchCompletion completion) override;
  void fileWasUsed(const std::string& path) override;

 private:
  std::vector<std::string> otherModels_;  // URLs
  std::vector<std::function<void()>> waiting_;
};

}  // namespace orivanta::web
