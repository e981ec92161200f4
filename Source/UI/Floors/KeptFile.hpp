// A fetched file and the note of where it came from.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Network/HttpUrlResponse.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta {

/// The note is a hidden file beside the file, ".NAME.origin". Any thread; several processes may
/// save the same file at once: the note then agrees with the file, or the file counts for nothing.
class KeptFile {
 public:
  explicit KeptFile(std::filesystem::path file);

  const std::filesystem::path& path() const { return file_; }

  /// The fields of a request that is answered with 304 if the file has not changed, none if it must
  /// be fetched anyway. Nothing if there is no file, it came from another URL, or it is not, to the
  /// byte, what arrived.
  std::optional<network::HeaderFields> conditionFor(const foundation::Url& url) const;

  /// Replaces the file with the body of an answer, and writes the note. The text of an error begins
  /// with "cannot".
  foundation::Result<void> save(const foundation::Url& url,
                                const network::HttpUrlResponse& response,
                                std::string_view body) const;

 private:
  std::filesystem::path note() const;

  const std::filesystem::path file_;
};

}  // namespace orivanta
