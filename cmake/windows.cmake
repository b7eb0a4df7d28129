# Libraries for Windows builds. The oldest supported system is Windows 7.
add_compile_definitions(UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0601 WINVER=0x0601 _FILE_OFFSET_BITS=64)

# Their packages for CMake are the machine's own too: it keeps an empty one for each that the project brings itself.
oravin_headers(CLI11::CLI11 CLI)
oravin_headers(nlohmann_json::nlohmann_json nlohmann)
foreach(package CLI11 nlohmann_json)
  file(WRITE "${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${package}Config.cmake" "")
endforeach()

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
