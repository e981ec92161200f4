# The two shared libraries that applications link, with and without graphics; their headers, their
# CMake package and their pkg-config files.

add_library(orivanta SHARED)
target_sources(
  orivanta PRIVATE $<TARGET_OBJECTS:orivanta_foundation> $<TARGET_OBJECTS:orivanta_network>
                   $<TARGET_OBJECTS:orivanta_network_curl> $<TARGET_OBJECTS:orivanta_source>)
set_target_properties(orivanta PROPERTIES LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION}
                                          SOVERSION ${PROJECT_VERSION_MAJOR})
target_link_libraries(
  orivanta
  PUBLIC tl::expected tsl::ordered_map
  PRIVATE Boost::json CURL::libcurl PkgConfig::plist PkgConfig::utf8proc Threads::Threads ZLIB::ZLIB
          fmt::fmt uriparser::uriparser)
# Headers name each other from the root of the project, which is `include/orivanta` when installed.
target_include_directories(
  orivanta
  PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
         $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
         $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/orivanta>)
target_compile_features(orivanta PUBLIC cxx_std_20)
add_library(orivanta::orivanta ALIAS orivanta)

add_library(orivanta-ui SHARED)
target_sources(
  orivanta-ui
  PRIVATE $<TARGET_OBJECTS:orivanta_graphics>
          $<TARGET_OBJECTS:orivanta_graphics_text>
          $<TARGET_OBJECTS:orivanta_scene>
          $<TARGET_OBJECTS:orivanta_scene_obj>
          $<TARGET_OBJECTS:orivanta_sprite>
          $<TARGET_OBJECTS:orivanta_view>
          $<TARGET_OBJECTS:orivanta_render>
          $<TARGET_OBJECTS:orivanta_render_offscreen>
          $<TARGET_OBJECTS:orivanta_ui>)
set_target_properties(orivanta-ui PROPERTIES LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION}
                                             SOVERSION ${PROJECT_VERSION_MAJOR} EXPORT_NAME ui
                                             INSTALL_RPATH "$ORIGIN")
target_link_libraries(
  orivanta-ui
  PUBLIC orivanta glm::glm
  PRIVATE JPEG::JPEG PNG::PNG PkgConfig::epoxy PkgConfig::pangocairo fmt::fmt)
add_library(orivanta::ui ALIAS orivanta-ui)

include(CMakePackageConfigHelpers)
set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/orivanta)

