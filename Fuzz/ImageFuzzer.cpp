// A picture file: what decodes is a picture that a PNG holds unchanged.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "Platform/Graphics/ImageFile.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
  using namespace orivanta::graphics;
  constexpr std::size_t mostPixelBytes = 1U << 20U;  // larger ones take long to write
  const auto image = decodeImage({bytes, count});
  if (!image || image->pixels().size() > mostPixelBytes) return 0;
  const auto again = decodeImage(encodePng(*image));
  if (!again || !std::equal(image->pixels().begin(), image->pixels().end(), again->pixels().begin(),
                            again->pixels().end()))
    std::abort();
  return 0;
}
