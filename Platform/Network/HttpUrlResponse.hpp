// The head of an HTTP response: where it came from, its status and its header fields.
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
  /// The URL that answered, after redirects and without credentials; nothing if it is not a
  /// well-formed URL.
  std::optional<foundation::Url> url;
  int statusCode = 0;  ///< such as 200; 0 if there was no response
  /// Field names and values in the order of arrival, names as the server spelt them.
  std::vector<std::pair<std::string, std::string>> headerFields;

  /// The value of a field, whatever the case of its name; several fields of one name are joined
  /// with ", ". Nothing when there is none.
  std::optional<std::string> headerField(std::string_view name) const;
};

}  // namespace orivanta::network
