cmake_minimum_required(VERSION 3.25)
# make demo's pieces: its bootstrap profile installs no Windows side, Wine or clang, and its
# preset configures the library and the command without tests, benchmarks or the Windows build.
execute_process(COMMAND ${SOURCE_DIR}/scripts/bootstrap --list demo OUTPUT_VARIABLE packages RESULT_VARIABLE status)
string(REPLACE "\n" ";" packages "${packages}")
if(NOT status EQUAL 0 OR NOT "g++" IN_LIST packages OR packages MATCHES "(^|;)(wine|wine64|libwine-dev|mingw[^;]*|clang|libclang[^;]*|libgtest-dev|libbenchmark-dev|xvfb|qt6-base-dev)(;|$)")
  message(FATAL_ERROR "bootstrap demo profile (${status}):\n${packages}")
endif()
file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${CMAKE_COMMAND} --preset demo -B ${WORK_DIR} WORKING_DIRECTORY ${SOURCE_DIR}
  OUTPUT_QUIET ERROR_VARIABLE errors RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "cmake --preset demo: ${errors}")
endif()
# The programs it can link: the command alone (no test suites, benchmarks or Windows programs).
execute_process(COMMAND ninja -C ${WORK_DIR} -t targets all OUTPUT_VARIABLE targets)
string(REGEX MATCHALL "[^\n]*EXECUTABLE_LINKER[^\n]*" programs "${targets}")
if(NOT programs MATCHES "^hosts/cli/vexpanel: CXX_EXECUTABLE_LINKER[^;]*$" OR targets MATCHES "vexpanel-win32")
  message(FATAL_ERROR "the demo build has more than the library and the command: ${programs}")
endif()
file(REMOVE_RECURSE ${WORK_DIR})
