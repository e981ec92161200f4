#include "Source/UI/OfflineDownloader.hpp"

#include "Platform/Network/OfflineTransport.hpp"

namespace orivanta {

OfflineDownloader::OfflineDownloader() : HttpDownloader(network::makeOfflineTransport()) {}

foundation::Result<HttpDownloader::Fetched> OfflineDownloader::fetchFile(
    const foundation::Url& url, const std::string& path, const network::AwaitedRequests& requests) {
  auto fetched = HttpDownloader::fetchFile(url, path, requests);
  if (fetched) fetched->remark.clear();
  return fetched;
}

}  // namespace orivanta
