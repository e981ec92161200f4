// Where grapheme clusters end: Unicode Standard Annex #29, "Unicode Text Segmentation".
#pragma once

#include <cstdint>

namespace orivanta::unicode {

/// Returns whether a grapheme cluster may end between two neighboring code points. `state` is 0 for
/// the first pair of a text. The function updates it, so call the function for each pair in order.
bool isGraphemeBreak(std::int32_t first, std::int32_t second, std::int32_t& state);

}  // namespace orivanta::unicode
