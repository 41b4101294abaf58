# Every fuzz target is compiled into one program, its entry renamed to fuzz_<name>, and run on its committed seeds.
file(GLOB fuzz_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/fuzz/*.cpp)
set(fuzz_targets "")
foreach(source IN LISTS fuzz_sources)
  get_filename_component(name ${source} NAME_WE)
  string(APPEND fuzz_targets "FUZZ_TARGET(${name})\n")
  set_source_files_properties(${source} PROPERTIES
    SKIP_PRECOMPILE_HEADERS ON COMPILE_DEFINITIONS LLVMFuzzerTestOneInput=fuzz_${name})
endforeach()
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/seeds/fuzz_targets.inc CONTENT "${fuzz_targets}")
target_sources(test_seeds PRIVATE ${fuzz_sources})
target_include_directories(test_seeds PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/seeds)
target_compile_definitions(test_seeds PRIVATE PN10_FUZZ_DIR="${PROJECT_SOURCE_DIR}/fuzz")
