# Language level, warnings and sanitizers, the same for every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
include(GNUInstallDirs)

set(ORIVANTA_SANITIZER "" CACHE STRING "Empty, or the value of -fsanitize= for every target")
if(ORIVANTA_SANITIZER)
  add_compile_options(-fsanitize=${ORIVANTA_SANITIZER} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${ORIVANTA_SANITIZER})
  if(ORIVANTA_SANITIZER MATCHES undefined)
    # It opens a pipe to check an object's type, which fails if a test has used all descriptors.
    add_compile_options(-fno-sanitize=vptr)
  endif()
  if(ORIVANTA_SANITIZER MATCHES undefined AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # These check every memory access, as the address sanitizer does, and take a quarter of the compile
    # time. The fuzzers, which are compiled with clang, use them.
    add_compile_options(-fno-sanitize=null,object-size,alignment)
  endif()
  if(ORIVANTA_SANITIZER STREQUAL "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC warns about the fences in Boost.Asio, which the thread sanitizer does not support.
    add_compile_options(-Wno-tsan)
  endif()
endif()

# Linking a sanitized program takes ld several seconds and mold a fraction of one. Delivered programs are
# linked by the default linker.
find_program(ORIVANTA_MOLD mold)
mark_as_advanced(ORIVANTA_MOLD)
if(ORIVANTA_MOLD)
  add_link_options($<$<CONFIG:Debug>:-fuse-ld=mold>)
endif()

# Distances and costs are compared bit for bit, so no target may fuse a multiplication and an addition.
add_compile_options(-ffp-contract=off)

# For folders whose code runs only briefly: with the sanitizers, optimizing it takes longer than it saves.
macro(orivanta_sanitize_unoptimized)
  if(ORIVANTA_SANITIZER)
    add_compile_options($<$<CONFIG:Debug>:-O0>)
  endif()
endmacro()

# orivanta_library(name FILES...): one static library per folder, with the project's warnings.
function(orivanta_library name)
  add_library(${name} STATIC ${ARGN})
  orivanta_warnings(${name})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${name} PRIVATE ORIVANTA_BUILDING)
  # Parsing these headers is a fifth of a file's compile time. Only the builds for tests precompile them:
  # the others, and clang-tidy, find headers that a file fails to include.
  list(LENGTH ARGN count)
  if(ORIVANTA_SANITIZER AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND count GREATER 7)
    target_precompile_headers(
      ${name} PRIVATE <algorithm> <cmath> <functional> <map> <memory> <mutex> <optional> <set> <span>
      <string> <string_view> <unordered_map> <utility> <variant> <vector>)
  endif()
endfunction()

function(orivanta_warnings name)
  target_compile_options(${name} PRIVATE -Wall -Wextra -Wconversion -Wshadow -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports impossible overlaps inside std::string's operator+ (GCC bug 105651).
    target_compile_options(${name} PRIVATE -Wno-restrict)
  endif()
endfunction()
