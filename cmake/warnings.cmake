# For every target of the project. Warnings are errors.
add_library(oravin_warnings INTERFACE)
target_compile_options(oravin_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat=2 -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # False positives of GCC 12 in inlined std::string and std::vector code.
  target_compile_options(oravin_warnings INTERFACE
    -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()
if(ORAVIN_UNITY)
  target_compile_options(oravin_warnings INTERFACE -Wno-shadow)  # names of other files in the same unit
endif()

if(ORAVIN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
