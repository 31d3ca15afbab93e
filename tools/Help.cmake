# Target zervo_help: Zervo.chm beside Zervo.exe, from the pages in docs/help.
find_program(ZERVO_CHMCMD chmcmd)
if(NOT ZERVO_CHMCMD)
  message(FATAL_ERROR "The help file needs chmcmd of fp-utils: run tools/setup.")
endif()
file(GLOB_RECURSE help_pages CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/help/*)
# Written only when it changes, so that a page which goes away makes the file anew too.
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/help_pages.txt CONTENT "@help_pages@" @ONLY)
add_custom_command(
  OUTPUT ${CMAKE_BINARY_DIR}/Zervo.chm
  COMMAND ${ZERVO_PYTHON} ${CMAKE_SOURCE_DIR}/tools/make_help.py ${CMAKE_SOURCE_DIR}/docs/help ${CMAKE_BINARY_DIR}/Zervo.chm
  DEPENDS ${CMAKE_SOURCE_DIR}/tools/make_help.py
          ${CMAKE_BINARY_DIR}/help_pages.txt ${help_pages}
  COMMENT "Making the help file")
add_custom_target(zervo_help ALL DEPENDS ${CMAKE_BINARY_DIR}/Zervo.chm)
