# A room is a folder of the source tree that is a library of its own.
#
#   oravin_room(NAME [KNOWS ROOM...] [HIDDEN HEADER...] SOURCES FILE...)
#
# The room's headers are reached as "NAME/header.h" through a folder of links to this room alone. A target sees the headers of
# the rooms that it links, and of those that they know in turn; any other include does not build. HIDDEN headers are seen by
# the room itself and by what links NAME_hidden.
function(oravin_room name)
  cmake_parse_arguments(ROOM "" "" "KNOWS;HIDDEN;SOURCES" ${ARGN})
  set(view "${CMAKE_BINARY_DIR}/rooms/${name}")
  if(IS_SYMLINK "${view}/${name}")
    file(REMOVE "${view}/${name}")
  endif()
  if(ROOM_HIDDEN)
    file(MAKE_DIRECTORY "${view}/${name}" "${view}_hidden")
    file(GLOB entries CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}/*")
    list(REMOVE_ITEM entries ${ROOM_HIDDEN})
    foreach(entry IN LISTS entries)
      file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}/${entry}" "${view}/${name}/${entry}" SYMBOLIC)
    endforeach()
    file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${view}_hidden/${name}" SYMBOLIC)
    add_library(${name}_hidden INTERFACE)
    target_include_directories(${name}_hidden INTERFACE "${view}_hidden")
  else()
    file(MAKE_DIRECTORY "${view}")
    file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${view}/${name}" SYMBOLIC)
  endif()
  add_library(${name} STATIC ${ROOM_SOURCES})
  target_include_directories(${name} PUBLIC "${view}")
  target_link_libraries(${name} PUBLIC ${ROOM_KNOWS} PRIVATE oravin_warnings)
  if(ROOM_HIDDEN)
    target_link_libraries(${name} PRIVATE ${name}_hidden)
  endif()
endfunction()
