# Debian packages of the installed components: cpack -G DEB in a build for the prefix /usr;
# scripts/package does it all.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qxfmt)
set(CPACK_PACKAGE_VENDOR QXFMT)
set(CPACK_PACKAGE_CONTACT "QXFMT maintainers <maintainers@qxfmt.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development programs)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libqxfmt${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "display text for network measurements
QXFMT turns byte and bit counts, rates, numbers, timestamps, durations and
addresses into short UTF-16 texts, and typed address text back into values.

This package has the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libqxfmt-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "libqxfmt${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "display text for network measurements (development files)
QXFMT turns byte and bit counts, rates, numbers, timestamps, durations and
addresses into short UTF-16 texts, and typed address text back into values.

This package has the headers, and what CMake and pkg-config need.")

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME qxfmt-tools)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION "meters and viewers of network traffic
Programs on the QXFMT library: qxfmt-meter shows the traffic of this host's
interfaces, qxfmt-address says what a typed address is, and qxfmt-capture
lists and sums up captured packets.")

# After a change of the libraries installed.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)

# What each Debian package has to say of itself.
foreach(component runtime development programs)
  string(TOUPPER ${component} upper)
  set(documents ${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  install(FILES packaging/debian/copyright DESTINATION ${documents} COMPONENT ${component})
  install(FILES ${PROJECT_BINARY_DIR}/changelog.Debian.gz DESTINATION ${documents}
    COMPONENT ${component})
endforeach()

# Manual pages and the changelog lie compressed there, without the time of compression.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)  # SOURCE_DATE_EPOCH if it is set
configure_file(packaging/debian/changelog.in changelog.Debian @ONLY)
execute_process(COMMAND gzip -9nkf ${PROJECT_BINARY_DIR}/changelog.Debian
  COMMAND_ERROR_IS_FATAL ANY)
include(CPack)
