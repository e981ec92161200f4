// Inputs that fuzzers of links pass over.
#pragma once

#include <string>

#include "Source/HttpLink.hpp"

namespace orivanta::fuzz {

/// Whether a response's Link field has a parameter of a single quote, which stops the program, as
/// HttpLink.hpp says.
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
