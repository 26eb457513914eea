# A room is a folder of the source tree and the one library in it, moistair_FOLDER. A header is included as
# "room/header.h", and that name can be found only by a target that links the room: its library offers a folder of the
# build tree that holds a link to this room and to no other. So an include against the direction of the arrows does not
# build.
#
#   moistair_room(SOURCES ... [LINKS ...] [WIDGETS])     WIDGETS: the room has windows and may use Qt Widgets
function(moistair_room)
  cmake_parse_arguments(PARSE_ARGV 0 room "WIDGETS" "" "SOURCES;LINKS")
  cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME folder)
  set(name moistair_${folder})
  set(includes ${CMAKE_BINARY_DIR}/rooms/${folder})
  file(MAKE_DIRECTORY ${includes})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${includes}/${folder} SYMBOLIC)
  add_library(${name} STATIC ${room_SOURCES})
  target_include_directories(${name} PUBLIC ${includes})
  target_link_libraries(${name} PUBLIC ${room_LINKS} PRIVATE moistair_options)
  # Every room can be linked into a module too; hidden, its functions cost no more there than in a program.
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  if(room_WIDGETS)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
    target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
  endif()
endfunction()
