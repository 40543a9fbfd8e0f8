# Small helpers shared by every folder's CMakeLists.txt.

# Adds every CMakeLists.txt-bearing subfolder of the current folder, in name order,
# so that each subsystem owns its own build file.
function(vex_add_subfolders)
  file(GLOB children LIST_DIRECTORIES true RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/*)
  list(SORT children)
  foreach(child IN LISTS children)
    if(IS_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/${child} AND EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${child}/CMakeLists.txt)
      add_subdirectory(${child})
    endif()
  endforeach()
endfunction()

# vex_add_test(NAME name LABELS label... SOURCES file... [LIBRARIES lib...] [PROPERTIES prop value...])
# One GoogleTest executable; every test case becomes a ctest test carrying the labels (and any
# further ctest properties, e.g. FIXTURES_REQUIRED).
function(vex_add_test)
  cmake_parse_arguments(T "" "NAME;TIMEOUT" "LABELS;SOURCES;LIBRARIES;PROPERTIES" ${ARGN})
  add_executable(${T_NAME} ${T_SOURCES})
  target_link_libraries(${T_NAME} PRIVATE vexpanel GTest::gtest GTest::gtest_main ${T_LIBRARIES})
  target_compile_definitions(${T_NAME} PRIVATE
    VEX_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    VEX_TESTDATA_DIR="${PROJECT_SOURCE_DIR}/../shared/testdata")
  if(NOT T_TIMEOUT)
    set(T_TIMEOUT 300)
  endif()
  # LeakSanitizer suppressions (system libraries only) apply to every test.
  gtest_discover_tests(${T_NAME}
    PROPERTIES LABELS "${T_LABELS}" TIMEOUT ${T_TIMEOUT}
      ENVIRONMENT "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp" ${T_PROPERTIES}
    DISCOVERY_TIMEOUT 60)
endfunction()

# vex_add_fuzzer(NAME fuzz-<target> SOURCES file... [INCLUDES dir...] [LIBRARIES lib...])
# One libFuzzer executable (fuzz preset: clang, the whole build instrumented with ASan + UBSan).
function(vex_add_fuzzer)
  cmake_parse_arguments(F "" "NAME" "SOURCES;INCLUDES;LIBRARIES" ${ARGN})
  add_executable(${F_NAME} ${F_SOURCES})
  target_include_directories(${F_NAME} PRIVATE ${F_INCLUDES})
  target_link_libraries(${F_NAME} PRIVATE vexpanel ${F_LIBRARIES})
  target_link_options(${F_NAME} PRIVATE -fsanitize=fuzzer)
endfunction()
