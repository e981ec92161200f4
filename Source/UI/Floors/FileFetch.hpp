// Files fetched side by side, while nobody waits.
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

/// Up to four files at once, in their order, on threads of its own: a server that does not answer
/// holds up nothing else, not even the next fetch. A file that takes more than `mostFileBytes`
/// while it is received and decoded ends with a problem of its own. Any thread.
class FileFetch {
 public:
  /// Four times this is the most that a fetch takes. A body counts twice as it is received, for the
  /// text that grows, and what it is decoded to counts beside it.
  static constexpr std::size_t mostFileBytes = std::size_t{192} << 20U;

  struct File {
    foundation::Url url;
    std::string folder;  ///< as for `HttpDownloader::fetchFile`
  };

  using Outcome = foundation::Result<HttpDownloader::Fetched>;

  /// Called on the fetch's threads, with the number of the file.
  struct Reports {
    std::function<void(std::size_t file)> began;
    std::function<void(std::size_t file, Outcome outcome)> ended;
  };

  /// Once the token is canceled no further file is begun, the requests end and so do the threads.
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
  std::atomic<std::size_t> next_ = 0;  // the first file that nobody has taken
};

}  // namespace orivanta
