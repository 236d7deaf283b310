set(CMAKE_SYSTEM_PROCESSOR i686)
set(machine i386)
set(triplet i686-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake)
