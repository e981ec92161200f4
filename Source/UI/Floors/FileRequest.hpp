// One call of `HttpDownloader::fetchFile`.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/UrlTransport.hpp"
#include "Source/UI/Floors/KeptFile.hpp"
#include "Source/UI/MapDownloader.hpp"

namespace orivanta {

/// Reads the cached file, sends the request, and decodes and saves the response. Reading, decoding
/// and saving take place on a serial queue, so that they block neither the caller nor the
/// transport.
class FileRequest : public std::enable_shared_from_this<FileRequest> {
 public:
  struct Order {
    foundation::Url url;
    std::string folder;                                ///< in the caches directory
    std::shared_ptr<network::UrlTransport> transport;  ///< null for the default transport
    foundation::CancellationToken cancellation;
  };

  /// Starts a fetch; see `HttpDownloader::fetchFile`.
  static void start(Order order, HttpDownloader::FetchCompletion completion);

 private:
  using Outcome = foundation::Result<HttpDownloader::Fetched>;

  FileRequest(Order order, HttpDownloader::FetchCompletion completion);

  void onQueue(void (FileRequest::*step)());
  void ask();
  void receive();
  Outcome outcomeOf(network::UrlResult result) const;
  Outcome failed(const std::string& flaw) const;
  HttpDownloader::FetchCompletion takeCompletion();
  void end(Outcome outcome);

  const Order order_;
  const std::shared_ptr<foundation::SerialQueue> queue_;
  foundation::CancellationRegistration registration_;  // set once, by `start`

  // Used by one step after the other.
  std::optional<KeptFile> kept_;
  std::optional<network::HeaderFields> condition_;
  std::optional<network::UrlResult> result_;

  std::mutex mutex_;
  HttpDownloader::FetchCompletion completion_;  // empty after the end and once canceled
};

}  // namespace orivanta
