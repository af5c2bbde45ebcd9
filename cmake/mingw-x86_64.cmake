# Windows, 64 bits.
set(KELVO_MINGW_ARCH x86_64)
set(KELVO_MINGW_FLAGS "")
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
