# What `cmake --install` puts onto a Linux machine: both libraries and their static twins, the headers, the guides, a
# CMake package and a pkg-config file; and the Debian package made of it (scripts/package.sh debian).
include(CMakePackageConfigHelpers)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/morvl15)

set(installed morvl15 morvl15host morvl15_static morvl15host_static)
set_target_properties(morvl15_static PROPERTIES OUTPUT_NAME morvl15)
set_target_properties(morvl15host_static PROPERTIES OUTPUT_NAME morvl15host)
set_target_properties(morvl15 morvl15host PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} INSTALL_RPATH "$ORIGIN")
install(TARGETS ${installed} EXPORT morvl15 DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT morvl15 NAMESPACE morvl15:: DESTINATION ${package_folder} FILE morvl15Targets.cmake)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/morvl15 DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING
  PATTERN *.md PATTERN *.png PATTERN *.html PATTERN windows.md EXCLUDE PATTERN doxygen EXCLUDE)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/morvl15Config.cmake.in
  ${PROJECT_BINARY_DIR}/generated/morvl15Config.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/generated/morvl15ConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/generated/morvl15Config.cmake
  ${PROJECT_BINARY_DIR}/generated/morvl15ConfigVersion.cmake ${PROJECT_SOURCE_DIR}/cmake/VersionTexts.cmake
  DESTINATION ${package_folder})

file(RELATIVE_PATH to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${PROJECT_SOURCE_DIR}/cmake/morvl15.pc.in ${PROJECT_BINARY_DIR}/generated/morvl15.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/generated/morvl15.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME libmorvl15-dev)
set(CPACK_PACKAGE_CONTACT "the morvl15 developers <morvl15@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Exact decimal numbers, formatting and parsing of numbers and dates by pictures,
input masks, double-byte-safe strings, shared memory heaps, printing.
.
Both libraries, their static twins, the headers and the guides.")
include(CPack)
