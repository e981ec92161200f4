// Files fetched side by side, while nobody waits.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

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

  using Outcome = HttpDownloader::Fetched;

  /// Called on the fetch's threads, with the number of the file.
  struct Reports {
    std::function<void(std::size_t file)> began;
    std::function<void(std::size_t file, Outcome outcome)> ended;
  };

  static std::shared_ptr<FileFetch> start(std::vector<File> files,
                                          std::shared_ptr<HttpDownloader> downloader,
                                          Reports reports);

  /// Begins no further file, and ends the requests: the threads end as well.
  void cancel();
  bool isCancelled() const;

 private:
  FileFetch(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader, Reports reports);
  void work();
  Outcome fetch(const File& file);

  const std::vector<File> files_;
  const std::shared_ptr<HttpDownloader> downloader_;
  const Reports reports_;
  network::AwaitedRequests requests_{network::strictRules(), mostFileBytes};
  mutable std::mutex mutex_;
  std::size_t next_ = 0;  // the first file that nobody has taken
};

}  // namespace orivanta
