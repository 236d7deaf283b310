# Included by CMake in the builds of mutants, most of whose time would go into these headers.
function(precompile_headers)
  foreach(target qxfmt_core qxfmt_arena qxfmt_tests qxfmt_library_tests)
    set(headers <algorithm> <array> <bit> <charconv> <chrono> <cmath> <functional>
      <memory_resource> <optional> <string> <string_view> <vector>)
    if(target MATCHES "tests")
      list(APPEND headers <gtest/gtest.h>)
    endif()
    target_precompile_headers(${target} PRIVATE ${headers})
  endforeach()
endfunction()
cmake_language(DEFER CALL precompile_headers)
