# A room is a folder of the repository that is a library of its own. Its headers are included as "room/header.h", and only by
# a target that links the room: every room gets an include root that shows nothing but itself, so a wrong include fails.

# Warnings and sanitizers, the same for every target.
function(zorbik_target_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)  # GCC 12 warns of std::string's own code (its bug 105651)
  endif()
  if(ZORBIK_SANITIZE)
    target_compile_options(${target} PUBLIC -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                            -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
  endif()
  if(ZORBIK_FUZZ)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()

# zorbik_room(NAME [FOLDER folder] SOURCES a.cpp ... LINKS other_room ...): the library NAME in the folder of the same name,
# or in another one.
function(zorbik_room name)
  cmake_parse_arguments(room "" "FOLDER" "SOURCES;LINKS" ${ARGN})
  if(NOT room_FOLDER)
    set(room_FOLDER ${name})
  endif()
  add_library(${name} STATIC ${room_SOURCES})
  set(root ${CMAKE_BINARY_DIR}/rooms/${room_FOLDER})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${room_FOLDER} ${root}/${room_FOLDER} SYMBOLIC)
  target_include_directories(${name} PUBLIC ${root})
  target_link_libraries(${name} PUBLIC ${room_LINKS})
  zorbik_target_options(${name})
endfunction()

# zorbik_program(NAME SOURCES ... LINKS ...): an executable.
function(zorbik_program name)
  cmake_parse_arguments(program "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${program_SOURCES})
  target_link_libraries(${name} PRIVATE ${program_LINKS})
  zorbik_target_options(${name})
endfunction()
