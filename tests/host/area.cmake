# The tests run the built program; the grid index of the imports is tested on its own.
target_sources(test_host PRIVATE ${PROJECT_SOURCE_DIR}/host/import_index.cpp)
target_include_directories(test_host PRIVATE ${PROJECT_SOURCE_DIR}/host)
target_compile_definitions(test_host PRIVATE PN10_PROGRAM="$<TARGET_FILE:pn10>")
add_dependencies(test_host pn10)
add_library(no_pages SHARED host/no_pages.c)
target_include_directories(no_pages PRIVATE ${PROJECT_SOURCE_DIR}/src/exports)
target_compile_definitions(test_host PRIVATE PN10_NO_PAGES="$<TARGET_FILE:no_pages>")
add_dependencies(test_host no_pages)
# A plain program can't load a library that was built with a sanitizer.
if(NOT PN10_SANITIZE)
  add_test(NAME docs.host_guide_compiles_and_runs
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/host/guide.sh ${CMAKE_BINARY_DIR}/src ${CMAKE_CURRENT_BINARY_DIR}/guide ${PROJECT_SOURCE_DIR})
endif()
