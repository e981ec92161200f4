# The toolchain of the preset "web": Debian's emscripten, which compiles to WebAssembly.
#
# Its system libraries are part of the package. EM_FROZEN_CACHE makes the compiler use them as they are, so
# that it neither needs a writable cache nor locks one.
set(ENV{EM_FROZEN_CACHE} 1)
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
