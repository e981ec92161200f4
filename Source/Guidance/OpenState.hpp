// Whether a place is open.
#pragma once

#include <cstdint>

namespace orivanta::guidance {

/// Whether a place is open.
enum class OpenState : std::uint8_t {
  open,    ///< open
  closed,  ///< closed
  unknown  ///< the text could not be read, or states nothing about this time
};

}  // namespace orivanta::guidance
