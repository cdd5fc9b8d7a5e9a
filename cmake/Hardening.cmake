# Options of the compiler and linker against memory errors, for the shipped programs.

include(CheckCXXCompilerFlag)
include(CheckPIESupported)

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
check_pie_supported(LANGUAGES CXX)

# The available flags depend on compiler and processor.
foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection=full)
  string(MAKE_C_IDENTIFIER "HAS${flag}" has_flag)
  check_cxx_compiler_flag("-Werror ${flag}" ${has_flag})
  if(${has_flag})
    add_compile_options(${flag})
  endif()
endforeach()

# The C library checks sizes only in optimised code. Distributions may set another level.
add_compile_options($<$<CONFIG:Release>:-U_FORTIFY_SOURCE> $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=3>)
# On macOS the loader does this by default.
if(NOT APPLE)
  add_link_options(-Wl,-z,relro,-z,now)
endif()
