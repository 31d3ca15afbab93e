# The code view's component, Scintilla with the two lexers of Lexilla that Zervo uses, from Debian's sources.
set(ZERVO_SOURCES ${CMAKE_SOURCE_DIR}/build/sources CACHE PATH "Where tools/get-source has unpacked sources")
set(ZERVO_SCINTILLA ${ZERVO_SOURCES}/scite)
if(NOT EXISTS ${ZERVO_SCINTILLA}/scintilla/src/Editor.cxx)
  message(FATAL_ERROR "no sources in ${ZERVO_SCINTILLA}: run tools/setup")
endif()

# Its licence with the version, for the about box and the downloads.
file(STRINGS ${ZERVO_SOURCES}/scite.version ZERVO_SCITE_VERSION LIMIT_COUNT 1)
file(READ ${ZERVO_SCINTILLA}/scintilla/License.txt scintilla_licence)
file(CONFIGURE OUTPUT licences/LICENSE-Scintilla.txt @ONLY NEWLINE_STYLE LF CONTENT
     "Scintilla and Lexilla, which are the code view, from Debian's package scite @ZERVO_SCITE_VERSION@\n\n@scintilla_licence@\n")
message(STATUS "Scintilla: scite ${ZERVO_SCITE_VERSION}")

file(GLOB scintilla_sources ${ZERVO_SCINTILLA}/scintilla/src/*.cxx)
foreach(name PlatWin HanjaDic ScintillaWin)
  list(APPEND scintilla_sources ${ZERVO_SCINTILLA}/scintilla/win32/${name}.cxx)
endforeach()
foreach(name Accessor CharacterCategory CharacterSet DefaultLexer LexAccessor LexerBase LexerModule LexerSimple
             PropSetSimple StyleContext WordList)
  list(APPEND scintilla_sources ${ZERVO_SCINTILLA}/lexilla/lexlib/${name}.cxx)
endforeach()
list(APPEND scintilla_sources ${ZERVO_SCINTILLA}/lexilla/lexers/LexHTML.cxx ${ZERVO_SCINTILLA}/lexilla/lexers/LexCSS.cxx)

add_library(zervo_scintilla STATIC ${scintilla_sources})
# GDI alone draws, since only it knows the program's own fonts; its own expressions spare those of the C++ library,
# which are larger than the whole component.
target_compile_definitions(zervo_scintilla PRIVATE NDEBUG NO_CXX11_REGEX DISABLE_D2D UNICODE _UNICODE)
target_include_directories(zervo_scintilla SYSTEM PUBLIC ${ZERVO_SCINTILLA}/scintilla/include)
target_include_directories(zervo_scintilla SYSTEM PRIVATE ${ZERVO_SCINTILLA}/scintilla/src
                           ${ZERVO_SCINTILLA}/lexilla/include ${ZERVO_SCINTILLA}/lexilla/lexlib)
# Not our sources: their warnings are their authors'.
target_compile_options(zervo_scintilla PRIVATE -w $<$<CONFIG:Release>:-Os>)
target_link_libraries(zervo_scintilla PUBLIC gdi32 user32 imm32 ole32 oleaut32 msimg32 uuid)
