# The flags of our own code: qxfmt_flags reaches no user's target.
include(CheckCXXSourceCompiles)

add_library(qxfmt_flags INTERFACE)
target_compile_features(qxfmt_flags INTERFACE cxx_std_20)

if(MSVC)
  # 5030: attributes of other compilers. 4251: standard types in exported classes.
  target_compile_options(qxfmt_flags INTERFACE /utf-8 /W4 /wd5030 /wd4251 /permissive-
    $<$<BOOL:${QXFMT_WARNINGS_AS_ERRORS}>:/WX>)
  target_compile_definitions(qxfmt_flags INTERFACE _CRT_SECURE_NO_WARNINGS NOMINMAX)
else()
  target_compile_options(qxfmt_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow
    -Wconversion -Wsign-conversion $<$<BOOL:${QXFMT_WARNINGS_AS_ERRORS}>:-Werror>)
endif()

# Results are defined by plain IEEE arithmetic in the declared width: nothing fused, and no excess
# precision of the x87.
if(MSVC)
  target_compile_options(qxfmt_flags INTERFACE /fp:precise)
else()
  target_compile_options(qxfmt_flags INTERFACE -ffp-contract=off)
  check_cxx_source_compiles("#if defined(__i386__) && !defined(__SSE2_MATH__)\n#error\n#endif\nint main() {}"
    QXFMT_HAS_IEEE_ARITHMETIC)
  if(NOT QXFMT_HAS_IEEE_ARITHMETIC)
    target_compile_options(qxfmt_flags INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()

# Timestamps reach the year 3000.
check_cxx_source_compiles("#include <ctime>\nstatic_assert(sizeof(std::time_t) == 8);\nint main() {}"
  QXFMT_HAS_64_BIT_TIME)
if(NOT QXFMT_HAS_64_BIT_TIME)
  target_compile_definitions(qxfmt_flags INTERFACE _FILE_OFFSET_BITS=64 _TIME_BITS=64)
endif()
