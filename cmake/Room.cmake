# One way to build every room of the house: the same warnings, the same standard.

# What another compiler warns of is not ours to mend.
if(NOT TESSERA_FUZZ)
  set(warnings_are_errors -Werror)
endif()
add_library(tessera_options INTERFACE)
target_compile_options(tessera_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
  ${warnings_are_errors})
# g++ 12 warns of overlapping copies in its own string library once it inlines `const char* + std::string`.
target_compile_options(tessera_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(TESSERA_SANITIZE)
  target_compile_options(tessera_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tessera_options INTERFACE -fsanitize=address,undefined)
endif()
find_program(MOLD mold)
if(MOLD)
  target_link_options(tessera_options INTERFACE -fuse-ld=mold)
endif()

# What nearly every file includes of the standard library is read once for all of them: a third of the time of a build
# without optimisation. With it g++ 12 takes the library's lines for ours and warns of them, so that build reads all
# anew, and finds the include that a file forgot. Files for the window toolkit are position-independent code, which
# can't share it.
if(CMAKE_BUILD_TYPE STREQUAL "Debug")
  file(WRITE ${CMAKE_BINARY_DIR}/standard.cpp "")
  add_library(tessera_standard OBJECT ${CMAKE_BINARY_DIR}/standard.cpp)
  target_link_libraries(tessera_standard PRIVATE tessera_options)
  target_precompile_headers(tessera_standard PRIVATE
    <algorithm> <array> <charconv> <chrono> <cstdint> <filesystem> <functional> <map> <memory> <optional> <span> <string>
    <string_view> <utility> <variant> <vector>)
endif()
function(tessera_share_standard target)
  if(TARGET tessera_standard)
    target_precompile_headers(${target} REUSE_FROM tessera_standard)
  endif()
endfunction()

# A room's headers as whoever includes them sees them: they, and those of the rooms that they show. They are found
# through a link of the room's own, so that an include of a room that is not named finds no file.
function(tessera_headers name)
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_BINARY_DIR}/${name} SYMBOLIC)
  list(TRANSFORM ARGN REPLACE "(.+)" "tessera_\\1_headers" OUTPUT_VARIABLE shown)
  add_library(tessera_${name}_headers INTERFACE)
  target_include_directories(tessera_${name}_headers INTERFACE ${CMAKE_CURRENT_BINARY_DIR})
  target_link_libraries(tessera_${name}_headers INTERFACE ${shown})
  set_property(GLOBAL APPEND PROPERTY TESSERA_HEADERS tessera_${name}_headers)
endfunction()

# tessera_room(NAME FILES... SHOWS rooms that its headers include USES rooms that its other files include)
function(tessera_room name)
  cmake_parse_arguments(ROOM "" "" "SHOWS;USES" ${ARGN})
  tessera_headers(${name} ${ROOM_SHOWS})
  add_library(tessera_${name} STATIC ${ROOM_UNPARSED_ARGUMENTS})
  list(TRANSFORM ROOM_SHOWS PREPEND tessera_)
  list(TRANSFORM ROOM_USES PREPEND tessera_)
  target_link_libraries(tessera_${name}
    PUBLIC tessera_${name}_headers ${ROOM_SHOWS} PRIVATE ${ROOM_USES} tessera_options)
  if(NOT name MATCHES "^qt")
    tessera_share_standard(tessera_${name})
  endif()
endfunction()

# tessera_part(NAME FILES... OUTPUT name of its library INCLUDES rooms LINKS libraries): what is loaded at first use, so
# that programs that never need it load neither it nor the libraries below it. It links no room, since they are built for
# executables; the few files of theirs that it needs are built anew.
function(tessera_part name)
  cmake_parse_arguments(PART "" "OUTPUT" "INCLUDES;LINKS" ${ARGN})
  tessera_headers(${name} ${PART_INCLUDES})
  add_library(tessera_${name} MODULE ${PART_UNPARSED_ARGUMENTS})
  set_target_properties(tessera_${name} PROPERTIES
    OUTPUT_NAME tessera_${PART_OUTPUT} LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  target_link_libraries(tessera_${name} PRIVATE tessera_${name}_headers tessera_options ${PART_LINKS})
  # What it has of its own it calls itself, and not what the runtime shows under the same name to the part inside it.
  target_link_options(tessera_${name} PRIVATE LINKER:-Bsymbolic-functions)
endfunction()
