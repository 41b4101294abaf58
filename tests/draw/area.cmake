# The golden logs come from scripts that know nothing of the library; here they prove it.
add_test(NAME Goldens.are_what_their_scripts_work_out
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/draw/goldens.sh ${CMAKE_CURRENT_BINARY_DIR}/goldens ${PROJECT_SOURCE_DIR})
