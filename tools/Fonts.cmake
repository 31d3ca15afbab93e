# Target zervo_fonts: the fonts in ${CMAKE_BINARY_DIR}/fonts that Zervo.exe carries as resources.

# The system's python3 first: another one may stand before it on the path, without Debian's fontTools.
find_program(ZERVO_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH)
find_program(ZERVO_PYTHON NAMES python3 python REQUIRED)
set(ZERVO_DEJAVU /usr/share/fonts/truetype/dejavu CACHE PATH "Folder of DejaVuSans.ttf and DejaVuSansMono.ttf")

execute_process(COMMAND ${ZERVO_PYTHON} -c "import fontTools.subset" RESULT_VARIABLE no_fonttools ERROR_QUIET)
if(no_fonttools OR NOT EXISTS ${ZERVO_DEJAVU}/DejaVuSansMono.ttf)
  message(FATAL_ERROR "The fonts need python3-fonttools and fonts-dejavu-core: run tools/setup.")
endif()

set(ZERVO_FONTS "")
foreach(font Sans ISO ASCII RUS Mono)
  list(APPEND ZERVO_FONTS ${CMAKE_BINARY_DIR}/fonts/Zervo${font}.ttf)
endforeach()
add_custom_command(
  OUTPUT ${ZERVO_FONTS}
  COMMAND ${ZERVO_PYTHON} ${CMAKE_SOURCE_DIR}/tools/make_fonts.py ${ZERVO_DEJAVU} ${CMAKE_BINARY_DIR}/fonts
  DEPENDS ${CMAKE_SOURCE_DIR}/tools/make_fonts.py ${ZERVO_DEJAVU}/DejaVuSans.ttf ${ZERVO_DEJAVU}/DejaVuSansMono.ttf
  COMMENT "Making the fonts")
add_custom_target(zervo_fonts DEPENDS ${ZERVO_FONTS})
