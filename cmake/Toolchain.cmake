# Options for compiling and linking all targets.

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# A launch runs most of its code once. Most of that time is spent on mapping the code, page by page.
string(REPLACE "-O3" "-Os" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# A designated initializer may omit members, which then have their defaults.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
  -Wno-missing-field-initializers)
include_directories(${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/generated)

include(cmake/Hardening.cmake)

set(QUILLON_SANITIZERS "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them")
if(QUILLON_SANITIZERS)
  add_compile_options(-fsanitize=${QUILLON_SANITIZERS} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUILLON_SANITIZERS})
elseif(APPLE)
  # On macOS the C++ runtime is in the shared cache. Unused code is removed.
  add_link_options(-Wl,-dead_strip)
else()
  # Loading and relocating a shared C++ runtime takes longer than the rest of a launch. Sanitizers
  # need the shared one. Unused code is removed. The runtime uses two functions of the mathematics
  # library; linked statically, they save loading a shared library. Sorting by name places our
  # functions together, separate from the runtime functions that a launch never calls.
  add_compile_options(-ffunction-sections -fdata-sections)
  add_link_options(-static-libstdc++ -static-libgcc -Wl,--gc-sections -Wl,--as-needed
    -Wl,--sort-section=name)
  set(CMAKE_CXX_STANDARD_LIBRARIES "-Wl,-Bstatic -lstdc++ -l:libm.a -Wl,-Bdynamic")
endif()

option(QUILLON_COVERAGE "Count the executed lines and branches; takes g++" OFF)
if(QUILLON_COVERAGE)
  include(cmake/Coverage.cmake)
endif()
