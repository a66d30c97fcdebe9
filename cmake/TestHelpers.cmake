# Programs and modules that tests start or load; they stand beside the test programs.
add_executable(shared_heap_worker ${PROJECT_SOURCE_DIR}/tests/helpers/shared_heap_worker.cpp)
target_include_directories(shared_heap_worker PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_compile_options(shared_heap_worker PRIVATE -Wno-conversion)
target_link_libraries(shared_heap_worker PRIVATE morvl15_options morvl15)
foreach(tests memory_tests dialog_tests)
  if(TARGET ${tests})
    add_dependencies(${tests} shared_heap_worker)
  endif()
endforeach()

# Modules with version texts in either table, in both, and with none.
function(add_version_module name)
  add_library(${name} MODULE ${PROJECT_SOURCE_DIR}/tests/helpers/version_module.cpp)
  target_link_libraries(${name} PRIVATE morvl15_options)
  set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX ".module"
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  if(TARGET frame_tests)
    add_dependencies(frame_tests ${name})
  endif()
endfunction()

add_version_module(version_unicode)
morvl15_version_texts(version_unicode PRODUCT_VERSION "Unicode 1.2" FILE_VERSION "1.2.3 \"U\" \\build\\")
add_version_module(version_latin)
morvl15_version_texts(version_latin PRODUCT_VERSION "Latin 2.0" FILE_VERSION "2.0.1" TABLE 040904E4)
add_version_module(version_both)
morvl15_version_texts(version_both PRODUCT_VERSION "Both, Latin" TABLE 040904E4)
morvl15_version_texts(version_both PRODUCT_VERSION "Both, Unicode")
add_version_module(version_none)

if(TARGET frame_tests AND NOT WIN32)
  morvl15_version_texts(frame_tests PRODUCT_VERSION ${PROJECT_VERSION} FILE_VERSION ${PROJECT_VERSION})
endif()

# Shows the library's dialogs; scripts/dialog_pictures.sh takes their pictures.
if(WIN32)
  add_executable(dialog_pictures EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/tests/helpers/dialog_pictures.cpp)
  target_link_libraries(dialog_pictures PRIVATE morvl15_options morvl15)
endif()
