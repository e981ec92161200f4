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
/// holds up nothing else, not even the next fetch. A thread that is at a file when the fetch is
/// cancelled ends behind it. Any thread.
class FileFetch {
 public:
  struct File {
    foundation::Url url;
    std::string folder;  ///< as for `HttpDownloader::loadFileSync`
  };

  /// One of the two is empty.
  struct Outcome {
    std::string path;
    std::string problem;  ///< a sentence with the URL, without a full stop
  };

  /// Called on the fetch's threads, with the number of the file.
  struct Reports {
    std::function<void(std::size_t file)> began;
    std::function<void(std::size_t file, Outcome outcome)> ended;
  };

  static std::shared_ptr<FileFetch> start(std::vector<File> files,
                                          std::shared_ptr<HttpDownloader> downloader,
                                          Reports reports);

  /// Begins no further file.
  void cancel();
  bool isCancelled() const;

  /// Takes a file that is not what it should be out of the caches directory, so that it is fetched
  /// anew the next time. A file elsewhere stays.
  static void forget(const std::string& path);

 private:
  FileFetch(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader, Reports reports);
  void work();
  Outcome fetch(const File& file) const;

  const std::vector<File> files_;
  const std::shared_ptr<HttpDownloader> downloader_;
  const Reports reports_;
  mutable std::mutex mutex_;
  std::size_t next_ = 0;  // the first file that nobody has taken
};

}  // namespace orivanta
