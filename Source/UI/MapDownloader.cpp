#include "Source/UI/MapDownloader.hpp"

#include <fmt/format.h>

#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Platform/Network/ContentDecoding.hpp"
#include "Platform/Network/DataOfUrl.hpp"
#include "Platform/Network/DefaultTransport.hpp"
#include "Source/CacheNames.hpp"
#include "Source/UI/Floors/FileRequest.hpp"
#include "Source/UI/Floors/KeptFile.hpp"

namespace orivanta {

namespace fs = std::filesystem;
using foundation::diagnostic;
using foundation::Error;

namespace {

constexpr int savingFailed = 1001;

fs::path fileFor(const foundation::Url& url, const fs::path& folder) {
  return folder / cacheFileName(foundation::unwrap(url.lastPathComponent()));
}

bool isThere(const fs::path& file) {
  std::error_code failure;
  if (!fs::exists(file, failure)) return false;
  diagnostic(fmt::format("file already exists [{}]", file.string()));
  return true;
}

bool saved(const fs::path& file, std::string_view bytes) {
  const bool written = foundation::writeFileAtomically(file, bytes).has_value();
  diagnostic(written ? fmt::format("file saved [{}]", file.string()) : "error saving file");
  return written;
}

void makeFolder(const fs::path& folder) {
  std::error_code failure;
  if (fs::exists(folder, failure)) return;
  fs::create_directories(folder, failure);
  if (failure)
    diagnostic(fmt::format("cannot create the folder {}: {}", folder.string(), failure.message()));
}

std::string describe(const network::HttpUrlResponse& response) {
  return fmt::format("HTTP {} {}", response.statusCode,
                     response.url ? response.url->absoluteString() : "");
}

void finish(network::UrlResult result, const std::string& path,
            const HttpDownloader::Completion& completion) {
  result = network::decoded(std::move(result));
  if (!result) {
    diagnostic(fmt::format("Failure: {}", result.error().description));
    return completion(path, result.error());
  }
  diagnostic(fmt::format("response={}", describe(result->response)));
  if (result->response.statusCode != 200) return;
  if (saved(path, result->body)) return completion(path, std::nullopt);
  completion(path, Error{"Error saving file", savingFailed, ""});
}

}  // namespace

std::optional<std::string> HttpDownloader::loadFileSync(const foundation::Url& url,
                                                        const std::string& path) {
  const fs::path folder = cacheFolderAt(path);
  const fs::path file = fileFor(url, folder);
  if (isThere(file)) return file.string();
  const auto bytes = network::dataOfUrl(url, {{}, transport});
  if (!bytes) return std::nullopt;
  makeFolder(folder);
  if (!saved(file, *bytes)) return std::nullopt;
  return file.string();
}

void HttpDownloader::loadFileAsync(const foundation::Url& url, Completion completion) {
  if (!completion) completion = [](const auto&, const auto&) {};
  const fs::path file = fileFor(url, cacheFolderAt(""));
  if (isThere(file)) return completion(file.string(), std::nullopt);
  // Decompressing, writing and the completion would block the transport's thread for too long.
  const auto queue = foundation::SerialQueue::make();
  network::orDefault(transport)->start(
      {url, {}}, [queue, path = file.string(),
                  completion = std::move(completion)](network::UrlResult result) mutable {
        queue->async([result = std::move(result), path = std::move(path),
                      completion = std::move(completion)]() mutable {
          finish(std::move(result), path, completion);
        });
      });
}

void HttpDownloader::fetchFile(const foundation::Url& url, const std::string& path,
                               const foundation::CancellationToken& cancellation,
                               FetchCompletion completion) {
  FileRequest::start({url, path, transport, cancellation}, std::move(completion));
}

std::string HttpDownloader::folderFor(const foundation::Url& url, std::string_view slug) {
  return cacheFolder(url, slug);
}

bool HttpDownloader::isCached(const foundation::Url& url, const std::string& path) {
  if (!foundation::cachesDirectory()) return false;
  return KeptFile::of(url, path).conditionFor(url).has_value();
}

void HttpDownloader::forgetFile(const std::string& path) {
  const auto caches = foundation::cachesDirectory();
  if (!caches) return;
  const fs::path below = fs::path(path).lexically_relative(*caches);
  std::error_code failure;
  if (!below.empty() && *below.begin() != ".." && below != ".") fs::remove(path, failure);
}

void HttpDownloader::removeFilesOf(const foundation::Url& url) {
  std::error_code failure;
  if (const auto root = foundation::cachesDirectory())
    fs::remove_all(*root / cacheFileName(cacheServerName(url)), failure);
}

}  // namespace orivanta
