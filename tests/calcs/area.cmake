# The tests load the calculation library by its path.
add_dependencies(test_calcs hq50_calcs)
target_include_directories(test_calcs PRIVATE ${PROJECT_SOURCE_DIR}/calcs)
