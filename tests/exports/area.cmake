# The built library as a host sees it, and the installed package used from a build tree of its own.
target_sources(test_exports PRIVATE exports/header_c99.c)
set_source_files_properties(exports/header_c99.c exports/header_cpp.cpp PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
set_source_files_properties(exports/header_c99.c PROPERTIES COMPILE_OPTIONS "-std=c99;-pedantic-errors;-Wall;-Wextra")
target_include_directories(test_exports PRIVATE ${PROJECT_SOURCE_DIR}/src/exports)
target_compile_definitions(test_exports PRIVATE PN10_LIBRARY="$<TARGET_FILE:pn10gdi>")
add_dependencies(test_exports pn10gdi)
# A plain host can't load a library that was built with a sanitizer.
if(NOT PN10_SANITIZE)
  add_test(NAME package.find_package_and_pkg_config
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/consumer/run.sh ${CMAKE_BINARY_DIR} ${CMAKE_CURRENT_BINARY_DIR}/package ${PROJECT_SOURCE_DIR})
endif()
