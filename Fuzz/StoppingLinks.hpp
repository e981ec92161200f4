// Detects inputs that fuzzers of links must skip.
#pragma once

#include <string>

#include "Source/HttpLink.hpp"

namespace orivanta::fuzz {

/// Whether a Link header has a parameter that is a single quote, which stops the program as
/// described in HttpLink.hpp.
inline bool linksStopTheProgram(const network::HttpUrlResponse& response) {
  const auto header = response.headerField("Link");
  if (!header) return false;
  for (const std::string& link : separateBy(",")(*header)) {
    const auto [uri, parameters] = takeFirst(separateBy(";")(link));
    for (const std::string& parameter : parameters)
      if (split("=")(parameter).second == "\"") return true;
  }
  return false;
}

}  // namespace orivanta::fuzz