install(TARGETS orivanta orivanta-ui EXPORT orivantaTargets)
install(EXPORT orivantaTargets NAMESPACE orivanta:: DESTINATION ${packageFolder})
install(FILES include/orivanta/orivanta.hpp include/orivanta/ui.hpp DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orivanta)
# Every header that the two umbrella headers reach, and no other; Tests/Install/check holds it.
foreach(
  header IN
  ITEMS Platform/Foundation/Bundle.hpp
        Platform/Foundation/Cancellation.hpp
        Platform/Foundation/Diagnostics.hpp
        Platform/Foundation/Error.hpp
        Platform/Foundation/Executor.hpp
        Platform/Foundation/Export.hpp
        Platform/Foundation/MainQueue.hpp
        Platform/Foundation/MemoryBudget.hpp
        Platform/Foundation/ResourceBundle.hpp
        Platform/Foundation/Result.hpp
        Platform/Foundation/Screen.hpp
        Platform/Foundation/SerialQueue.hpp
        Platform/Foundation/Url.hpp
        Platform/Graphics/Color.hpp
        Platform/Graphics/Geometry.hpp
        Platform/Graphics/Image.hpp
        Platform/Graphics/ImageFile.hpp
        Platform/Graphics/Text.hpp
        Platform/Graphics/Transaction.hpp
        Platform/Graphics/Vector.hpp
        Platform/Network/AwaitedRequests.hpp
        Platform/Network/DefaultTransport.hpp
        Platform/Network/HttpUrlResponse.hpp
        Platform/Network/TransferRules.hpp
        Platform/Network/UrlSession.hpp
        Platform/Network/UrlTransport.hpp
        Platform/Render/FrameStatistics.hpp
        Platform/Render/Offscreen/OffscreenSurface.hpp
        Platform/Render/Renderer.hpp
        Platform/Scene/Camera.hpp
        Platform/Scene/Fwd.hpp
        Platform/Scene/Geometry.hpp
        Platform/Scene/KeyframeAnimation.hpp
        Platform/Scene/Light.hpp
        Platform/Scene/Material.hpp
        Platform/Scene/Node.hpp
        Platform/Scene/ParticleSystem.hpp
        Platform/Scene/Scene.hpp
        Platform/Scene/Shapes.hpp
        Platform/Sprite/Node.hpp
        Platform/Sprite/Scene.hpp
        Platform/View/ActivityIndicatorView.hpp
        Platform/View/Canvas.hpp
        Platform/View/Coder.hpp
        Platform/View/ContinuousGestureRecognizer.hpp
        Platform/View/Fwd.hpp
        Platform/View/GestureRecognizer.hpp
        Platform/View/ImageView.hpp
        Platform/View/LayoutConstraint.hpp
        Platform/View/PanGestureRecognizer.hpp
        Platform/View/PinchGestureRecognizer.hpp
        Platform/View/RotationGestureRecognizer.hpp
        Platform/View/SceneView.hpp
        Platform/View/TapGestureRecognizer.hpp
        Platform/View/Touch.hpp
        Platform/View/TouchDispatcher.hpp
        Platform/View/View.hpp
        Source/ActiveVenue.hpp
        Source/ApiSettings.hpp
        Source/Attribution.hpp
        Source/Category.hpp
        Source/CollectionHelpers.hpp
        Source/Collections.hpp
        Source/Directions.hpp
        Source/Edge.hpp
        Source/Fwd.hpp
        Source/Guidance/Floors.hpp
        Source/Guidance/FloorVisits.hpp
        Source/Guidance/NameMatch.hpp
        Source/Guidance/PathWalk.hpp
        Source/Guidance/PlaceNames.hpp
        Source/Guidance/PlaceSearch.hpp
        Source/HttpLink.hpp
        Source/HttpSession.hpp
        Source/ImageCollection.hpp
        Source/LoadReport.hpp
        Source/Location.hpp
        Source/Map.hpp
        Source/NavigationGraph.hpp
        Source/Node.hpp
        Source/NodeList.hpp
        Source/Orivanta.hpp
        Source/Polygon.hpp
        Source/RawData.hpp
        Source/Record.hpp
        Source/Route.hpp
        Source/RouteSearch.hpp
        Source/UI/AssetLoader.hpp
        Source/UI/Display/CameraPose.hpp
        Source/UI/Display/Framing.hpp
        Source/UI/Display/LabelLayer.hpp
        Source/UI/Display/MapCamera.hpp
        Source/UI/Display/MarkColors.hpp
        Source/UI/Display/RouteOverlay.hpp
        Source/UI/FloorLoad.hpp
        Source/UI/MapDownloader.hpp
        Source/UI/MapView.hpp
        Source/UI/MapViewDelegate.hpp
        Source/UI/MapViewDirections.hpp
        Source/UI/MapViewMarker.hpp
        Source/UI/MapViewMarker2D.hpp
        Source/UI/MapViewMessages.hpp
        Source/UI/MapViewOverlay2D.hpp
        Source/UI/MarkerImages.hpp
        Source/Venue.hpp
        Source/Vortex.hpp
        Source/WebApi.hpp)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orivanta/${folder})
endforeach()

configure_package_config_file(cmake/orivantaConfig.cmake.in orivantaConfig.cmake
                              INSTALL_DESTINATION ${packageFolder})
write_basic_package_version_file(orivantaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/orivantaConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/orivantaConfigVersion.cmake
        DESTINATION ${packageFolder})

configure_file(cmake/orivanta.pc.in orivanta.pc @ONLY)
configure_file(cmake/orivanta-ui.pc.in orivanta-ui.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/orivanta.pc ${CMAKE_CURRENT_BINARY_DIR}/orivanta-ui.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
