// Fetches several files concurrently.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Source/UI/MapDownloader.hpp"

namespace orivanta {

/// Fetches up to `mostAtOnce` files concurrently, in order. A file is started when an earlier one
/// ends, on the thread that ends it. Has no threads of its own and never blocks.
class FileFetch : public std::enable_shared_from_this<FileFetch> {
 public:
  static constexpr std::size_t mostAtOnce = 4;

  struct File {
    foundation::Url url;
    std::string folder;  ///< see `HttpDownloader::fetchFile`
  };

  using Outcome = foundation::Result<HttpDownloader::Fetched>;

  /// Callbacks with the index of the file. They are called on any thread, also concurrently and
  /// before `start` returns; those of one file in order. They must return quickly.
  struct Reports {
    std::function<void(std::size_t file)> began;
    std::function<void(std::size_t file, Outcome outcome)> ended;
  };

  /// Starts a fetch. When the token is canceled, the requests end and no further file is started;
  /// files that were being fetched are not reported.
  static void start(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader,
                    foundation::CancellationToken cancellation, Reports reports);

 private:
  FileFetch(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader,
            foundation::CancellationToken cancellation, Reports reports);
  void startFiles();
  void begin(std::size_t file);
  void end(std::size_t file, Outcome outcome);

  const std::vector<File> files_;
  const std::shared_ptr<HttpDownloader> downloader_;
  const Reports reports_;
  const foundation::CancellationToken cancellation_;

  std::mutex mutex_;         // guards the members below
  std::size_t next_ = 0;     // the first file that has not been started
  std::size_t running_ = 0;  // the files that are being fetched
  bool isStarting_ = false;  // a call of `startFiles` is running
};

}  // namespace orivanta
