# oravin_headers(TARGET NAME): a target that brings a folder or a file of this machine's headers, and nothing else of
# /usr/include: a build for another system must not see this machine's C library. They count as the system's headers.
function(oravin_headers target name)
  if(NOT EXISTS "/usr/include/${name}")
    message(FATAL_ERROR "The headers of ${target} are not installed: /usr/include/${name}")
  endif()
  string(MAKE_C_IDENTIFIER "${target}" folder)
  set(view "${CMAKE_BINARY_DIR}/headers/${folder}")
  file(MAKE_DIRECTORY "${view}")
  file(CREATE_LINK "/usr/include/${name}" "${view}/${name}" SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} INTERFACE "${view}")
endfunction()

oravin_headers(stb stb)
oravin_headers(xxhash xxhash.h)
