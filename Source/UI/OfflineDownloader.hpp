// Provides cached files without network access.
#pragma once

#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Source/UI/MapDownloader.hpp"

namespace orivanta {

/// A downloader whose requests fail immediately, so that it provides only cached files. That a file
/// is a cached copy is not remarked. Use it for a venue that was loaded by `loadStoredVenue`:
///
///   mapView->downloader = std::make_shared<OfflineDownloader>();
class ORIVANTA_API OfflineDownloader : public HttpDownloader {
 public:
  OfflineDownloader();

  void fetchFile(const foundation::Url& url, const std::string& path,
                 const foundation::CancellationToken& cancellation,
                 FetchCompletion completion) override;
};

}  // namespace orivanta
