# Writes the import library of the 32-bit DLL anew: the DLL shows its functions undecorated, while a compiler asks for
# _Name@bytes. Arguments: NM, DLLTOOL, ARCHIVE (the objects), NAMES (the .def file), DLL, OUTPUT.
execute_process(COMMAND ${NM} --defined-only ${ARCHIVE} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
file(STRINGS ${NAMES} lines REGEX "^  ")
set(def "EXPORTS\n")
foreach(line IN LISTS lines)
  string(STRIP "${line}" name)
  if(NOT symbols MATCHES " T _(${name}@[0-9]+)\n")
    message(FATAL_ERROR "${name} is not among the objects")
  endif()
  string(APPEND def "  ${CMAKE_MATCH_1}\n")
endforeach()
file(WRITE ${OUTPUT}.def "${def}")
execute_process(COMMAND ${DLLTOOL} --kill-at --input-def ${OUTPUT}.def --dllname ${DLL} --output-lib ${OUTPUT}
  COMMAND_ERROR_IS_FATAL ANY)
