#include "Platform/Network/HttpUrlResponse.hpp"

#include <strings.h>

namespace orivanta::network {

std::optional<std::string> HttpUrlResponse::headerField(std::string_view name) const {
  std::optional<std::string> joined;
  for (const auto& [fieldName, value] : headerFields) {
    if (fieldName.size() != name.size() ||
        strncasecmp(fieldName.data(), name.data(), name.size()) != 0)
      continue;
    if (joined)
      *joined += ", " + value;
    else
      joined = value;
  }
  return joined;
}

}  // namespace orivanta::network
