# Writes the include tree of applications to the build folder. Examples are compiled against it, and it is
# installed. cmake/publish-headers selects the public headers.

find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(ORIVANTA_INCLUDE_FOLDER ${PROJECT_BINARY_DIR}/include)

# Run it once during configuration, for the list of files.
execute_process(
  COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/cmake/publish-headers
          ${ORIVANTA_INCLUDE_FOLDER} ${PROJECT_VERSION}
  OUTPUT_VARIABLE published
  COMMAND_ERROR_IS_FATAL ANY)
string(STRIP "${published}" published)
string(REPLACE "\n" ";" published "${published}")
list(TRANSFORM published PREPEND ${ORIVANTA_INCLUDE_FOLDER}/)

file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/Source/*.hpp
     ${PROJECT_SOURCE_DIR}/Platform/*.hpp)
set(stamp ${PROJECT_BINARY_DIR}/include.stamp)
add_custom_command(
  OUTPUT ${stamp}
  BYPRODUCTS ${published}
  COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/cmake/publish-headers
          ${ORIVANTA_INCLUDE_FOLDER} ${PROJECT_VERSION} > ${stamp}
  DEPENDS ${headers} ${PROJECT_SOURCE_DIR}/cmake/publish-headers
  COMMENT "Publishing the headers"
  VERBATIM)
add_custom_target(orivanta_headers DEPENDS ${stamp})
