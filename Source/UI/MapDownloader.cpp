#include "Source/UI/MapDownloader.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Platform/Network/DataOfUrl.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta {

namespace fs = std::filesystem;
using foundation::diagnostic;
using foundation::Error;

namespace {

constexpr std::size_t longestName = 255;
constexpr int savingFailed = 1001;

// FNV-1a, the 64-bit form (Fowler, Noll, Vo).
std::uint64_t hashOf(std::string_view text) {
  std::uint64_t hash = 0xcbf29ce484222325U;
  for (const char character : text)
    hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001b3U;
  return hash;
}

// The name itself when it can stand for one file in a folder, else one that depends on it alone.
std::string fileNameFor(const std::string& name) {
  const bool proper = !name.empty() && name != "." && name != ".." && name.size() <= longestName &&
                      name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
  return proper ? name : fmt::format("%{:016x}", hashOf(name));
}

fs::path cacheRoot() { return foundation::unwrap(foundation::cachesDirectory()); }

fs::path folderFor(std::string_view path) {
  fs::path folder = cacheRoot();
  while (!path.empty()) {
    const std::string_view name = path.substr(0, path.find('/'));
    if (!name.empty()) folder /= fileNameFor(std::string(name));
    path.remove_prefix(std::min(path.size(), name.size() + 1));
  }
  return folder;
}

fs::path fileFor(const foundation::Url& url, const fs::path& folder) {
  return folder / fileNameFor(foundation::unwrap(url.lastPathComponent()));
}

bool isCached(const fs::path& file) {
  std::error_code failure;
  if (!fs::exists(file, failure)) return false;
  diagnostic(fmt::format("file already exists [{}]", file.string()));
  return true;
}

bool saved(const fs::path& file, std::string_view bytes) {
  const bool written = !foundation::writeFileAtomically(file, bytes);
  diagnostic(written ? fmt::format("file saved [{}]", file.string()) : "error saving file");
  return written;
}

void makeFolder(const fs::path& folder) {
  std::error_code failure;
  if (fs::exists(folder, failure)) return;
  fs::create_directories(folder, failure);
  if (failure)
    diagnostic(fmt::format("cannot make the folder {}: {}", folder.string(), failure.message()));
}

std::string describe(const network::HttpUrlResponse& response) {
  return fmt::format("HTTP {} {}", response.statusCode,
                     response.url ? response.url->absoluteString() : "");
}

// What is wrong with an answer, behind its URL; empty when it can be kept.
std::string flawOf(const network::UrlResult& result) {
  if (result.error) return fmt::format("cannot be fetched: {}", result.error->description);
  if (const int status = result.response.statusCode; status < 200 || status > 299)
    return fmt::format("answered with HTTP status {}", status);
  return result.body.empty() ? "answered with nothing" : "";
}

void finish(network::UrlResult result, const std::string& path,
            const HttpDownloader::Completion& completion) {
  if (!result.error) result.error = network::defaultTransport().decodeBody(result);
  if (result.error) {
    diagnostic(fmt::format("Failure: {}", result.error->description));
    return completion(path, result.error);
  }
  diagnostic(fmt::format("response={}", describe(result.response)));
  if (result.response.statusCode != 200) return;
  if (saved(path, result.body)) return completion(path, std::nullopt);
  completion(path, Error{"Error saving file", savingFailed, ""});
}

}  // namespace

std::optional<std::string> HttpDownloader::loadFileSync(const foundation::Url& url,
                                                        const std::string& path) {
  const fs::path folder = folderFor(path);
  const fs::path file = fileFor(url, folder);
  if (isCached(file)) return file.string();
  const auto bytes = network::dataOfUrl(url);
  if (!bytes) return std::nullopt;
  makeFolder(folder);
  if (!saved(file, *bytes)) return std::nullopt;
  return file.string();
}

void HttpDownloader::loadFileAsync(const foundation::Url& url, Completion completion) {
  if (!completion) completion = [](const auto&, const auto&) {};
  const fs::path file = fileFor(url, cacheRoot());
  if (isCached(file)) return completion(file.string(), std::nullopt);
  // Inflating, writing and the completion take longer than the transport's thread may be held.
  const auto queue = foundation::SerialQueue::make();
  network::defaultTransport().start(
      {url, {}}, [queue, path = file.string(),
                  completion = std::move(completion)](network::UrlResult result) mutable {
        queue->async([result = std::move(result), path = std::move(path),
                      completion = std::move(completion)]() mutable {
          finish(std::move(result), path, completion);
        });
      });
}

HttpDownloader::Fetched HttpDownloader::fetchFile(const foundation::Url& url,
                                                  const std::string& path,
                                                  network::AwaitedRequests& requests) {
  const std::string& address = url.absoluteString();
  if (url.filePath()) {
    if (const auto kept = loadFileSync(url, path)) return {*kept, ""};
    return {"", fmt::format("{} cannot be fetched", address)};
  }
  const fs::path folder = folderFor(path);
  const fs::path file = fileFor(url, folder);
  if (isCached(file)) return {file.string(), ""};
  const network::UrlResult result = requests.get(url);
  if (const std::string flaw = flawOf(result); !flaw.empty())
    return {"", fmt::format("{} {}", address, flaw)};
  makeFolder(folder);
  if (saved(file, result.body)) return {file.string(), ""};
  return {"", fmt::format("{} cannot be kept as {}", address, file.string())};
}

}  // namespace orivanta
