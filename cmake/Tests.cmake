# One test program a room. Tests see the internal headers, so each program holds the library's objects itself. Files
# that end in _native.cpp need the native host's controls and stay out of the Windows build; those that end in
# _windows.cpp are for that build alone.
if(WIN32)
  set(other_host native)
  # There is no built one for this target: it is built from its packaged sources.
  set(MORVL15_GOOGLETEST /usr/src/googletest/googletest CACHE PATH "GoogleTest's sources")
  set(INSTALL_GTEST OFF)
  add_subdirectory(${MORVL15_GOOGLETEST} googletest EXCLUDE_FROM_ALL)
else()
  set(other_host windows)
  find_package(GTest REQUIRED)
endif()
include(GoogleTest)

file(GLOB support_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/support/*.cpp)
list(FILTER support_sources EXCLUDE REGEX "_${other_host}\\.cpp$")
add_library(test_support OBJECT ${support_sources})
target_link_libraries(test_support PUBLIC morvl15_options GTest::gtest)
target_compile_definitions(test_support PUBLIC MORVL15_STATIC)
target_include_directories(test_support PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
target_compile_options(test_support PUBLIC -O1)  # the tests' own code runs once; it is compiling that takes time

foreach(room IN LISTS rooms ITEMS host examples)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${room}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "_${other_host}\\.cpp$")
  if(NOT sources)
    continue()
  endif()
  add_executable(${room}_tests ${sources})
  target_link_libraries(${room}_tests PRIVATE test_support morvl15_objects GTest::gtest)
  target_compile_options(${room}_tests PRIVATE -Wno-conversion)
  if(WIN32)
    target_link_libraries(${room}_tests PRIVATE morvl15_resources)
  else()
    set(host_library morvl15host)
    if(room STREQUAL "host")  # its tests see the inside of the host library
      set(host_library morvl15host_static cups)
    endif()
    target_link_libraries(${room}_tests PRIVATE ${host_library} PkgConfig::drawing ${CMAKE_DL_LIBS})
    if(room STREQUAL "examples")
      target_link_libraries(examples_tests PRIVATE util)
      target_compile_definitions(examples_tests PRIVATE MORVL_VERSION="${PROJECT_VERSION}")
      foreach(example IN LISTS examples)
        add_dependencies(examples_tests ${example})
        string(TOUPPER ${example} name)
        target_compile_definitions(examples_tests PRIVATE
          ${name}_PROGRAM="$<TARGET_FILE:${example}>" ${name}_FOLDER="${PROJECT_SOURCE_DIR}/examples/${example}")
      endforeach()
    endif()
    # Tests of named objects look at what is left behind below the machine's common prefix: one program at a time.
    set(lock)
    if(room MATCHES "^(host|memory)$")
      set(lock PROPERTIES RESOURCE_LOCK named_objects)
    endif()
    set(leaks)
    if(room STREQUAL "examples")  # for the programs that they start; the tests themselves know it
      set(leaks PROPERTIES ENVIRONMENT "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/leaks.txt")
    endif()
    gtest_discover_tests(${room}_tests DISCOVERY_TIMEOUT 60 ${lock} ${leaks})
  endif()
endforeach()

include(cmake/TestHelpers.cmake)

# The headers compile as plain C too, and a C program links.
add_executable(c_header_test ${PROJECT_SOURCE_DIR}/tests/boundary/c_header_test.c)
target_link_libraries(c_header_test PRIVATE morvl15_options morvl15)

# What the pages show in C and C++ compiles.
if(NOT WIN32)
  file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
  list(PREPEND pages ${PROJECT_SOURCE_DIR}/README.md)
  foreach(language c cpp)
    set(snippets ${PROJECT_BINARY_DIR}/generated/snippets.${language})
    add_custom_command(OUTPUT ${snippets}
      COMMAND awk -v language=${language} -f ${PROJECT_SOURCE_DIR}/cmake/snippets.awk ${pages} > ${snippets}
      DEPENDS ${pages} ${PROJECT_SOURCE_DIR}/cmake/snippets.awk VERBATIM)
    add_library(snippets_${language} OBJECT ${snippets})
    target_link_libraries(snippets_${language} PRIVATE morvl15_options)
    target_compile_options(snippets_${language} PRIVATE -Wno-unused-variable -Wno-conversion -Wno-sign-conversion)
  endforeach()
endif()

# The library as its callers see it: what it exports and, on Windows, what it imports and how it behaves when it is
# loaded by name. The programs of the Windows build are run by scripts/test.sh.
if(WIN32)
  file(STRINGS ${PROJECT_SOURCE_DIR}/cmake/exports.txt exports REGEX "^[^#]")
  list(TRANSFORM exports REPLACE "^([A-Za-z0-9_]+).*$" "EXPORT(\\1)")
  list(JOIN exports "\n" exports)
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/generated/exports.def CONTENT "${exports}\n")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.txt)
  add_executable(boundary_tests ${PROJECT_SOURCE_DIR}/tests/boundary/load_library_windows.cpp)
  target_include_directories(boundary_tests PRIVATE ${PROJECT_BINARY_DIR}/generated)
  target_link_libraries(boundary_tests PRIVATE morvl15_options GTest::gtest_main version)
  add_dependencies(boundary_tests morvl15)
  add_test(NAME Boundary.Imports COMMAND ${CMAKE_COMMAND}
    -DOBJDUMP=${CMAKE_OBJDUMP} -DLIBRARY=$<TARGET_FILE:morvl15> -P ${PROJECT_SOURCE_DIR}/cmake/CheckImports.cmake)
else()
  add_test(NAME Boundary.CHeaders COMMAND c_header_test)
endif()
add_test(NAME Boundary.Exports COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM} -DOBJDUMP=${CMAKE_OBJDUMP}
  -DLIBRARY=$<TARGET_FILE:morvl15> -DEXPORTS=${PROJECT_SOURCE_DIR}/cmake/exports.txt
  -P ${PROJECT_SOURCE_DIR}/cmake/CheckExports.cmake)
add_test(NAME Boundary.Headers COMMAND ${CMAKE_COMMAND} -DINCLUDE=${PROJECT_SOURCE_DIR}/include/morvl15
  -DEXPORTS=${PROJECT_SOURCE_DIR}/cmake/exports.txt -P ${PROJECT_SOURCE_DIR}/cmake/CheckHeaders.cmake)
if(MORVL15_SANITIZE)
  set_tests_properties(Boundary.Exports PROPERTIES DISABLED TRUE)
endif()

# The one benchmark that is built for both hosts; scripts/compare_hosts.sh runs it.
add_executable(host_timing EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/bench/host_timing.cpp)
target_link_libraries(host_timing PRIVATE morvl15_options morvl15)
target_compile_options(host_timing PRIVATE -Wno-conversion)
