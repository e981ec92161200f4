# The libraries of the web port. Those of Debian are compiled for the host, so only their headers can be
# used, and the parts that are not headers are compiled or replaced here. Targets have the names that they
# have natively.

set(headers ${PROJECT_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
# The compiler must not see the host's C library, so its include path has links to single libraries.
foreach(name boost fmt glm stb tl tsl utf8proc.h xxhash.h)
  if(NOT EXISTS /usr/include/${name})
    message(FATAL_ERROR "/usr/include/${name} is missing: run Scripts/setup and Scripts/setup-web.")
  endif()
  file(CREATE_LINK /usr/include/${name} ${headers}/${name} SYMBOLIC)
endforeach()

# orivanta_headers_of(TARGET [DEFINITION...]): a library of headers.
function(orivanta_headers_of target)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  set_target_properties(${target} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${headers}
                                             INTERFACE_SYSTEM_INCLUDE_DIRECTORIES ${headers})
  target_compile_definitions(${target} INTERFACE ${ARGN})
endfunction()
orivanta_headers_of(Boost::headers)
# Nothing formats with a locale, nor floats, long doubles or integers of 128 bits. Their code is large.
orivanta_headers_of(fmt::fmt FMT_HEADER_ONLY FMT_STATIC_THOUSANDS_SEPARATOR=44 FMT_USE_FLOAT=0
                    FMT_USE_LONG_DOUBLE=0 FMT_USE_INT128=0)
orivanta_headers_of(glm::glm)
orivanta_headers_of(tl::expected)
orivanta_headers_of(tsl::ordered_map)

# Boost.JSON as a single unit, without shared libraries.
add_library(orivanta_boost_json STATIC ${PROJECT_SOURCE_DIR}/Platform/Foundation/Browser/BoostJson.cpp)
target_link_libraries(orivanta_boost_json PRIVATE fmt::fmt)
target_include_directories(orivanta_boost_json SYSTEM PUBLIC ${headers})
add_library(Boost::json ALIAS orivanta_boost_json)

# Asio is used for its data types only; there are no threads and no sockets.
add_library(orivanta_asio INTERFACE)
target_link_libraries(orivanta_asio INTERFACE Boost::headers)
target_compile_definitions(orivanta_asio INTERFACE BOOST_ASIO_NO_DEPRECATED BOOST_ASIO_DISABLE_THREADS)

# The functions of utf8proc that the project uses.
add_subdirectory(Platform/Unicode)
add_library(PkgConfig::utf8proc ALIAS orivanta_unicode)
