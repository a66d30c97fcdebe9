# The library and, for the native host, the host library that stands in for the platform. Each is compiled once, as an
# object library, and linked as a shared library and its static twin.
set(rooms frame memory number intl format datetime mask print dialog font)
set(host_rooms kernel locale user gdi spool)

set(library_sources)
foreach(room IN LISTS rooms)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${room}/*.cpp)
  list(APPEND library_sources ${sources})
endforeach()

if(NOT WIN32)
  set(host_sources)
  foreach(room IN LISTS host_rooms)
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/host/${room}/*.cpp)
    list(APPEND host_sources ${sources})
  endforeach()
  list(APPEND library_sources ${PROJECT_SOURCE_DIR}/src/host/library_module.cpp)

  find_package(Threads REQUIRED)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(drawing REQUIRED IMPORTED_TARGET cairo cairo-ft fontconfig freetype2)
  find_package(Cups REQUIRED)
  add_library(morvl15host_objects OBJECT ${host_sources})
  target_link_libraries(morvl15host_objects PUBLIC PkgConfig::drawing PRIVATE morvl15_options)
  add_library(morvl15host SHARED)
  add_library(morvl15host_static STATIC)
  foreach(target morvl15host morvl15host_static)
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:morvl15host_objects>)
    target_link_libraries(${target} PRIVATE ${drawing_LIBRARIES} cups Threads::Threads
      $<BUILD_INTERFACE:morvl15_options>)
    target_include_directories(${target} PUBLIC
      $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  endforeach()
endif()

add_library(morvl15_objects OBJECT ${library_sources})
target_link_libraries(morvl15_objects PRIVATE morvl15_options)
target_compile_definitions(morvl15_objects PRIVATE MORVL15_BUILD)
target_compile_options(morvl15_objects PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions>)

foreach(target morvl15host_objects morvl15_objects)
  if(TARGET ${target})
    set_target_properties(${target} PROPERTIES
      POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    if(NOT WIN32)  # nobody puts functions of his own in the place of the libraries': calls go straight
      target_compile_options(${target} PRIVATE -fno-plt -fno-semantic-interposition)
    endif()
  endif()
endforeach()

set(libraries morvl15)
add_library(morvl15 SHARED)
if(NOT WIN32)
  list(APPEND libraries morvl15_static)
  add_library(morvl15_static STATIC)
  target_compile_definitions(morvl15_static PUBLIC MORVL15_STATIC)
endif()
foreach(target IN LISTS libraries)
  target_sources(${target} PRIVATE $<TARGET_OBJECTS:morvl15_objects>)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:morvl15_options>)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
endforeach()
if(WIN32)
  include(cmake/WindowsLibrary.cmake)
else()
  target_link_options(morvl15 PRIVATE LINKER:-Bsymbolic-functions)
  target_link_options(morvl15host PRIVATE LINKER:-Bsymbolic-functions)
  target_link_libraries(morvl15 PUBLIC morvl15host)
  target_link_libraries(morvl15_static PUBLIC morvl15host_static)
  # Takes in the object that attaches the library to the process, which nothing else refers to.
  target_link_options(morvl15_static INTERFACE LINKER:--undefined=morvl15LibraryModule)
endif()

include(cmake/VersionTexts.cmake)
if(NOT WIN32)  # there the library's resource script holds them
  morvl15_version_texts(morvl15 PRODUCT_VERSION ${PROJECT_VERSION} FILE_VERSION ${PROJECT_VERSION})
endif()
if(NOT WIN32)
  include(cmake/Install.cmake)
endif()
