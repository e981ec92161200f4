// The web page at "/": the files of a folder, or a text that says how to make one.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "Apps/Server/Message.hpp"
#include "Apps/Server/RepresentationCache.hpp"
#include "Apps/Server/UrlText.hpp"

namespace orivanta::server {

/// Serves the files of a folder as `PackageFile::open` finds them; "/" and other paths that end
/// with a slash are the index.html of their folder. Everybody may read the files. They never
/// replace the API: paths that begin with "/1" do not belong to the page.
///
/// Texts and WebAssembly are compressed. If there is a file with ".gz" at the end of its name, this
/// file is sent instead. Browsers keep files with a hash in their names, such as
/// "index-BfC4v9aK.js", and ask each time whether another one has changed.
class WebPage {
 public:
  /// Without a folder, only "/" exists, and says how to make a page. Throws `std::invalid_argument`
  /// if the folder does not exist or has no index.html that can be read. Compressed files are kept
  /// in `cache`, which must outlive the object.
  WebPage(std::optional<std::filesystem::path> folder, RepresentationCache& cache);

  /// Whether the path belongs to the page and not to the API.
  bool contains(const Target& target) const;

  /// Thread-safe. The response to a GET or HEAD request for a path that `contains` accepts.
  /// `origin` is that of the API. All responses have a Content-Security-Policy.
  Response respond(const Request& request, const Target& target, std::string_view origin) const;

 private:
  Response file(const Request& request, const Target& target) const;

  // Resolved for every request, because it may be a link that is changed to a newer page.
  std::optional<std::filesystem::path> folder_;
  RepresentationCache& cache_;
};

/// Whether the name of a file contains a hash of its contents, as the tools that bundle web pages
/// write it: 8 or more characters between the last "-" or "." before the ending and the ending.
bool hasHashInName(std::string_view fileName);

}  // namespace orivanta::server
