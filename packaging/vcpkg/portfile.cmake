# An overlay port: vcpkg install qxfmt --overlay-ports=packaging/vcpkg, from a checkout. A port of a
# registry takes the sources by vcpkg_from_git in place of the next line.
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)

vcpkg_cmake_configure(
  SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS -DBUILD_TESTING=OFF -DQXFMT_BUILD_PROGRAMS=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/qxfmt)
vcpkg_fixup_pkgconfig()
file(REMOVE_RECURSE
  "${CURRENT_PACKAGES_DIR}/debug/include"
  "${CURRENT_PACKAGES_DIR}/debug/share"
  "${CURRENT_PACKAGES_DIR}/share/man")
# The owner has not chosen a licence yet.
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/packaging/debian/copyright")
