# Protections of optimized builds: what damage is left to a fault in our own code. Sanitizers find
# more and do not go together with them. Tests/Checks/check-hardening looks for them in a binary.

include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

option(ORIVANTA_HARDENING "Protections in optimized builds" ON)

# Makes executables position-independent, as CMAKE_POSITION_INDEPENDENT_CODE asks.
check_pie_supported(LANGUAGES CXX)

if(ORIVANTA_SANITIZER OR NOT ORIVANTA_HARDENING)
  return()
endif()

set(optimized $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)

foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection)
  string(MAKE_C_IDENTIFIER "ORIVANTA_HAS${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    add_compile_options($<${optimized}:${flag}>)
  endif()
endforeach()

foreach(flag -Wl,-z,relro -Wl,-z,now)
  string(MAKE_C_IDENTIFIER "ORIVANTA_HAS${flag}" known)
  check_linker_flag(CXX ${flag} ${known})
  if(${known})
    add_link_options($<${optimized}:${flag}>)
  endif()
endforeach()

# Level 3 also checks objects whose size is known only at run time; GCC has it from version 12 on.
# Some distributions define a level of their own.
set(fortify 2)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
  set(fortify 3)
endif()
add_compile_options("$<${optimized}:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${fortify}>")
