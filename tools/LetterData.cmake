# Puts files into a C++ source, so that the rules need no resources: the source that letter_data.h promises.
function(zervo_letter_data output)
  set(text "#include \"convert/letter_data.h\"\n\nnamespace convert {\n")
  foreach(pair fontLines=custom/FONTS.txt georgianCosts=letters/georgian.bin russianCosts=letters/russian.bin
          westernCosts=letters/western.bin)
    string(REGEX MATCH "^(.*)=(.*)$" pair ${pair})
    set(file ${CMAKE_SOURCE_DIR}/resources/${CMAKE_MATCH_2})
    set(name ${CMAKE_MATCH_1})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(READ ${file} bytes HEX)
    string(REPEAT "." 64 line)
    string(REGEX REPLACE "(${line})" "\\1\n" bytes "${bytes}")
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
    string(APPEND text "namespace {\nconstexpr char k_${name}[] = {\n${bytes}};\n}\n"
                       "std::string_view ${name}() {\n  return {k_${name}, sizeof k_${name}};\n}\n")
  endforeach()
  file(CONFIGURE OUTPUT ${output} CONTENT "${text}}  // namespace convert\n" @ONLY)
endfunction()
