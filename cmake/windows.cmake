# Libraries for Windows builds. The oldest supported system is Windows 7.
add_compile_definitions(UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0601 WINVER=0x0601 _FILE_OFFSET_BITS=64)

# Header-only libraries are in /usr/include, next to the headers of Linux' C library, which must not be found. So the
# compiler gets a folder with a link to the one library, and find_package is redirected to it.
function(oravin_headers_alone package target folder)
  set(view "${CMAKE_BINARY_DIR}/headers/${package}")
  file(MAKE_DIRECTORY "${view}")
  if(NOT EXISTS "/usr/include/${folder}")
    message(FATAL_ERROR "The headers of ${package} are not installed.")
  endif()
  file(CREATE_LINK "/usr/include/${folder}" "${view}/${folder}" SYMBOLIC)
  file(WRITE "${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${package}Config.cmake"
    "if(NOT TARGET ${target})
  add_library(${target} INTERFACE IMPORTED)
  target_include_directories(${target} INTERFACE \"${view}\")
endif()
")
endfunction()
oravin_headers_alone(CLI11 CLI11::CLI11 CLI)
oravin_headers_alone(nlohmann_json nlohmann_json::nlohmann_json nlohmann)

# GoogleTest is built from Debian's source package.
if(BUILD_TESTING OR NOT DEFINED BUILD_TESTING)
  set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  add_subdirectory(/usr/src/googletest "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)
  file(WRITE "${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/GTestConfig.cmake" "")
endif()

# wxWidgets is built once and cached; the first time takes some minutes.
if(ORAVIN_WINDOW)
  execute_process(COMMAND "${PROJECT_SOURCE_DIR}/tools/windows-wxwidgets.sh"
    OUTPUT_VARIABLE wxwidgets_folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  list(APPEND CMAKE_FIND_ROOT_PATH "${wxwidgets_folder}")
  set(wxWidgets_CONFIG_EXECUTABLE "${wxwidgets_folder}/bin/wx-config" CACHE FILEPATH "" FORCE)
endif()
