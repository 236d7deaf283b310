# What cmake --install brings, and how users find it. Components: runtime (the shared library),
# development (headers, the static library, what finds them) and programs.
include(CMakePackageConfigHelpers)

if(BUILD_SHARED_LIBS)
  set(kind shared)
else()
  set(kind static)
endif()

install(TARGETS qxfmt EXPORT qxfmt-${kind}-targets
  RUNTIME COMPONENT runtime
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE COMPONENT development)
install(DIRECTORY include/qxfmt DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

# A shared and a static library can lie in one prefix: each brings its own targets file.
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/qxfmt)
install(EXPORT qxfmt-${kind}-targets NAMESPACE qxfmt:: DESTINATION ${package_dir}
  COMPONENT development)
configure_package_config_file(cmake/qxfmt-config.cmake.in qxfmt-config.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(qxfmt-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/qxfmt-config.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/qxfmt-config-version.cmake
  DESTINATION ${package_dir} COMPONENT development)

# The prefix that counts is known at installation only, so qxfmt.pc finds it from its own place.
# With an absolute library directory it lies at a fixed place, and so does the prefix.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(pc_prefix ${CMAKE_INSTALL_PREFIX})
else()
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX OUTPUT_VARIABLE way_back
    BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig)
  set(pc_prefix "\${pcfiledir}/${way_back}")
endif()
foreach(directory libdir includedir)
  string(TOUPPER CMAKE_INSTALL_${directory} chosen)
  cmake_path(ABSOLUTE_PATH ${chosen} BASE_DIRECTORY "\${prefix}" OUTPUT_VARIABLE pc_${directory})
endforeach()
# What a C++ compiler adds by itself, for those who link the static library with a C compiler.
set(pc_libs_private ${CMAKE_CXX_IMPLICIT_LINK_LIBRARIES})
list(FILTER pc_libs_private INCLUDE REGEX "^(stdc\\+\\+|c\\+\\+|c\\+\\+abi|m)$")
list(TRANSFORM pc_libs_private PREPEND -l)
list(JOIN pc_libs_private " " pc_libs_private)
configure_file(cmake/qxfmt.pc.in qxfmt.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qxfmt.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# Man pages say the version of the build. Compressed, as distributions ask.
find_program(GZIP gzip)
foreach(page qxfmt.3 qxfmt-meter.1 qxfmt-address.1 qxfmt-capture.1)
  cmake_path(GET page STEM name)
  cmake_path(GET page EXTENSION LAST_ONLY section)
  string(SUBSTRING ${section} 1 1 section)
  if(NOT section EQUAL 3 AND NOT TARGET ${name})
    continue()
  endif()
  set(component programs)
  if(section EQUAL 3)
    set(component development)
  endif()
  configure_file(docs/man/${page}.in man/${page} @ONLY)
  if(GZIP)
    execute_process(COMMAND ${GZIP} -9nkf ${CMAKE_CURRENT_BINARY_DIR}/man/${page})
    string(APPEND page .gz)
  endif()
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/man/${page}
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section} COMPONENT ${component})
endforeach()
