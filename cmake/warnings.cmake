# Every target of the project is built with these; a warning is an error.
add_library(oravin_warnings INTERFACE)
target_compile_options(oravin_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat=2 -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 takes the inlined std::string and std::vector code for overlapping or out-of-bounds copies.
  target_compile_options(oravin_warnings INTERFACE
    -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()
if(ORAVIN_UNITY)
  target_compile_options(oravin_warnings INTERFACE -Wno-shadow)  # a name of another file is not in the way
endif()

if(ORAVIN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
