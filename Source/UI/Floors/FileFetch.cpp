#include "Source/UI/Floors/FileFetch.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <system_error>
#include <thread>
#include <utility>

#include "Platform/Foundation/Background.hpp"
#include "Platform/Foundation/Files.hpp"

namespace orivanta {

namespace {

constexpr std::size_t mostThreads = 4;

}  // namespace

void FileFetch::start(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader,
                      foundation::CancellationToken cancellation, Reports reports) {
  const std::shared_ptr<FileFetch> fetch(new FileFetch(
      std::move(files), std::move(downloader), std::move(cancellation), std::move(reports)));
  const auto work = [fetch] { fetch->work(); };
  try {
    for (std::size_t i = 0; i < std::min(mostThreads, fetch->files_.size()); ++i)
      std::thread(work).detach();
  } catch (const std::system_error&) {  // no more threads can be created
    foundation::runInBackground(work);
  }
}

FileFetch::FileFetch(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader,
                     foundation::CancellationToken cancellation, Reports reports)
    : files_(std::move(files)),
      downloader_(std::move(downloader)),
      reports_(std::move(reports)),
      cancellation_(std::move(cancellation)),
      requests_({network::strictRules(), downloader_->transport, cancellation_}, mostFileBytes) {}

void FileFetch::work() {
  for (std::size_t i = next_++; i < files_.size() && !cancellation_.isCanceled(); i = next_++) {
    reports_.began(i);
    reports_.ended(i, fetch(files_[i]));
  }
}

FileFetch::Outcome FileFetch::fetch(const File& file) try {
  const std::string& address = file.url.absoluteString();
  if (!foundation::cachesDirectory())
    return foundation::failure("fetch", 0,
                               fmt::format("{} cannot be cached: HOME is not set", address));
  return downloader_->fetchFile(file.url, file.folder, requests_);
} catch (const std::exception& exception) {
  return foundation::failure("fetch", 0,
                             fmt::format("{}: {}", file.url.absoluteString(), exception.what()));
}

}  // namespace orivanta
