# The two shared libraries for applications, with and without graphics, and their headers, CMake package
# and pkg-config files.

# The library's file name changes when programs must be rebuilt: with each minor version before 1.0, and
# with each major version from then on.
set(ORIVANTA_ABI ${PROJECT_VERSION_MAJOR})
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(ORIVANTA_ABI 0.${PROJECT_VERSION_MINOR})
endif()

# orivanta_shared_library(name component libraries...): combines static libraries into a shared one.
function(orivanta_shared_library name component)
  add_library(${name} SHARED)
  foreach(part IN LISTS ARGN)
    target_sources(${name} PRIVATE $<TARGET_OBJECTS:${part}>)
  endforeach()
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION}
                                           SOVERSION ${ORIVANTA_ABI} INSTALL_RPATH "$ORIGIN")
  target_include_directories(
    ${name} INTERFACE $<BUILD_INTERFACE:${ORIVANTA_INCLUDE_FOLDER}>
                      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  add_dependencies(${name} orivanta_headers)
  install(
    TARGETS ${name}
    EXPORT orivantaTargets
    LIBRARY COMPONENT ${component} NAMELINK_COMPONENT development)
endfunction()

orivanta_shared_library(
  orivanta
  library
  orivanta_foundation
  orivanta_foundation_fast_float
  orivanta_foundation_linux
  orivanta_foundation_plist
  orivanta_foundation_threads
  orivanta_network
  orivanta_network_curl
  orivanta_source)
target_link_libraries(
  orivanta
  PUBLIC tl::expected tsl::ordered_map
  PRIVATE Boost::json CURL::libcurl PkgConfig::plist PkgConfig::utf8proc Threads::Threads ZLIB::ZLIB
          fmt::fmt)
add_library(orivanta::orivanta ALIAS orivanta)

orivanta_shared_library(
  orivanta-ui
  view-library
  orivanta_graphics
  orivanta_graphics_pango
  orivanta_graphics_png_jpeg
  orivanta_scene
  orivanta_scene_obj
  orivanta_sprite
  orivanta_view
  orivanta_render
  orivanta_render_offscreen
  orivanta_style
  orivanta_ui)
set_target_properties(orivanta-ui PROPERTIES EXPORT_NAME ui)
target_link_libraries(
  orivanta-ui
  PUBLIC orivanta glm::glm
  PRIVATE Boost::json JPEG::JPEG PNG::PNG PkgConfig::epoxy PkgConfig::pangocairo PkgConfig::utf8proc fmt::fmt)
add_library(orivanta::ui ALIAS orivanta-ui)

# Builds everything that is installed. Other folders add their targets with add_dependencies.
add_custom_target(orivanta_product)
add_dependencies(orivanta_product orivanta orivanta-ui)

include(CMakePackageConfigHelpers)
set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/orivanta)
configure_package_config_file(cmake/orivantaConfig.cmake.in orivantaConfig.cmake
                              INSTALL_DESTINATION ${packageFolder})
write_basic_package_version_file(orivantaConfigVersion.cmake COMPATIBILITY SameMinorVersion)

# The pkg-config files compute the prefix from their location.
file(RELATIVE_PATH ORIVANTA_PREFIX_FROM_PKGCONFIG ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
     ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/orivanta.pc.in orivanta.pc @ONLY)
configure_file(cmake/orivanta-ui.pc.in orivanta-ui.pc @ONLY)

install(EXPORT orivantaTargets NAMESPACE orivanta:: DESTINATION ${packageFolder}
        COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/orivantaConfig.cmake
              ${PROJECT_BINARY_DIR}/orivantaConfigVersion.cmake
        DESTINATION ${packageFolder} COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/orivanta.pc ${PROJECT_BINARY_DIR}/orivanta-ui.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
install(DIRECTORY ${ORIVANTA_INCLUDE_FOLDER}/orivanta DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        COMPONENT development)
