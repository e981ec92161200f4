# Installs the licenses of each part, and configures the Debian packages: after building the target
# orivanta_product, `cpack -G DEB` in the build folder writes one package for each part.

# orivanta_part(component package licenses): installs the license file of a part where Debian expects that
# of the package. `licenses` is the name of the part for cmake/gather-licenses.
function(orivanta_part component package licenses)
  set(file ${PROJECT_BINARY_DIR}/licenses/${package}/copyright)
  add_custom_command(
    OUTPUT ${file}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/licenses/${package}
    COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/cmake/gather-licenses ${licenses} ${file}
    DEPENDS ${PROJECT_SOURCE_DIR}/cmake/gather-licenses ${PROJECT_SOURCE_DIR}/DEPENDENCIES.md
            ${PROJECT_SOURCE_DIR}/LICENSE
    COMMENT "Gathering the licenses of ${package}"
    VERBATIM)
  add_custom_target(orivanta_licenses_${component} ALL DEPENDS ${file})
  add_dependencies(orivanta_product orivanta_licenses_${component})
  install(FILES ${file} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})

  string(TOUPPER ${component} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package} PARENT_SCOPE)
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
endfunction()

set(library liborivanta${ORIVANTA_ABI})
set(viewLibrary liborivanta-ui${ORIVANTA_ABI})
set(CPACK_COMPONENTS_ALL)
orivanta_part(library ${library} liborivanta)
orivanta_part(view-library ${viewLibrary} liborivanta-ui)
orivanta_part(development liborivanta-dev liborivanta-ui)
if(TARGET orivanta_command)
  orivanta_part(tools orivanta orivanta)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orivanta)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
# Debian requires an address. The top-level domain "invalid" is reserved (RFC 2606), so that this address
# reaches nobody; whoever publishes packages sets their own.
set(ORIVANTA_PACKAGE_CONTACT "Orivanta developers <orivanta@packages.invalid>"
    CACHE STRING "Maintainer of the Debian packages: a name and an address")
set(CPACK_PACKAGE_CONTACT ${ORIVANTA_PACKAGE_CONTACT})
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)

set(thisVersion "(= ${PROJECT_VERSION})")
# OpenGL ES and a font are loaded at run time, so they are not among the linked libraries.
set(drawing "libegl1, libgles2, fonts-dejavu-core")
set(CPACK_DEBIAN_VIEW-LIBRARY_PACKAGE_DEPENDS "${library} ${thisVersion}, ${drawing}")
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${drawing}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${library} ${thisVersion}, ${viewLibrary} ${thisVersion}, libexpected-dev, libglm-dev, libtsl-ordered-map-dev")

set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "Indoor venue maps: data and routes
 Loads venues of a web API and finds routes in them.")
set(CPACK_COMPONENT_VIEW-LIBRARY_DESCRIPTION "Indoor venue maps: the map view
 Shows the floors of a venue in 3D, with gestures, markers and routes.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Indoor venue maps: files for development
 Headers, a CMake package and pkg-config files of both libraries.")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "Indoor venue maps: the command
 Lists venues, finds routes, draws floors, shows and serves venues.")
include(CPack)
