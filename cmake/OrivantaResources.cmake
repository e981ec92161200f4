# Embeds the files of a folder into a target, as a resource bundle.
#
#   orivanta_resources(target folder identifier function)
#
# adds to `target` the definition of
#
#   const orivanta::foundation::ResourceBundle& orivanta::FUNCTION();
#
# which adds the bundle when it is first called. Subfolders and files whose names begin with a dot are
# ignored. During the build, this file is run as a script with cmake -P.

if(NOT CMAKE_SCRIPT_MODE_FILE)
  set(ORIVANTA_RESOURCES_SCRIPT ${CMAKE_CURRENT_LIST_FILE})

  function(orivanta_resources target folder identifier function)
    file(GLOB files CONFIGURE_DEPENDS LIST_DIRECTORIES FALSE ${folder}/[^.]*)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${function}.cpp)
    add_custom_command(
      OUTPUT ${source}
      COMMAND ${CMAKE_COMMAND} "-DFILES=${files}" -DIDENTIFIER=${identifier} -DFUNCTION=${function}
              -DSOURCE=${source} -P ${ORIVANTA_RESOURCES_SCRIPT}
      DEPENDS ${files} ${ORIVANTA_RESOURCES_SCRIPT}
      COMMENT "Embedding ${identifier}"
      VERBATIM)
    target_sources(${target} PRIVATE ${source})
  endfunction()
  return()
endif()

set(index 0)
foreach(file IN LISTS FILES)
  get_filename_component(name ${file} NAME)
  file(SIZE ${file} size)
  file(READ ${file} contents HEX)
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${contents}")
  string(APPEND arrays "constexpr std::array<std::uint8_t, ${size}> file${index} = {${bytes}};\n")
  string(APPEND table "    {\"${name}\", file${index}},\n")
  string(APPEND allContents "${name}:${contents};")
  math(EXPR index "${index} + 1")
endforeach()
string(SHA256 hash "${allContents}")
string(SUBSTRING ${hash} 0 16 version)

file(
  WRITE ${SOURCE}
  "// Made by OrivantaResources.cmake.
#include <array>

#include \"Platform/Foundation/ResourceBundle.hpp\"

namespace orivanta {

namespace {

${arrays}
constexpr std::array<foundation::Resource, ${index}> resources = {{
${table}}};

}  // namespace

const foundation::ResourceBundle& ${FUNCTION}();

const foundation::ResourceBundle& ${FUNCTION}() {
  static const foundation::ResourceBundle& bundle =
      foundation::ResourceBundle::add(\"${IDENTIFIER}\", \"${version}\", resources);
  return bundle;
}

}  // namespace orivanta
")
