# A room is a folder of the source tree and one or two libraries in it. A header is included as "room/header.h", and that
# name can be found only by a target that links the room: its library offers a folder of the build tree that holds a link
# to this room and to no other. So an include against the direction of the arrows does not build.
#
#   moistair_room(NAME ROOM folder SOURCES ... [LINKS ...])
function(moistair_room name)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "ROOM" "SOURCES;LINKS")
  set(includes ${CMAKE_BINARY_DIR}/rooms/${room_ROOM})
  file(MAKE_DIRECTORY ${includes})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${includes}/${room_ROOM} SYMBOLIC)
  add_library(${name} STATIC ${room_SOURCES})
  target_include_directories(${name} PUBLIC ${includes})
  target_link_libraries(${name} PUBLIC ${room_LINKS} PRIVATE moistair_options)
endfunction()

# The same for a room's windows: a second library in the folder, which may use Qt Widgets.
function(moistair_windows name)
  moistair_room(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PUBLIC Qt6::Widgets)
  target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
endfunction()
