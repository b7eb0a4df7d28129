# A room is a folder of the source tree that is a library of its own.
#
#   oravin_room(NAME [KNOWS ROOM...] [SOURCES FILE...])
#
# The room's headers are reached as "NAME/header.h" through a folder that holds a link to this room alone. A target sees
# the headers of the rooms it links, and of those that they know in turn; any other include does not build.
function(oravin_room name)
  cmake_parse_arguments(ROOM "" "" "KNOWS;SOURCES" ${ARGN})
  set(view "${CMAKE_BINARY_DIR}/rooms/${name}")
  file(MAKE_DIRECTORY "${view}")
  file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${view}/${name}" SYMBOLIC)
  add_library(${name} STATIC ${ROOM_SOURCES})
  target_include_directories(${name} PUBLIC "${view}")
  target_link_libraries(${name} PUBLIC ${ROOM_KNOWS} PRIVATE oravin_warnings)
endfunction()
