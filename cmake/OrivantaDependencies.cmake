# All libraries come from Debian packages, which Scripts/setup installs.

find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)
find_package(CURL REQUIRED)
find_package(Boost 1.81 REQUIRED COMPONENTS json)
find_package(fmt REQUIRED)
find_package(FastFloat REQUIRED)
find_package(tl-expected REQUIRED)
find_package(tsl-ordered-map REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(plist REQUIRED IMPORTED_TARGET libplist-2.0)
pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc)

# Boost.Asio as the whole project uses it: header only, without its deprecated parts.
add_library(orivanta_asio INTERFACE)
target_link_libraries(orivanta_asio INTERFACE Boost::headers Threads::Threads)
target_compile_definitions(orivanta_asio INTERFACE BOOST_ASIO_NO_DEPRECATED
                                                   BOOST_BEAST_USE_STD_STRING_VIEW)
# The thread sanitizer does not support stand-alone fences. Mutexes guard Asio's queues as well.
if(ORIVANTA_SANITIZER MATCHES thread)
  target_compile_definitions(orivanta_asio INTERFACE BOOST_ASIO_DISABLE_FENCED_BLOCK)
endif()

find_package(GIF REQUIRED)
find_package(glm REQUIRED)
find_package(JPEG REQUIRED)
find_package(PNG REQUIRED)
pkg_check_modules(pangocairo REQUIRED IMPORTED_TARGET pangocairo harfbuzz)
pkg_check_modules(epoxy REQUIRED IMPORTED_TARGET epoxy egl)
pkg_check_modules(sdl2 REQUIRED IMPORTED_TARGET sdl2)

# For importing buildings.
if((ORIVANTA_BUILD_APPS AND ORIVANTA_BUILD_COMMAND) OR ORIVANTA_BUILD_FUZZERS)
  pkg_check_modules(geos REQUIRED IMPORTED_TARGET geos)
  pkg_check_modules(libzip REQUIRED IMPORTED_TARGET libzip)
  pkg_check_modules(pugixml REQUIRED IMPORTED_TARGET pugixml)
  pkg_check_modules(shapelib REQUIRED IMPORTED_TARGET shapelib)
endif()
