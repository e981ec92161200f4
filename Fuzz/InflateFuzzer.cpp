// Decompresses the input with a limit.
#include "Fuzz/Fuzzer.hpp"
#include "Platform/Network/Curl/Inflate.hpp"

namespace orivanta::network {
namespace {

void inflateWithinLimit(std::string_view input) {
  constexpr std::size_t largestBytes = 100'000;
  const auto inflated = gunzipped(input, largestBytes);
  ORIVANTA_REQUIRE(!inflated || inflated->size() <= largestBytes);
}

}  // namespace
}  // namespace orivanta::network

ORIVANTA_FUZZER(Inflate, orivanta::network::inflateWithinLimit)
