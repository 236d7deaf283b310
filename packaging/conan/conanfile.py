"""conan create packaging/conan, from a checkout. Written for Conan 2."""

import os
import re

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load


class QxfmtConan(ConanFile):
    name = "qxfmt"
    description = "Display text for network measurements, and address text back into values"
    settings = "os", "arch", "compiler", "build_type"
    package_type = "library"
    options = {"shared": [True, False]}
    default_options = {"shared": True}

    def _checkout(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def set_version(self):
        version = load(self, os.path.join(self._checkout(), "cmake", "version.cmake"))
        self.version = re.search(r"QXFMT_VERSION ([0-9.]+)", version).group(1)

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "cmake/*", "include/*", "src/*", "docs/man/*", "packaging/debian/*"):
            copy(self, pattern, self._checkout(), self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["BUILD_TESTING"] = False
        toolchain.cache_variables["QXFMT_BUILD_PROGRAMS"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()

    def package_info(self):
        self.cpp_info.libs = ["qxfmt"]
        self.cpp_info.set_property("cmake_file_name", "qxfmt")
        self.cpp_info.set_property("cmake_target_name", "qxfmt::qxfmt")
        if not self.options.shared:
            self.cpp_info.defines = ["QXFMT_STATIC_DEFINE"]
