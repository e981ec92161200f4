#include "Source/UI/MapDownloader.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "Platform/Foundation/AsciiCase.hpp"
#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/Fnv.hpp"
#include "Platform/Foundation/SerialQueue.hpp"
#include "Platform/Network/DataOfUrl.hpp"
#include "Platform/Network/UrlTransport.hpp"
#include "Source/UI/Floors/KeptFile.hpp"

namespace orivanta {

namespace fs = std::filesystem;
using foundation::asciiLowercased;
using foundation::diagnostic;
using foundation::Error;
using foundation::Fnv;

namespace {

constexpr std::size_t longestName = 255;
constexpr int savingFailed = 1001;

// The name itself when it can stand for one file in a folder, else one that depends on it alone.
std::string fileNameFor(const std::string& name) {
  const bool proper = !name.empty() && name != "." && name != ".." && name.size() <= longestName &&
                      name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
  return proper ? name : fmt::format("%{:016x}", Fnv::of(name));
}

fs::path cacheRoot() { return foundation::unwrap(foundation::cachesDirectory()); }

fs::path folderAt(std::string_view path) {
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

// As web pages and JSON begin: no model, material library or picture does.
bool isErrorPage(std::string_view body) {
  const std::size_t first = body.find_first_not_of(" \t\r\n\v\f");
  return first != std::string_view::npos && (body[first] == '<' || body[first] == '{');
}

// What is wrong with an answer, behind its URL; empty when it can be kept.
std::string flawOf(const network::UrlResult& result) {
  if (result.error) return fmt::format("cannot be fetched: {}", result.error->description);
  if (const int status = result.response.statusCode; status < 200 || status > 299)
    return fmt::format("answered with HTTP status {}", status);
  if (result.body.empty()) return "answered with nothing";
  return isErrorPage(result.body) ? "gives an error page in place of the file" : "";
}

// Whether the server would perhaps not give that answer at another time.
bool isPassing(const network::UrlResult& result) {
  if (result.error) return result.error->domain != "http" || result.error->code != ECANCELED;
  const int status = result.response.statusCode;
  return status < 300 || status == 408 || status == 429 || status >= 500;
}

// "" for any URL that is not fetched.
std::string defaultPort(const foundation::Url& url) {
  const std::string scheme = asciiLowercased(url.scheme());
  if (scheme == "http") return "80";
  return scheme == "https" ? "443" : "";
}

std::string serverName(const foundation::Url& url) {
  const std::string port = url.port();
  return fmt::format("{}-{}-{}", asciiLowercased(url.scheme()), asciiLowercased(url.host()),
                     port.empty() ? defaultPort(url) : port);
}

// One name for a folder or file that is not hidden.
std::string visibleName(const std::string& name) {
  return name.starts_with('.') ? fmt::format("%{:016x}", Fnv::of(name)) : fileNameFor(name);
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
  const fs::path folder = folderAt(path);
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
  if (defaultPort(url).empty()) return {"", fmt::format("{} is no http or https URL", address)};
  // Hidden names are those of the notes.
  const KeptFile kept(folderAt(path) / visibleName(foundation::unwrap(url.lastPathComponent())));
  const auto condition = kept.conditionFor(url);
  const network::UrlResult result = requests.get(url, condition.value_or(network::HeaderFields{}));
  if (condition && !condition->empty() && !result.error && result.response.statusCode == 304) {
    diagnostic(fmt::format("file has not changed [{}]", kept.path().string()));
    return {kept.path().string(), ""};
  }
  std::string flaw = flawOf(result);
  if (flaw.empty()) {
    const auto error = kept.save(url, result.response, result.body);
    diagnostic(error ? "error saving file" : fmt::format("file saved [{}]", kept.path().string()));
    if (!error) return {kept.path().string(), ""};
    flaw = fmt::format("cannot be kept: {}", error->description);
  }
  if (!condition || !isPassing(result)) return {"", fmt::format("{} {}", address, flaw)};
  std::string remark = fmt::format("{} {}; the copy of an earlier load is used", address, flaw);
  diagnostic(remark);
  return {kept.path().string(), "", std::move(remark)};
}

std::string HttpDownloader::folderFor(const foundation::Url& url, std::string_view slug) {
  return serverName(url) + '/' + visibleName(std::string(slug));
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
    fs::remove_all(*root / fileNameFor(serverName(url)), failure);
}

}  // namespace orivanta
