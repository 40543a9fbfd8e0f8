file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix
  RESULT_VARIABLE result OUTPUT_QUIET)
if(result)
  message(FATAL_ERROR "install failed")
endif()

# What ships: no test doubles, no image-file helpers, nothing that needs libpng.
file(GLOB_RECURSE installed RELATIVE ${WORK_DIR}/prefix ${WORK_DIR}/prefix/*)
foreach(file IN LISTS installed)
  if(file MATCHES "testing|image_files|png_writer|recording_context|null_device_context")
    message(FATAL_ERROR "installed, but not part of the library: ${file}")
  endif()
  if(file MATCHES "\\.(cmake|pc)$")
    file(READ ${WORK_DIR}/prefix/${file} text)
    if(text MATCHES "PNG::|libpng|vexpanel_testing")
      message(FATAL_ERROR "${file} makes users link what the library does not need")
    endif()
  endif()
endforeach()

execute_process(COMMAND ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${WORK_DIR}/prefix/lib/pkgconfig:${WORK_DIR}/prefix/${LIBDIR}/pkgconfig
    ${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/build -G Ninja
    -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix -DVEXPANEL_INCLUDE_DIR=${WORK_DIR}/prefix/include
  RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "configuring the consumer failed")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}/build RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "building the consumer failed")
endif()
foreach(program consumer consumer_pkgconfig consumer_qt)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${WORK_DIR}/build/${program} RESULT_VARIABLE result OUTPUT_VARIABLE output)
  if(result OR NOT output MATCHES "consumer ok")
    message(FATAL_ERROR "${program} did not run: ${output}")
  endif()
endforeach()
