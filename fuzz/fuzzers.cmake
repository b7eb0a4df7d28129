# The fuzzers by name, and a program of one of them. fuzz/CMakeLists.txt links them with libFuzzer; tests/fuzz links
# them with a main of their own that replays their corpus.
set(oravin_fuzzers decompress hog_table hog_browse catalogue ship_list tcache_table bitmap texture_round_trip
  chunk_walk stats_text pack)
set(oravin_fuzz_folder "${CMAKE_CURRENT_LIST_DIR}")

function(oravin_fuzz_program target fuzzer)
  set(reference "${oravin_fuzz_folder}/../tests/formats/archive")
  add_executable(${target}
    "${oravin_fuzz_folder}/${fuzzer}.cpp"
    "${oravin_fuzz_folder}/input_file.cpp"
    "${reference}/reference_decoder.cpp"
    ${ARGN})
  target_include_directories(${target} PRIVATE "${oravin_fuzz_folder}" "${reference}")
  target_link_libraries(${target} PRIVATE tabs actions installation archive catalogue lists models stats textures desk files platform base oravin_warnings)
endfunction()
