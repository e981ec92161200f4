// The head of an HTTP response: its URL, its status and its header fields.
// Public header.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Url.hpp"

namespace orivanta::network {

/// The head of an HTTP response.
struct ORIVANTA_API HttpUrlResponse {
  /// The URL of the response, after redirects and without credentials. Nothing if it is not a
  /// well-formed URL.
  std::optional<foundation::Url> url;
  int statusCode = 0;  ///< such as 200; 0 if there was no response
  /// Field names and values in the order of arrival. Names are spelled as the server sent them.
  std::vector<std::pair<std::string, std::string>> headerFields;

  /// Returns the value of a field. The case of the name is ignored. Several fields with the same
  /// name are joined with ", ". Returns nothing if there is no such field.
  std::optional<std::string> headerField(std::string_view name) const;
};

}  // namespace orivanta::network
