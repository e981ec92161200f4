// Fetches the files of floors for a page.
#pragma once

#include <string>

#include "Source/UI/MapDownloader.hpp"

namespace orivanta::web {

/// A downloader that removes files as soon as they have been read: here the caches directory is in
/// memory. The browser's own cache keeps them between visits.
class PageDownloader : public HttpDownloader {
 public:
  void fileWasUsed(const std::string& path) override;
};

}  // namespace orivanta::web
