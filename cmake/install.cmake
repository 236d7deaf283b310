# What cmake --install brings, and how users find it.
include(CMakePackageConfigHelpers)

install(TARGETS qxfmt EXPORT qxfmt-targets)
install(DIRECTORY include/qxfmt DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/qxfmt)
install(EXPORT qxfmt-targets NAMESPACE qxfmt:: DESTINATION ${package_dir})
configure_package_config_file(cmake/qxfmt-config.cmake.in qxfmt-config.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(qxfmt-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/qxfmt-config.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/qxfmt-config-version.cmake
  DESTINATION ${package_dir})

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
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qxfmt.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
