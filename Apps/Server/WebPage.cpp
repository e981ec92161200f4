#include "Apps/Server/WebPage.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <boost/algorithm/string/predicate.hpp>
#include <memory>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "Apps/Server/ContentNegotiation.hpp"
#include "Apps/Server/ContentPolicies.hpp"
#include "Apps/Server/FileResponse.hpp"

namespace orivanta::server {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view hintPolicy = "default-src 'none'; style-src 'unsafe-inline'";

// {0} is the origin of the API.
constexpr std::string_view hintText =
    R"(This is a venue server of Orivanta. The root of its web API is {0}/1/

  {0}/1/venue    lists the venues

There is no web page here. In the source tree, this command builds the page and serves it:

  ./demo web

Another folder with an index.html is served at this address with:

  orivanta serve --web FOLDER
)";
constexpr std::string_view hintPage = R"(<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Orivanta venue server</title>
<style>
  :root {{ color-scheme: light dark; }}
  body {{ font: 1rem/1.5 system-ui, sans-serif; max-width: 40rem; margin: 3rem auto; padding: 0 1rem; }}
</style>
<h1>Orivanta venue server</h1>
<p>The root of the web API is <code>{0}/1/</code>. <a href="1/venue">/1/venue</a> lists the venues.</p>
<p>There is no web page here. In the source tree, <code>./demo web</code> builds the page and serves it. Another
folder with an <code>index.html</code> is served at this address with <code>orivanta serve --web FOLDER</code>.</p>
</html>
)";

// Types that packages do not have: a browser must not run what a package contains.
MediaType pageMediaTypeOf(std::string_view fileName) {
  static constexpr std::array<std::pair<std::string_view, MediaType>, 13> rows = {{
      {".html", {"text/html; charset=utf-8", true}},
      {".js", {"text/javascript; charset=utf-8", true}},
      {".mjs", {"text/javascript; charset=utf-8", true}},
      {".css", {"text/css; charset=utf-8", true}},
      {".wasm", {"application/wasm", true}},
      {".webmanifest", {"application/manifest+json", true}},
      {".map", {"application/json", true}},
      {".data", {"application/octet-stream", true}},
      {".mo", {"application/octet-stream", true}},
      {".woff2", {"font/woff2", false}},
      {".ttf", {"font/ttf", true}},
      {".otf", {"font/otf", true}},
      {".ico", {"image/x-icon", true}},
  }};
  for (const auto& [ending, type] : rows)
    if (boost::algorithm::iends_with(fileName, ending)) return type;
  return mediaTypeOf(fileName);
}

std::optional<PackageFile> openIn(const fs::path& folder, const std::vector<std::string>& segments,
                                  std::error_code& shortage) {
  std::error_code error;
  const fs::path resolved = fs::canonical(folder, error);
  shortage.clear();
  return error ? std::nullopt : PackageFile::open(resolved, segments, shortage);
}

void requirePage(const fs::path& folder) {
  const auto refuse = [&](const char* reason) {
    throw std::invalid_argument(fmt::format("{}: {}", folder.string(), reason));
  };
  std::error_code error;
  if (!fs::exists(folder, error)) refuse("the folder of the web page does not exist");
  if (!fs::is_directory(folder, error)) refuse("not a folder with a web page");
  if (!openIn(folder, {"index.html"}, error))
    refuse("the folder has no index.html that can be read");
}

Response hint(const Request& request, std::string_view origin) {
  const bool asPage = acceptsHtml(request.accept);
  std::string body = asPage ? fmt::format(hintPage, origin) : fmt::format(hintText, origin);
  std::string entityTag = entityTagOf(body);
  const auto representation =
      std::make_shared<const Representation>(Representation{std::move(body), std::move(entityTag)});
  return representationResponse(request, representation,
                                asPage ? "text/html; charset=utf-8" : "text/plain; charset=utf-8",
                                "Accept");
}

}  // namespace

WebPage::WebPage(std::optional<fs::path> folder, RepresentationCache& cache)
    : folder_(std::move(folder)), cache_(cache) {
  if (folder_) requirePage(*folder_);
}

bool WebPage::contains(const Target& target) const {
  const auto& path = target.path;
  return folder_ ? path.front() != "1" : path.size() == 1 && path.front().empty();
}

Response WebPage::respond(const Request& request, const Target& target,
                          std::string_view origin) const {
  Response response;
  if (auto refusal = methodRefusal(request)) {
    response = std::move(*refusal);
  } else {
    response = folder_ ? file(request, target) : hint(request, origin);
  }
  response.setHeader("Content-Security-Policy", folder_ ? pagePolicy : hintPolicy);
  return response;
}

Response WebPage::file(const Request& request, const Target& target) const {
  std::vector<std::string> segments = target.path;
  std::string& name = segments.back();
  if (name.empty()) name = "index.html";
  const MediaType type = pageMediaTypeOf(name);
  const bool isHashed = hasHashInName(name);
  std::error_code shortage;
  auto opened = openIn(*folder_, segments, shortage);
  std::optional<PackageFile> compressed;
  if (opened && type.isText && acceptsGzip(request.acceptEncoding)) {
    name += ".gz";
    compressed = openIn(*folder_, segments, shortage);
  }
  if (shortage) return unavailableResponse("The file cannot be opened at the moment.");
  if (!opened) return errorResponse(404, "The file does not exist. The venues are at /1/venue.");
  Response response = compressed ? compressedFileResponse(request, std::move(*compressed), type)
                                 : fileResponse(request, std::move(*opened), type, cache_);
  if (isHashed) response.setHeader("Cache-Control", "public, max-age=31536000, immutable");
  return response;
}

// Words and dates are no hashes. Mistaking a hash for a word only costs requests.
bool hasHashInName(std::string_view fileName) {
  const std::string_view stem = fileName.substr(0, fileName.rfind('.'));
  const std::size_t separator = stem.find_last_of("-.");
  if (separator == std::string_view::npos || separator == 0) return false;
  const std::string_view last = stem.substr(separator + 1);
  const auto contains = [&](std::string_view characters) {
    return last.find_first_of(characters) != std::string_view::npos;
  };
  const bool isWord = std::any_of(last.begin(), last.end(), [](char character) {
    return std::string_view("0123456789_").find(character) == std::string_view::npos &&
           ((character | 0x20) < 'a' || (character | 0x20) > 'z');
  });
  if (isWord || last.size() < 8 || !contains("0123456789")) return false;
  if (contains("ABCDEFGHIJKLMNOPQRSTUVWXYZ")) return last.size() == 8;
  return contains("abcdef") && !contains("ghijklmnopqrstuvwxyz_");
}

}  // namespace orivanta::server
