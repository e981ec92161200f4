# The build of the web port: the portable libraries, with the browser's adapters of the ports, and the
# module of Apps/Web.

# Every browser that has these exceptions also has the other extensions, which make the module smaller.
add_compile_options(-fwasm-exceptions -mbulk-memory -mnontrapping-fptoint -msign-ext)
# With -Oz, emcc asks the compiler to inline nothing, which leaves a call and a function for each accessor.
add_compile_options(-finline-functions)
# std::function without a table of virtual functions and a name for each type. No library was compiled with
# another kind.
add_compile_definitions(_LIBCPP_ABI_OPTIMIZED_FUNCTION _LIBCPP_NO_RTTI)
# Optimizing all units together makes the module smaller by 4 percent; linking it takes a minute. Higher levels
# optimize for time, and make it larger by 2 percent.
add_compile_options(-flto)
add_link_options(-flto -Wl,--lto-O1 -fwasm-exceptions)
include(OrivantaWebDependencies)
include(OrivantaResources)

add_subdirectory(Platform/Foundation)
add_subdirectory(Platform/Network)
add_subdirectory(Platform/Graphics)
add_subdirectory(Platform/Scene)
add_subdirectory(Platform/Scene/Obj)
add_subdirectory(Platform/Sprite)
add_subdirectory(Platform/View)
add_subdirectory(Platform/Render)
add_subdirectory(Source)
add_subdirectory(Source/UI/Style)
add_subdirectory(Source/UI)
add_subdirectory(Apps/Planning)
add_subdirectory(Apps/Viewer/Content)
add_subdirectory(Apps/Web)
add_subdirectory(Tests/Web)
