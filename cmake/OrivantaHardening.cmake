# Protections of optimized builds, which limit the damage that a fault in our code can do. They cannot be
# combined with the sanitizers, which find more. Tests/Checks/check-hardening checks them in a binary.

include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

option(ORIVANTA_HARDENING "Protections in optimized builds" ON)

# Without it, CMAKE_POSITION_INDEPENDENT_CODE does not link executables as position-independent.
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

# Level 3 also checks objects whose size is known only at run time. GCC supports it since version 12.
# Some distributions define another level.
set(fortify 2)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
  set(fortify 3)
endif()
add_compile_options("$<${optimized}:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${fortify}>")
