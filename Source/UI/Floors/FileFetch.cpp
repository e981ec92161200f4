#include "Source/UI/Floors/FileFetch.hpp"

#include <fmt/format.h>

#include <atomic>
#include <exception>
#include <utility>

namespace orivanta {

void FileFetch::start(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader,
                      foundation::CancellationToken cancellation, Reports reports) {
  const std::shared_ptr<FileFetch> fetch(new FileFetch(
      std::move(files), std::move(downloader), std::move(cancellation), std::move(reports)));
  fetch->startFiles();
}

FileFetch::FileFetch(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader,
                     foundation::CancellationToken cancellation, Reports reports)
    : files_(std::move(files)),
      downloader_(std::move(downloader)),
      reports_(std::move(reports)),
      cancellation_(std::move(cancellation)) {}

// If another call is running, on this or another thread, that one starts the files. Thus a
// downloader that completes immediately does not nest calls.
void FileFetch::startFiles() {
  std::unique_lock lock(mutex_);
  if (isStarting_) return;
  isStarting_ = true;
  while (running_ < mostAtOnce && next_ < files_.size() && !cancellation_.isCanceled()) {
    const std::size_t file = next_++;
    ++running_;
    lock.unlock();
    begin(file);
    lock.lock();
  }
  isStarting_ = false;
}

void FileFetch::begin(std::size_t file) {
  const auto completed = [self = shared_from_this(), file,
                          isDone = std::make_shared<std::atomic<bool>>(false)](Outcome outcome) {
    if (!isDone->exchange(true)) self->end(file, std::move(outcome));
  };
  const File& wanted = files_[file];
  reports_.began(file);
  try {
    downloader_->fetchFile(wanted.url, wanted.folder, cancellation_, completed);
  } catch (const std::exception& exception) {
    completed(foundation::failure(
        "fetch", 0, fmt::format("{}: {}", wanted.url.absoluteString(), exception.what())));
  }
}

void FileFetch::end(std::size_t file, Outcome outcome) {
  reports_.ended(file, std::move(outcome));
  {
    const std::lock_guard lock(mutex_);
    --running_;
  }
  startFiles();
}

}  // namespace orivanta
