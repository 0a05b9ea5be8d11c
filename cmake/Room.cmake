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

# tessera_room(NAME FILES... SHOWS rooms that its headers include USES rooms that its other files include)
function(tessera_room name)
  cmake_parse_arguments(ROOM "" "" "SHOWS;USES" ${ARGN})
  add_library(tessera_${name} STATIC ${ROOM_UNPARSED_ARGUMENTS})
  target_include_directories(tessera_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  list(TRANSFORM ROOM_SHOWS PREPEND tessera_)
  list(TRANSFORM ROOM_USES PREPEND tessera_)
  target_link_libraries(tessera_${name} PUBLIC ${ROOM_SHOWS} PRIVATE ${ROOM_USES} tessera_options)
endfunction()
