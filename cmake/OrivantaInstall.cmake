# The shared library that applications link, its headers, its CMake package and its pkg-config file.

add_library(orivanta SHARED)
target_sources(
  orivanta PRIVATE $<TARGET_OBJECTS:orivanta_foundation> $<TARGET_OBJECTS:orivanta_network>
                   $<TARGET_OBJECTS:orivanta_network_curl> $<TARGET_OBJECTS:orivanta_source>)
set_target_properties(orivanta PROPERTIES LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION}
                                          SOVERSION ${PROJECT_VERSION_MAJOR})
target_link_libraries(
  orivanta
  PUBLIC tsl::ordered_map
  PRIVATE Boost::json CURL::libcurl PkgConfig::plist Threads::Threads ZLIB::ZLIB fmt::fmt
          uriparser::uriparser)
# Headers name each other from the root of the project, which is `include/orivanta` when installed.
target_include_directories(
  orivanta
  PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
         $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
         $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/orivanta>)
target_compile_features(orivanta PUBLIC cxx_std_20)
add_library(orivanta::orivanta ALIAS orivanta)
