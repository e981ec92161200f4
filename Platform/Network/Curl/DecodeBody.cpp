#include "Platform/Network/BuiltInTransport.hpp"

#include <strings.h>

#include <utility>

#include "Platform/Network/Curl/Inflate.hpp"

namespace orivanta::network {

namespace {

constexpr std::size_t largestDecodedBytes = 512U << 20U;

}  // namespace

foundation::Result<void> decodeBody(UrlAnswer& answer) {
  const auto encoding = answer.response.headerField("Content-Encoding");
  if (answer.body.empty() || !encoding || strcasecmp(encoding->c_str(), "identity") == 0) return {};
  if (strcasecmp(encoding->c_str(), "gzip") != 0 && strcasecmp(encoding->c_str(), "x-gzip") != 0)
    return foundation::failure("http", 1, "unknown content encoding \"" + *encoding + "\"");
  auto bytes = gunzipped(answer.body, largestDecodedBytes, answer.share.get());
  if (!bytes) return foundation::failure("http", 2, "damaged or oversized compressed body");
  answer.body = std::move(*bytes);
  return {};
}

}  // namespace orivanta::network
