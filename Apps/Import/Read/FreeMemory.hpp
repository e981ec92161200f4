// Returns freed memory to the system.
#pragma once

#include <cstddef>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace orivanta::importer {

/// Readers free more than the building takes, in pieces that later work can hardly use. Takes a few
/// milliseconds. Does nothing where the C library cannot do it.
inline void releaseFreeMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

}  // namespace orivanta::importer
