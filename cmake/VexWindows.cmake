# The Windows side of a native build: the mingw-w64 cross build of the same sources, made as a
# sub-build in <build>/win32 so that building the native tree also builds the Windows programs
# that the differential tests run under Wine (ctest label win32).
#
# VEXPANEL_WINDOWS is on by default in native test builds. When it is on, the cross compiler and
# Wine must be present: a missing tool stops the configure rather than skipping the suite
# (scripts/bootstrap installs them).

include(ExternalProject)

set(VEX_WIN32_BINARY_DIR ${CMAKE_BINARY_DIR}/win32)
set(VEX_WINE_PREFIX ${CMAKE_BINARY_DIR}/wineprefix)

find_program(VEX_MINGW_CXX x86_64-w64-mingw32-g++)
find_program(VEX_WINE wine)
if(NOT VEX_MINGW_CXX OR NOT VEX_WINE)
  message(FATAL_ERROR "The Windows tests need mingw-w64 and Wine (run scripts/bootstrap as root), "
    "or configure with -DVEXPANEL_WINDOWS=OFF to build without them.")
endif()

set(vex_win32_args
  -DCMAKE_TOOLCHAIN_FILE=${PROJECT_SOURCE_DIR}/cmake/toolchain-mingw64.cmake
  -DCMAKE_BUILD_TYPE=RelWithDebInfo
  -DVEXPANEL_TESTS=ON
  -DVEXPANEL_BENCH=${VEXPANEL_BENCH})
if(CMAKE_CXX_COMPILER_LAUNCHER)
  list(APPEND vex_win32_args -DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER}
    -DCMAKE_C_COMPILER_LAUNCHER=${CMAKE_C_COMPILER_LAUNCHER})
endif()

ExternalProject_Add(vexpanel-win32
  SOURCE_DIR ${PROJECT_SOURCE_DIR}
  BINARY_DIR ${VEX_WIN32_BINARY_DIR}
  CMAKE_GENERATOR ${CMAKE_GENERATOR}
  CMAKE_ARGS ${vex_win32_args}
  INSTALL_COMMAND ""
  BUILD_ALWAYS ON
  USES_TERMINAL_BUILD ON)
