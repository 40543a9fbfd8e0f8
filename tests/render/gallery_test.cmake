# vexpanel gallery writes one PNG per listed example and the contact sheet, which must be the one
# the README shows; render --frames names its ticks' files after the output. Run by ctest with
# -DVEXPANEL and -DWORK. (render's options and the frames' pixels are checked in render_job_test.cpp.)
file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${VEXPANEL} gallery -o ${WORK} OUTPUT_VARIABLE said RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT said MATCHES "gallery.png")
  message(FATAL_ERROR "gallery failed: ${status} ${said}")
endif()
get_filename_component(examples ${CMAKE_CURRENT_LIST_DIR}/../../examples ABSOLUTE)
# The README shows the gallery: docs/gallery.png must be what the gallery renders today
# (after a change that shows, copy the new one: vexpanel gallery -o DIR; cp DIR/gallery.png docs/).
file(SHA256 ${WORK}/gallery.png rendered)
file(SHA256 ${examples}/../docs/gallery.png shown)
if(NOT rendered STREQUAL shown)
  message(FATAL_ERROR "docs/gallery.png is out of date: copy ${WORK}/gallery.png there")
endif()

execute_process(COMMAND ${VEXPANEL} render ${examples}/picture-strip.vxp -o ${WORK}/strip.png --frames 2
  OUTPUT_VARIABLE said RESULT_VARIABLE status)
set(expected "${WORK}/strip.png\n${WORK}/strip-1.png\n${WORK}/strip-2.png\n")
if(NOT status EQUAL 0 OR NOT said STREQUAL expected)
  message(FATAL_ERROR "render --frames 2 said (${status}):\n${said}expected:\n${expected}")
endif()
foreach(file strip.png strip-1.png strip-2.png)
  if(NOT EXISTS ${WORK}/${file})
    message(FATAL_ERROR "render --frames 2 did not write ${file}")
  endif()
endforeach()
