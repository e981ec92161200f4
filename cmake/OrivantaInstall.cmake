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

include(CMakePackageConfigHelpers)
set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/orivanta)

install(TARGETS orivanta EXPORT orivantaTargets)
install(EXPORT orivantaTargets NAMESPACE orivanta:: DESTINATION ${packageFolder})
install(FILES include/orivanta/orivanta.hpp DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orivanta)
# Every header that the umbrella header reaches, and no other.
install(
  FILES Platform/Foundation/Bundle.hpp
        Platform/Foundation/Diagnostics.hpp
        Platform/Foundation/Error.hpp
        Platform/Foundation/Export.hpp
        Platform/Foundation/Screen.hpp
        Platform/Foundation/SerialQueue.hpp
        Platform/Foundation/Url.hpp
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orivanta/Platform/Foundation)
install(
  FILES Platform/Network/HttpUrlResponse.hpp Platform/Network/UrlSession.hpp
        Platform/Network/UrlTransport.hpp
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orivanta/Platform/Network)
install(
  FILES Source/Category.hpp
        Source/CollectionHelpers.hpp
        Source/Directions.hpp
        Source/Fwd.hpp
        Source/HttpLink.hpp
        Source/HttpSession.hpp
        Source/ImageCollection.hpp
        Source/Location.hpp
        Source/Map.hpp
        Source/NavigationGraph.hpp
        Source/Node.hpp
        Source/Orivanta.hpp
        Source/Polygon.hpp
        Source/RawData.hpp
        Source/Record.hpp
        Source/RouteSearch.hpp
        Source/Venue.hpp
        Source/Vortex.hpp
        Source/WebApi.hpp
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orivanta/Source)

configure_package_config_file(cmake/orivantaConfig.cmake.in orivantaConfig.cmake
                              INSTALL_DESTINATION ${packageFolder})
write_basic_package_version_file(orivantaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/orivantaConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/orivantaConfigVersion.cmake
        DESTINATION ${packageFolder})

configure_file(cmake/orivanta.pc.in orivanta.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/orivanta.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
