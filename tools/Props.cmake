# props.ini, the settings that the program is shipped with: written by a program that runs on this machine.
find_program(ZERVO_HOST_CXX NAMES g++ c++ REQUIRED NO_CMAKE_FIND_ROOT_PATH)
set(sources tools/make_props.cpp app/props_record.cpp base/binary.cpp)
list(TRANSFORM sources PREPEND ${CMAKE_SOURCE_DIR}/)
add_custom_command(
  OUTPUT ${CMAKE_BINARY_DIR}/props.ini
  COMMAND ${ZERVO_HOST_CXX} -std=c++20 -I${CMAKE_SOURCE_DIR} ${sources} -o ${CMAKE_BINARY_DIR}/make_props
  COMMAND ${CMAKE_BINARY_DIR}/make_props ${CMAKE_BINARY_DIR}/props.ini
  DEPENDS ${sources} ${CMAKE_SOURCE_DIR}/app/props_record.h
  COMMENT "Making props.ini" VERBATIM)
add_custom_target(zervo_props ALL DEPENDS ${CMAKE_BINARY_DIR}/props.ini)
