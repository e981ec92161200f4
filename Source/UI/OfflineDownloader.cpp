#include "Source/UI/OfflineDownloader.hpp"

#include <utility>

#include "Platform/Network/OfflineTransport.hpp"

namespace orivanta {

OfflineDownloader::OfflineDownloader() : HttpDownloader(network::makeOfflineTransport()) {}

void OfflineDownloader::fetchFile(const foundation::Url& url, const std::string& path,
                                  const foundation::CancellationToken& cancellation,
                                  FetchCompletion completion) {
  HttpDownloader::fetchFile(
      url, path, cancellation,
      [completion = std::move(completion)](foundation::Result<Fetched> fetched) {
        if (fetched) fetched->remark.clear();
        completion(std::move(fetched));
      });
}

}  // namespace orivanta
