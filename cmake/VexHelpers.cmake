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

# vex_add_module(NAME name [PREFIX dir] [SOURCES file...] [DEPENDS module...] [HEADERS file...]
#                [EXCLUDE header...])
# One layer of the library: the static library vexpanel_<name>, linked only to the layers it may
# use. Its headers (those of the current folder, subfolders apart) are seen by other targets as
# "<dir>/<header>" (dir: PREFIX, else the folder's path below src/ or hosts/) through an include
# root that holds only this layer's headers (HEADERS lists them where the folder's do not fit): a target that does not link a layer cannot include
# its headers, so an include against the layering fails to build. Without SOURCES the layer is
# an INTERFACE library (headers only).
function(vex_add_module)
  cmake_parse_arguments(M "" "NAME;PREFIX" "SOURCES;DEPENDS;HEADERS;EXCLUDE" ${ARGN})
  set(target vexpanel_${M_NAME})
  if(NOT M_PREFIX)
    file(RELATIVE_PATH M_PREFIX ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    string(REGEX REPLACE "^(src|hosts)/" "" M_PREFIX ${M_PREFIX})
  endif()
  if(M_SOURCES)
    add_library(${target} STATIC ${M_SOURCES})
    set(scope PUBLIC)
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  set(root ${PROJECT_BINARY_DIR}/include/${M_NAME})
  file(REMOVE_RECURSE ${root})
  file(MAKE_DIRECTORY ${root}/${M_PREFIX})
  if(M_HEADERS)
    list(TRANSFORM M_HEADERS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE headers)
  else()
    file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  endif()
  foreach(header IN LISTS headers)
    get_filename_component(file ${header} NAME)
    if(NOT file IN_LIST M_EXCLUDE)
      file(CREATE_LINK ${header} ${root}/${M_PREFIX}/${file} SYMBOLIC)
    endif()
  endforeach()
  target_include_directories(${target} ${scope} $<BUILD_INTERFACE:${root}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vexpanel>)
  target_compile_features(${target} ${scope} cxx_std_20)
  foreach(dependency IN LISTS M_DEPENDS)
    target_link_libraries(${target} ${scope} vexpanel_${dependency})
  endforeach()
  set_property(GLOBAL APPEND PROPERTY VEX_MODULES ${M_NAME})
  set_property(GLOBAL PROPERTY VEX_MODULE_DEPENDS_${M_NAME} ${M_DEPENDS})
  set_property(GLOBAL PROPERTY VEX_MODULE_DIR_${M_NAME} ${CMAKE_CURRENT_SOURCE_DIR})
  set_property(GLOBAL PROPERTY VEX_MODULE_PREFIX_${M_NAME} ${M_PREFIX})
endfunction()

# vex_add_test(NAME name LABELS label... SOURCES file... [LIBRARIES lib...] [PROPERTIES prop value...])
# One GoogleTest executable; every test case becomes a ctest test carrying the labels (and any
# further ctest properties, e.g. FIXTURES_REQUIRED).
function(vex_add_test)
  cmake_parse_arguments(T "" "NAME;TIMEOUT" "LABELS;SOURCES;LIBRARIES;PROPERTIES" ${ARGN})
  add_executable(${T_NAME} ${T_SOURCES})
  target_link_libraries(${T_NAME} PRIVATE vexpanel vexpanel_testing GTest::gtest GTest::gtest_main ${T_LIBRARIES})
  # tests/raises.h and the other helpers shared between the folders of tests.
  target_include_directories(${T_NAME} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  if(TARGET vexpanel_image_files)
    target_link_libraries(${T_NAME} PRIVATE vexpanel_image_files)
  endif()
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
  target_link_libraries(${F_NAME} PRIVATE vexpanel vexpanel_testing ${F_LIBRARIES})
  target_link_options(${F_NAME} PRIVATE -fsanitize=fuzzer)
endfunction()
