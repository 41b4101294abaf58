# SetHQDll finds the calculation library through the run path of the test program.
add_dependencies(test_lookup hq50_calcs)
target_include_directories(test_lookup PRIVATE ${PROJECT_SOURCE_DIR}/calcs)
set_target_properties(test_lookup PROPERTIES BUILD_RPATH ${PROJECT_BINARY_DIR}/src)
