# The portable folders and what each of them may include: the one list, which the build and the test of the includes
# (tests/tree/include_rules_test.cpp, which reads folders.txt) go by.
#
# In a folder a file is a rule, which knows bytes and data alone, or speaks to the user. The speakers are named attach,
# frm* and *_commands, or after SPEAKERS; "*": all files of the folder are. The rules are the library
# zervo_FOLDER_rules, which may include the rules of RULES_NEED; the speakers are zervo_FOLDER, which may include the
# folder's rules, all that they may include, and NEED. A folder without NEED has no speakers. MORE: other sources of the
# rules, LINK: libraries of others.
set(ZERVO_FOLDERS "")
set(ZERVO_PORTABLE "")
file(WRITE ${CMAKE_BINARY_DIR}/folders.new "")

# A library of its sources and of what it needs; what is not made fast is made small.
function(zervo_library name sources)
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC ${ARGN})
  list(REMOVE_ITEM sources ${ZERVO_FAST})
  if(WIN32)
    set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS $<$<CONFIG:Release>:-Os>)
  endif()
endfunction()

function(zervo_folder folder)
  cmake_parse_arguments(PARSE_ARGV 1 this "" "" "RULES_NEED;NEED;SPEAKERS;MORE;LINK")
  list(JOIN this_SPEAKERS "|" names)
  set(speakers "^${folder}/(.*/)?(attach|frm[^/]*|[^/]*_commands|${names})\\.(h|cpp)$")
  if("*" IN_LIST this_SPEAKERS)
    set(speakers "^${folder}/")
  elseif(NOT this_NEED)
    set(speakers "^$")
  endif()
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
  set(rules ${sources})
  list(FILTER rules EXCLUDE REGEX ${speakers})
  list(FILTER sources INCLUDE REGEX ${speakers})
  list(TRANSFORM rules PREPEND ${CMAKE_SOURCE_DIR}/)
  list(TRANSFORM sources PREPEND ${CMAKE_SOURCE_DIR}/)
  list(TRANSFORM this_RULES_NEED REPLACE "(.+)" "zervo_\\1_rules" OUTPUT_VARIABLE needed)
  list(APPEND needed ${this_LINK})
  list(APPEND rules ${this_MORE})
  set(made "")
  if(rules)
    zervo_library(zervo_${folder}_rules "${rules}" ${needed})
    target_compile_options(zervo_${folder}_rules PRIVATE ${ZERVO_STRICT})
    list(APPEND made zervo_${folder}_rules)
  else()
    add_library(zervo_${folder}_rules INTERFACE)
    target_link_libraries(zervo_${folder}_rules INTERFACE ${needed})
  endif()
  if(sources)
    list(TRANSFORM this_NEED REPLACE "(.+)" "zervo_\\1" OUTPUT_VARIABLE needed)
    zervo_library(zervo_${folder} "${sources}" zervo_${folder}_rules ${needed})
    target_compile_options(zervo_${folder} PRIVATE ${ZERVO_STRICT})
    list(PREPEND made zervo_${folder})
  else()
    add_library(zervo_${folder} ALIAS zervo_${folder}_rules)
  endif()
  list(JOIN this_RULES_NEED " " rules_need)
  list(JOIN this_NEED " " need)
  file(APPEND ${CMAKE_BINARY_DIR}/folders.new "${folder}@${speakers}@${rules_need}@${need}\n")
  set(ZERVO_FOLDERS ${ZERVO_FOLDERS} ${folder} PARENT_SCOPE)
  set(ZERVO_PORTABLE ${made} ${ZERVO_PORTABLE} PARENT_SCOPE)
endfunction()

# With what base/disk.h asks of the system, and the letters' statistics.
zervo_folder(base MORE ${CMAKE_SOURCE_DIR}/platform/${ZERVO_DISK}/disk.cpp)
zervo_folder(markup RULES_NEED base)
zervo_folder(publish RULES_NEED base)
zervo_folder(ui RULES_NEED base)
zervo_folder(app SPEAKERS "*" NEED base ui)
zervo_folder(convert RULES_NEED base markup NEED ui app SPEAKERS status_panels typing_mode
             MORE ${CMAKE_BINARY_DIR}/convert/letter_data.cpp)
# A whole site in one go.
find_package(Threads REQUIRED)
zervo_folder(site RULES_NEED base markup convert NEED ui app convert LINK Threads::Threads)
zervo_folder(cli RULES_NEED base markup convert site publish)
zervo_folder(editor RULES_NEED base markup NEED ui app convert
             SPEAKERS editor colour_ranges colouring document_reference entities insertion list_keys pair_grid
                      shown_bytes tag_palette)
zervo_folder(search RULES_NEED base convert NEED ui app convert SPEAKERS followed_text insert_menu)
zervo_folder(project RULES_NEED base publish NEED ui app SPEAKERS html_header mdlFTP upload_run LINK Threads::Threads)
zervo_folder(generators RULES_NEED base markup editor NEED ui app editor
             SPEAKERS generators frame_geometry selection)
zervo_folder(recent RULES_NEED base NEED ui app)
zervo_folder(print RULES_NEED base NEED ui app SPEAKERS print_settings print_sheet printing scaled_canvas)
zervo_folder(preview RULES_NEED base markup convert NEED ui app SPEAKERS preview)
zervo_folder(options SPEAKERS "*" NEED base ui app)
zervo_folder(recovery RULES_NEED base NEED ui app)
zervo_folder(program SPEAKERS "*"
             NEED base ui app convert editor search project generators recent print preview options recovery site publish)
file(COPY_FILE ${CMAKE_BINARY_DIR}/folders.new ${CMAKE_BINARY_DIR}/folders.txt ONLY_IF_DIFFERENT)
