# What ships makes the most of what compiler and linker offer against memory errors.

include(CheckCXXCompilerFlag)
include(CheckPIESupported)

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
check_pie_supported(LANGUAGES CXX)

# Which of them there are depends on compiler and processor.
foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection=full)
  string(MAKE_C_IDENTIFIER "HAS${flag}" has_flag)
  check_cxx_compiler_flag("-Werror ${flag}" ${has_flag})
  if(${has_flag})
    add_compile_options(${flag})
  endif()
endforeach()

# The C library checks sizes in optimised code only. Distributions set a level of their own.
add_compile_options($<$<CONFIG:Release>:-U_FORTIFY_SOURCE> $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=3>)
# A Mac's loader binds everything at once and makes it read-only without being told.
if(NOT APPLE)
  add_link_options(-Wl,-z,relro,-z,now)
endif()
