#include "Source/UI/MapDownloader.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
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
#include "Source/UI/Floors/KeptFile.hpp"

namespace orivanta {

namespace fs = std::filesystem;
using foundation::diagnostic;
using foundation::Error;

namespace {

constexpr int savingFailed = 1001;

fs::path cacheRoot() { return foundation::unwrap(foundation::cachesDirectory()); }

fs::path folderAt(std::string_view path) {
  fs::path folder = cacheRoot();
  while (!path.empty()) {
    const std::string_view name = path.substr(0, path.find('/'));
    if (!name.empty()) folder /= cacheFileName(std::string(name));
    path.remove_prefix(std::min(path.size(), name.size() + 1));
  }
  return folder;
}

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

// Web pages and JSON begin like this; models, material libraries and pictures do not.
bool isErrorPage(std::string_view body) {
  const std::size_t first = body.find_first_not_of(" \t\r\n\v\f");
  return first != std::string_view::npos && (body[first] == '<' || body[first] == '{');
}

// Describes what is wrong with a response; follows the URL. Empty if the response is valid.
std::string flawOf(const network::UrlResult& result) {
  if (!result) return fmt::format("cannot be fetched: {}", result.error().description);
  if (const int status = result->response.statusCode; status < 200 || status > 299)
    return fmt::format("returned HTTP status {}", status);
  if (result->body.empty()) return "returned an empty response";
  return isErrorPage(result->body) ? "returned an error page instead of the file" : "";
}

// Returns whether the problem may be temporary.
bool isPassing(const network::UrlResult& result) {
  if (!result) return result.error().domain != "http" || result.error().code != ECANCELED;
  const int status = result->response.statusCode;
  return status < 300 || status == 408 || status == 429 || status >= 500;
}

void finish(network::UrlResult result, const std::string& path,
            const HttpDownloader::Completion& completion) {
  if (result)
    if (auto decoded = network::decodeBody(*result); !decoded)
      result = foundation::failure(decoded.error());
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
  const fs::path folder = folderAt(path);
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
  const fs::path file = fileFor(url, cacheRoot());
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

foundation::Result<HttpDownloader::Fetched> HttpDownloader::fetchFile(
    const foundation::Url& url, const std::string& path, const network::AwaitedRequests& requests) {
  const std::string& address = url.absoluteString();
  const auto failed = [&](std::string_view flaw) {
    return foundation::failure("fetch", 0, fmt::format("{} {}", address, flaw));
  };
  if (defaultPort(url).empty()) return failed("is not an http or https URL");
  // Hidden names are reserved for the notes.
  const KeptFile kept(folderAt(path) /
                      visibleCacheName(foundation::unwrap(url.lastPathComponent())));
  const auto condition = kept.conditionFor(url);
  const network::UrlResult result = requests.get(url, condition.value_or(network::HeaderFields{}));
  if (condition && !condition->empty() && result && result->response.statusCode == 304) {
    diagnostic(fmt::format("file has not changed [{}]", kept.path().string()));
    return Fetched{kept.path().string()};
  }
  std::string flaw = flawOf(result);
  if (flaw.empty()) {
    const auto written = kept.save(url, result->response, result->body);
    diagnostic(written ? fmt::format("file saved [{}]", kept.path().string())
                       : "error saving file");
    if (written) return Fetched{kept.path().string()};
    flaw = fmt::format("cannot be cached: {}", written.error().description);
  }
  if (!condition || !isPassing(result)) return failed(flaw);
  std::string remark = fmt::format("{} {}; the cached copy is used", address, flaw);
  diagnostic(remark);
  return Fetched{kept.path().string(), std::move(remark)};
}

std::string HttpDownloader::folderFor(const foundation::Url& url, std::string_view slug) {
  return cacheFolder(url, slug);
}

bool HttpDownloader::isCached(const foundation::Url& url, const std::string& path) {
  if (!foundation::cachesDirectory()) return false;
  const std::string name = foundation::unwrap(url.lastPathComponent());
  return KeptFile(folderAt(path) / visibleCacheName(name)).conditionFor(url).has_value();
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
