# One program a room, each with what a user would otherwise take in the same run.
find_package(benchmark REQUIRED)
find_package(ICU REQUIRED COMPONENTS uc i18n)
find_package(Boost REQUIRED)

file(GLOB bench_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/bench/*_bench.cpp)
foreach(source IN LISTS bench_sources)
  get_filename_component(name ${source} NAME_WE)
  set(peers)
  if(EXISTS ${PROJECT_SOURCE_DIR}/bench/${name}_peers.c)
    set(peers ${PROJECT_SOURCE_DIR}/bench/${name}_peers.c)
  endif()
  add_executable(${name} ${source} ${peers})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PRIVATE morvl15_static benchmark::benchmark ICU::uc ICU::i18n Boost::boost)
  target_compile_options(${name} PRIVATE -Wall -Wextra)
endforeach()

# It prints the poster of the examples, and draws the same through cairo alone.
target_sources(print_bench PRIVATE ${PROJECT_SOURCE_DIR}/examples/poster/drawing.cpp)
target_link_libraries(print_bench PRIVATE PkgConfig::drawing)
