# Builds for macOS on another system: scripts/check-macos lays out what this takes, and sets
#   QUILLON_MACOS_TARGET   aarch64-macos or x86_64-macos
#   QUILLON_MACOS_PREFIX   a folder with the two libraries, as if installed
#   QUILLON_MACOS_TOOLS    a folder with LLVM's tools

set(CMAKE_SYSTEM_NAME Darwin)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES
  QUILLON_MACOS_TARGET QUILLON_MACOS_PREFIX QUILLON_MACOS_TOOLS)

set(CMAKE_CXX_COMPILER ${CMAKE_CURRENT_LIST_DIR}/compiler)
set(CMAKE_CXX_COMPILER_TARGET ${QUILLON_MACOS_TARGET})
foreach(tool AR RANLIB INSTALL_NAME_TOOL)
  string(REPLACE "_" "-" name ${tool})
  string(TOLOWER llvm-${name} name)
  set(CMAKE_${tool} ${QUILLON_MACOS_TOOLS}/${name} CACHE FILEPATH "")
endforeach()

# The compiler includes the system's headers. Headers of this machine must not be used.
set(CMAKE_OSX_SYSROOT "" CACHE STRING "")
set(CMAKE_FIND_ROOT_PATH ${QUILLON_MACOS_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_PREFIX_PATH /)
