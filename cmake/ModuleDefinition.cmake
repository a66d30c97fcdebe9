# Makes the module definition files of the Windows library from the list of exports.
#   PLAIN      names as the library exports them, undecorated
#   DECORATED  names as the compiler knows them (Name@bytes for the calling convention), which the import library needs
# The bytes come from the library's OBJECTS, read by NM. A name that the objects don't define, or a function of another
# calling convention, ends the build.
execute_process(COMMAND ${NM} --defined-only --extern-only ${OBJECTS} OUTPUT_VARIABLE table RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "${NM} cannot read the objects")
endif()

set(plain "LIBRARY ${LIBRARY}\nEXPORTS\n")
set(decorated "${plain}")
file(STRINGS ${EXPORTS} entries REGEX "^[^#]")
foreach(entry IN LISTS entries)
  string(REGEX MATCH "^[A-Za-z0-9_]+" name "${entry}")
  if(entry MATCHES " DATA$")
    set(wanted "_${name}")
    set(suffix " DATA")
  else()
    set(wanted "_${name}@[0-9]+")
    set(suffix "")
  endif()
  if(NOT table MATCHES " _(${name}(@[0-9]+)?)\n")
    message(FATAL_ERROR "${name} is on the list of exports, but no object defines it")
  endif()
  set(symbol "${CMAKE_MATCH_1}")
  if(NOT "_${symbol}" MATCHES "^${wanted}$")
    message(FATAL_ERROR "${name}: ${symbol} is not of the calling convention of exports")
  endif()
  string(APPEND plain "  ${name}${suffix}\n")
  string(APPEND decorated "  ${symbol}${suffix}\n")
endforeach()
file(WRITE ${PLAIN} "${plain}")
file(WRITE ${DECORATED} "${decorated}")
