# What the library needs on Windows beyond its objects: resources, module definition files, an import library.
enable_language(RC)
configure_file(${PROJECT_SOURCE_DIR}/src/resources/version.h.in ${PROJECT_BINARY_DIR}/generated/version.h @ONLY)

# The test programs hold the library's objects, so they hold its resources too.
add_library(morvl15_resources OBJECT ${PROJECT_SOURCE_DIR}/src/resources/morvl15.rc)
target_include_directories(morvl15_resources PRIVATE ${PROJECT_BINARY_DIR}/generated)
target_link_libraries(morvl15_resources INTERFACE version winspool comdlg32 gdi32)
set_property(SOURCE ${PROJECT_SOURCE_DIR}/src/resources/morvl15.rc APPEND PROPERTY OBJECT_DEPENDS
  "${PROJECT_SOURCE_DIR}/src/resources/strings.def;${PROJECT_SOURCE_DIR}/src/resources/dialogs.def")

set(module_definition ${PROJECT_BINARY_DIR}/lib/morvl15.def)
set(decorated_definition ${PROJECT_BINARY_DIR}/generated/morvl15_decorated.def)
add_custom_command(
  OUTPUT ${module_definition} ${decorated_definition}
  COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM} "-DOBJECTS=$<TARGET_OBJECTS:morvl15_objects>"
    -DEXPORTS=${PROJECT_SOURCE_DIR}/cmake/exports.txt -DLIBRARY=morvl15.dll
    -DPLAIN=${module_definition} -DDECORATED=${decorated_definition}
    -P ${PROJECT_SOURCE_DIR}/cmake/ModuleDefinition.cmake
  DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.txt ${PROJECT_SOURCE_DIR}/cmake/ModuleDefinition.cmake
    morvl15_objects $<TARGET_OBJECTS:morvl15_objects>
  VERBATIM)

target_sources(morvl15 PRIVATE ${module_definition})
target_link_libraries(morvl15 PRIVATE morvl15_resources)
# Functions are __stdcall: callers that link refer to Name@bytes, the library exports Name. The linker's own import
# library would hold undecorated symbols, so it is made anew from the decorated names.
target_link_options(morvl15 PRIVATE LINKER:--enable-stdcall-fixup)
set_target_properties(morvl15 PROPERTIES PREFIX "" IMPORT_PREFIX "lib")
add_custom_command(TARGET morvl15 POST_BUILD
  COMMAND ${CMAKE_DLLTOOL} --kill-at --dllname morvl15.dll
    --input-def ${decorated_definition} --output-lib $<TARGET_LINKER_FILE_NAME:morvl15>
  WORKING_DIRECTORY ${CMAKE_ARCHIVE_OUTPUT_DIRECTORY}
  VERBATIM)

# The package: scripts/package.sh windows.
install(TARGETS morvl15 RUNTIME DESTINATION bin ARCHIVE DESTINATION lib)
install(FILES ${module_definition} DESTINATION lib)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/morvl15 DESTINATION include
  PATTERN host EXCLUDE PATTERN host_native.h EXCLUDE)
install(FILES ${PROJECT_SOURCE_DIR}/docs/windows.md DESTINATION . RENAME README.md)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION .)
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME morvl15-${PROJECT_VERSION}-win32)
set(CPACK_STRIP_FILES ON)
include(CPack)
