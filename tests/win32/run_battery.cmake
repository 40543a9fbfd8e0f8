# Runs the Windows battery program under Wine (MODE: empty, or --window for window DCs); the old result file goes first, so a program that
# fails cannot leave stale results for the comparer.
file(REMOVE ${OUTPUT})
if(NOT EXISTS ${PROGRAM})
  message(FATAL_ERROR "${PROGRAM} is missing: the Windows sub-build (target vexpanel-win32) did not build it")
endif()
execute_process(COMMAND ${SCRIPTS}/wine-run ${PREFIX} ${PROGRAM} ${MODE} Z:${OUTPUT} RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT EXISTS ${OUTPUT})
  message(FATAL_ERROR "the Windows battery failed under Wine (status ${status})")
endif()
