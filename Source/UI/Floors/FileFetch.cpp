#include "Source/UI/Floors/FileFetch.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/asio/post.hpp>
#include <exception>
#include <system_error>
#include <thread>
#include <utility>

#include "Platform/Foundation/BackgroundPool.hpp"
#include "Platform/Foundation/Files.hpp"

namespace orivanta {

namespace {

constexpr std::size_t mostThreads = 4;

}  // namespace

std::shared_ptr<FileFetch> FileFetch::start(std::vector<File> files,
                                            std::shared_ptr<HttpDownloader> downloader,
                                            Reports reports) {
  std::shared_ptr<FileFetch> fetch(
      new FileFetch(std::move(files), std::move(downloader), std::move(reports)));
  const auto work = [fetch] { fetch->work(); };
  try {
    for (std::size_t i = 0; i < std::min(mostThreads, fetch->files_.size()); ++i)
      std::thread(work).detach();
  } catch (const std::system_error&) {  // as many threads as there may be
    boost::asio::post(foundation::backgroundPool(), work);
  }
  return fetch;
}

FileFetch::FileFetch(std::vector<File> files, std::shared_ptr<HttpDownloader> downloader,
                     Reports reports)
    : files_(std::move(files)), downloader_(std::move(downloader)), reports_(std::move(reports)) {}

void FileFetch::cancel() {
  {
    const std::lock_guard lock(mutex_);
    next_ = files_.size() + 1;
  }
  requests_.cancel();
}

bool FileFetch::isCancelled() const {
  const std::lock_guard lock(mutex_);
  return next_ > files_.size();
}

void FileFetch::work() {
  const auto take = [this] {
    const std::lock_guard lock(mutex_);
    return next_ < files_.size() ? next_++ : files_.size();
  };
  for (std::size_t i = take(); i < files_.size(); i = take()) {
    reports_.began(i);
    reports_.ended(i, fetch(files_[i]));
  }
}

FileFetch::Outcome FileFetch::fetch(const File& file) try {
  const std::string& address = file.url.absoluteString();
  if (!foundation::cachesDirectory())
    return {"", fmt::format("{} has no place to be kept: HOME is not set", address)};
  return downloader_->fetchFile(file.url, file.folder, requests_);
} catch (const std::exception& failure) {
  return {"", fmt::format("{}: {}", file.url.absoluteString(), failure.what())};
}

}  // namespace orivanta
