// A fetched file and the note of where it came from.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "Platform/Foundation/Error.hpp"
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

  /// Puts the body of an answer in the file's place, and makes the note. The error says why not;
  /// its text begins with "cannot".
  std::optional<foundation::Error> save(const foundation::Url& url,
                                        const network::HttpUrlResponse& response,
                                        std::string_view body) const;

 private:
  std::filesystem::path note() const;

  const std::filesystem::path file_;
};

}  // namespace orivanta
