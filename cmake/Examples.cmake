# Programs that people can start from. Each stands in a folder of its own and links the library as a user would.
file(GLOB example_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/examples/*/*.cpp)
foreach(source IN LISTS example_sources)
  get_filename_component(name ${source} NAME_WE)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE morvl15_options morvl15)
  target_compile_options(${name} PRIVATE -Wno-conversion)
endforeach()
