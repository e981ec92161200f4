// A cached file and the note of its origin.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/HttpUrlResponse.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta {

/// Returns the folder in the caches directory that `path` names: names separated by slashes. Names
/// that are not valid file names are replaced, so that the folder is never outside. A user without
/// a caches directory is a fatal error.
std::filesystem::path cacheFolderAt(std::string_view path);

/// The note is a hidden file next to the file, ".NAME.origin". Any thread. Several
/// processes may save the same file concurrently; if the note then does not match the file, the
/// file is ignored.
class KeptFile {
 public:
  explicit KeptFile(std::filesystem::path file);

  /// Returns the file of a URL in the folder `path`; see `cacheFolderAt`. A URL without a last path
  /// component is a fatal error.
  static KeptFile of(const foundation::Url& url, std::string_view path);

  const std::filesystem::path& path() const { return file_; }

  /// Returns the request fields for which the server responds with 304 if the file has not changed;
  /// no fields if the file must be fetched again anyway. Returns nothing if there is no file, it
  /// came from another URL, or its content was changed after it was saved.
  std::optional<network::HeaderFields> conditionFor(const foundation::Url& url) const;

  /// Replaces the file with the body of a response, and writes the note. The text of an error
  /// begins with "cannot".
  foundation::Result<void> save(const foundation::Url& url,
                                const network::HttpUrlResponse& response,
                                std::string_view body) const;

 private:
  std::filesystem::path note() const;

  const std::filesystem::path file_;
};

}  // namespace orivanta
