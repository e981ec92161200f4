# The build of the web port: the portable libraries, with the browser's adapters of the ports, and the
# module of Apps/Web.

add_compile_options(-fwasm-exceptions)
add_link_options(-fwasm-exceptions)
include(OrivantaWebDependencies)
include(OrivantaResources)

add_subdirectory(Platform/Foundation)
add_subdirectory(Platform/Network)
add_subdirectory(Source)
add_subdirectory(Apps/Planning)
add_subdirectory(Apps/Viewer/Content)
add_subdirectory(Apps/Web)
add_subdirectory(Tests/Web)
