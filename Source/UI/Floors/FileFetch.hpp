// Fetches files concurrently in the background.
#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Source/UI/MapDownloader.hpp"

namespace orivanta {

/// Fetches up to four files concurrently, in order, on separate threads. A server that does not
/// respond delays nothing else, not even the next fetch. A file that uses more than `mostFileBytes`
/// of memory while it is received and decoded fails with an error. Any thread.
class FileFetch {
 public:
  /// The maximum memory of one file; a fetch uses at most four times this. A received body counts
  /// twice, because its string grows, and its decoded form counts in addition.
  static constexpr std::size_t mostFileBytes = std::size_t{192} << 20U;

  struct File {
    foundation::Url url;
    std::string folder;  ///< see `HttpDownloader::fetchFile`
  };

  using Outcome = foundation::Result<HttpDownloader::Fetched>;

  /// Callbacks, called on the fetch's threads with the index of the file.
  struct Reports {
    std::function<void(std::size_t file)> began;
    std::function<void(std::size_t file, Outcome outcome)> ended;
  };

  /// Starts a fetch. When the token is canceled, no further file is started, and the requests and
  /// the threads end.
  static void start(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader,
                    foundation::CancellationToken cancellation, Reports reports);

 private:
  FileFetch(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader,
            foundation::CancellationToken cancellation, Reports reports);
  void work();
  Outcome fetch(const File& file);

  const std::vector<File> files_;
  const std::shared_ptr<HttpDownloader> downloader_;
  const Reports reports_;
  const foundation::CancellationToken cancellation_;
  const network::AwaitedRequests requests_;
  std::atomic<std::size_t> next_ = 0;  // the first file that no thread has taken
};

}  // namespace orivanta
