# Language level, warnings and sanitizers, the same for every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
if(NOT EMSCRIPTEN)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
endif()
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

# For folders whose code uses one thread: the thread sanitizer would find nothing there, and its build
# compiles this code only because programs link it.
macro(orivanta_single_threaded)
  if(ORIVANTA_SANITIZER MATCHES thread)
    add_compile_options(-fno-sanitize=thread $<$<CONFIG:Debug>:-O0>)
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
  orivanta_compile_in_groups(${name} ${ARGN})
endfunction()

# orivanta_adapters(port NATIVE libraries... BROWSER libraries...): links the adapters of a port, which
# define what its headers declare, for the platform that the build is for.
function(orivanta_adapters port)
  cmake_parse_arguments(PARSE_ARGV 1 adapters "" "" "NATIVE;BROWSER")
  if(EMSCRIPTEN)
    target_link_libraries(${port} PRIVATE ${adapters_BROWSER})
  else()
    target_link_libraries(${port} PRIVATE ${adapters_NATIVE})
  endif()
endfunction()

# orivanta_compile_in_groups(name FILES...): in the builds for tests, compiles several files of a target at once,
# which parses their common headers once. The other builds compile each file by itself: that is faster after
# a change, and finds headers that a file fails to include. A local name that hides one of a header may be
# ambiguous in a group: give it another name.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
function(orivanta_compile_in_groups name)
  if(NOT ORIVANTA_SANITIZER)
    return()
  endif()
  set(files ${ARGN})
  list(FILTER files INCLUDE REGEX "\\.cpp$")
  list(TRANSFORM files PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ REGEX "^[^/]")
  list(FILTER files EXCLUDE REGEX "^${PROJECT_BINARY_DIR}/")
  execute_process(
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/cmake/source_groups.py 10 ${files}
    OUTPUT_VARIABLE groups
    COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[0-9]+" groups "${groups}")
  foreach(file group IN ZIP_LISTS files groups)
    set_source_files_properties(${file} PROPERTIES UNITY_GROUP ${group})
  endforeach()
  set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  # Names that only share a group do not shadow each other, and a private type may have local parts.
  target_compile_options(${name} PRIVATE -Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
  if(ORIVANTA_SANITIZER MATCHES thread)
    # With this sanitizer and much inlining, GCC 12 warns about code that is right.
    target_compile_options(${name} PRIVATE -Wno-array-bounds -Wno-clobbered -Wno-stringop-overflow)
  endif()
endfunction()

function(orivanta_warnings name)
  if(EMSCRIPTEN)
    # The native compilers check the same files more strictly. -Wconversion would complain about the
    # numbers of 64 bits in files and answers, since here std::size_t has 32 bits.
    target_compile_options(${name} PRIVATE -Wall -Wextra)
    return()
  endif()
  target_compile_options(${name} PRIVATE -Wall -Wextra -Wconversion -Wshadow -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports impossible overlaps inside std::string's operator+ (GCC bug 105651).
    target_compile_options(${name} PRIVATE -Wno-restrict)
  endif()
endfunction()
