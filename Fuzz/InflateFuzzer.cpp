// A compressed body with a limit.
#include <cstdint>
#include <cstdlib>

#include "Platform/Network/Curl/Inflate.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
  constexpr std::size_t largestBytes = 100'000;
  const auto inflated =
      orivanta::network::gunzipped({reinterpret_cast<const char*>(bytes), count}, largestBytes);
  if (inflated && inflated->size() > largestBytes) std::abort();
  return 0;
}
