# vexpanel pages and picture end to end. Run by ctest with -DVEXPANEL and -DWORK.
function(run)
  execute_process(COMMAND ${VEXPANEL} ${ARGN} OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE status)
  set(out "${out}" PARENT_SCOPE)
  set(err "${err}" PARENT_SCOPE)
  set(status "${status}" PARENT_SCOPE)
endfunction()
function(fail what)
  message(FATAL_ERROR "${what}\nstatus ${status}\nstdout:\n${out}\nstderr:\n${err}")
endfunction()
# expect(WHAT STATUS [TEXT NEEDLE]...): the exit status, and each needle found in its text.
function(expect what expected)
  if(NOT status EQUAL expected)
    fail("${what}: status")
  endif()
  set(pairs ${ARGN})
  while(pairs)
    list(POP_FRONT pairs text needle)
    string(FIND "${text}" "${needle}" at)
    if(at EQUAL -1)
      fail("${what}: no '${needle}'")
    endif()
  endwhile()
endfunction()

file(REMOVE ${WORK}/never.vxp)
run(new --name Paged)
file(WRITE ${WORK}/pages.vxp "${out}")

run(pages ${WORK}/pages.vxp)
string(REGEX MATCHALL "\n[A-Za-z0-9]+ \\([A-Za-z0-9]+\\)\n" headings "\n${out}")
list(LENGTH headings count)
if(NOT count EQUAL 7)
  fail("seven pages")
endif()
expect(listing 0 "${out}" "\n  txtCaption text Caption = \"Paged\"\n"
  "${out}" "cboCaptionStyle list CaptionStyle = 0 \"0 - Standard\"\n    items: \"0 - Standard\", \"0 - Wrapped\"\n")

run(pages ${WORK}/pages.vxp --page PanelGeneral --choose cboCaptionStyle=1 --check chkCaptionEfect=1 --apply -o ${WORK}/wrapped.vxp)
file(READ ${WORK}/wrapped.vxp saved)
expect(wrapped 0 "${saved}" "\nCaptionStyle = 1\n" "${saved}" "\nCaptionEfect = True\n")

run(pages ${WORK}/pages.vxp --page Panel3D --choose WinGradientDirection=7 --edit txtPanel_3DBorderWidth=5 --apply -o ${WORK}/3d.vxp)
file(READ ${WORK}/3d.vxp saved)
expect(3D 0 "${saved}" "\nWinGradientDirection = 7\n" "${saved}" "\nPanel3DBorderWidth = 5\n")

# A failing conversion: status 2, the host's error, nothing saved.
run(pages ${WORK}/pages.vxp --page LongPicture --check chkPictureBackgroundUseMask=1 --edit txtPictureFrames=abc --apply -o ${WORK}/never.vxp)
expect(abc 2 "${err}" "error 13: Type mismatch")
if(EXISTS ${WORK}/never.vxp)
  fail("abc saved")
endif()

# A rejected delay: the message box on standard error, the old value kept, the rest applied.
run(pages ${WORK}/pages.vxp --page LongPicture --edit txtPictureAnimDelay=0 --choose PictureAlignment=4 --apply -o ${WORK}/delay.vxp)
file(READ ${WORK}/delay.vxp saved)
expect(delay 0 "${err}" "message box \"Brisa Panel Error\"" "${saved}" "\nPictureAlignment = 4\n" "${out}" "txtPictureAnimDelay text PictureAnimDelay = \"100\"")

# A picture: the panel rendered as PNG goes into each property and back out.
run(render ${WORK}/pages.vxp -o ${WORK}/picture.png --size 30x20)
foreach(property Picture PictureBackground MouseIcon)
  run(picture ${WORK}/pages.vxp --set ${property}=${WORK}/picture.png -o ${WORK}/with-picture.vxp)
  expect("import ${property}" 0 "${out}" "${property} = Bitmap 30x20\n")
  run(picture ${WORK}/with-picture.vxp --clear ${property})
  expect("clear ${property}" 0 "${out}" "${property} = Nothing\n")
endforeach()
file(WRITE ${WORK}/damaged.png "PNG not really")
run(picture ${WORK}/pages.vxp --set Picture=${WORK}/damaged.png -o ${WORK}/never.vxp)
expect(damaged 2 "${err}" "error 481: Invalid picture")
if(EXISTS ${WORK}/never.vxp)
  fail("damaged saved")
endif()

# One version number: the command's and the About box's.
run(--version)
string(REGEX REPLACE "^vexpanel ([0-9.]+)\n$" "\\1" version "${out}")
run(about)
expect(about 0 "${out}" "About VexPanel\nVexPanel\nVersion ${version}\n")
