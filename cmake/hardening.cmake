# The defences of our own builds: qxfmt_hardening is linked to what is installed, and reaches no
# user's target. Where CXXFLAGS or LDFLAGS name a defence, with whatever choice, it is the packager's,
# and sanitizers bring their own.
include(CheckCXXCompilerFlag)

add_library(qxfmt_hardening INTERFACE)

set(chosen_flags "${CMAKE_CXX_FLAGS} ${CMAKE_SHARED_LINKER_FLAGS} ${CMAKE_EXE_LINKER_FLAGS}")

# usage: harden(FLAG REGEX_OF_THE_CHOICE), if the compiler has the flag and nobody has chosen
function(harden flag choice)
  string(MAKE_C_IDENTIFIER "QXFMT_HAS${flag}" has)
  set(CMAKE_REQUIRED_FLAGS -Werror)  # clang only warns of a flag for another processor
  check_cxx_compiler_flag(${flag} ${has})
  if(${has} AND NOT chosen_flags MATCHES "${choice}")
    target_compile_options(qxfmt_hardening INTERFACE ${flag})
  endif()
endfunction()

if(QXFMT_HARDENING AND NOT chosen_flags MATCHES "-fsanitize" AND MSVC)
  target_compile_options(qxfmt_hardening INTERFACE /guard:cf)
  target_link_options(qxfmt_hardening INTERFACE /guard:cf)
elseif(QXFMT_HARDENING AND NOT chosen_flags MATCHES "-fsanitize" AND
       CMAKE_EXECUTABLE_FORMAT STREQUAL "ELF")
  harden(-fstack-protector-strong "stack-protector")
  harden(-fcf-protection "cf-protection")                   # x86
  harden(-mbranch-protection=standard "branch-protection")  # aarch64
  if(NOT chosen_flags MATCHES "_FORTIFY_SOURCE")
    # Some compilers set it by themselves; without optimization the C library warns of it.
    target_compile_options(qxfmt_hardening INTERFACE
      "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
  endif()
  if(NOT chosen_flags MATCHES "-z[ ,]+(no)?relro")
    target_link_options(qxfmt_hardening INTERFACE LINKER:-z,relro)
  endif()
  if(NOT chosen_flags MATCHES "-z[ ,]+(now|lazy)")
    target_link_options(qxfmt_hardening INTERFACE LINKER:-z,now)
  endif()
endif()
