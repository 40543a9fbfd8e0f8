# vexpanel gallery writes one PNG per listed example and the contact sheet; render writes the
# numbered ticks. Run by ctest with -DVEXPANEL and -DWORK.
file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${VEXPANEL} gallery -o ${WORK} OUTPUT_VARIABLE said RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT said MATCHES "gallery.png")
  message(FATAL_ERROR "gallery failed: ${status} ${said}")
endif()
file(GLOB written ${WORK}/*.png)
list(LENGTH written count)
if(count LESS 16)
  message(FATAL_ERROR "gallery wrote ${count} files")
endif()
file(READ ${WORK}/gallery.png head LIMIT 8 HEX)
if(NOT head STREQUAL "89504e470d0a1a0a")
  message(FATAL_ERROR "gallery.png is not a PNG: ${head}")
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
  RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT EXISTS ${WORK}/strip-1.png OR NOT EXISTS ${WORK}/strip-2.png)
  message(FATAL_ERROR "render --frames 2 failed: ${status}")
endif()
execute_process(COMMAND ${VEXPANEL} render ${examples}/picture-strip.vxp --size 5 ERROR_VARIABLE message
  RESULT_VARIABLE status)
if(NOT status EQUAL 2 OR NOT message MATCHES "--size takes WxH")
  message(FATAL_ERROR "bad size: status ${status}, ${message}")
endif()
