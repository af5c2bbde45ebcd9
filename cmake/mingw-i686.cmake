# Windows, 32 bits. The x87 unit computes with 64 bits of mantissa, so that 1 + 5/100.0 == 1.05 is false there;
# SSE2 gives the 53 bits of every other platform. Windows enters callbacks with the stack on a multiple of 4 only.
set(KELVO_MINGW_ARCH i686)
set(KELVO_MINGW_FLAGS "-msse2 -mfpmath=sse -mstackrealign")
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
