# Programs that people can start from: each folder of C++ sources is one, named as the folder, and links the library as a
# user would.
file(GLOB example_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/examples/*/*.cpp)
set(examples)
foreach(source IN LISTS example_sources)
  cmake_path(GET source PARENT_PATH folder)
  cmake_path(GET folder FILENAME name)
  list(APPEND examples ${name})
  list(APPEND example_sources_of_${name} ${source})
endforeach()
list(REMOVE_DUPLICATES examples)
foreach(name IN LISTS examples)
  add_executable(${name} ${example_sources_of_${name}})
  target_link_libraries(${name} PRIVATE morvl15_options morvl15)
  target_compile_options(${name} PRIVATE -Wno-conversion)
endforeach()
# ... which the companion shows with --version.
morvl15_version_texts(morvl PRODUCT_VERSION ${PROJECT_VERSION} FILE_VERSION ${PROJECT_VERSION})
