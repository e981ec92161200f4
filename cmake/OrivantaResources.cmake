# Embeds files into a target, as a resource bundle.
#
#   orivanta_resources(target folder identifier function)
#   orivanta_languages(target folder identifier function)
#
# add to `target` the definition of
#
#   const orivanta::foundation::ResourceBundle& orivanta::FUNCTION();
#
# which adds the bundle when it is first called. The first one embeds the files of a folder, but neither
# subfolders nor files whose names begin with a dot. The second one checks and compiles the message files
# of a folder (LANGUAGE.po) and embeds the results (LANGUAGE.mo). During the build, this file is run as a
# script with cmake -P.

if(NOT CMAKE_SCRIPT_MODE_FILE)
  set(ORIVANTA_RESOURCES_SCRIPT ${CMAKE_CURRENT_LIST_FILE})

  function(orivanta_resources target folder identifier function)
    file(GLOB files CONFIGURE_DEPENDS LIST_DIRECTORIES FALSE ${folder}/[^.]*)
    orivanta_embed(${target} ${identifier} ${function} ${files})
  endfunction()

  function(orivanta_languages target folder identifier function)
    orivanta_message_files(files ${folder} ${CMAKE_CURRENT_BINARY_DIR})
    orivanta_embed(${target} ${identifier} ${function} ${files})
  endfunction()

  # orivanta_message_files(files folder output [left_out]): checks and compiles the message files of a folder to
  # another folder, and sets `files` to the results. They are without the messages whose keys match the regular
  # expression `left_out`.
  function(orivanta_message_files files folder output)
    find_program(ORIVANTA_MSGFMT msgfmt REQUIRED NO_CMAKE_FIND_ROOT_PATH)
    find_program(ORIVANTA_MSGGREP msggrep REQUIRED NO_CMAKE_FIND_ROOT_PATH)
    set(left_out ${ARGV3})
    file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.po)
    set(results)
    foreach(source IN LISTS sources)
      get_filename_component(language ${source} NAME_WE)
      set(file ${output}/${language}.mo)
      set(used ${source})
      set(select)
      if(left_out)
        set(used ${CMAKE_CURRENT_BINARY_DIR}/${language}.po)
        set(select COMMAND ${ORIVANTA_MSGGREP} -v -J -E -e ${left_out} -o ${used} ${source})
      endif()
      add_custom_command(
        OUTPUT ${file} ${select}
        COMMAND ${ORIVANTA_MSGFMT} --check --no-hash --endianness=little -o ${file} ${used}
        DEPENDS ${source}
        COMMENT "Compiling the messages of ${language}"
        VERBATIM)
      list(APPEND results ${file})
    endforeach()
    set(${files} ${results} PARENT_SCOPE)
  endfunction()

  # orivanta_embed(target identifier function files...)
  function(orivanta_embed target identifier function)
    set(files ${ARGN})
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
