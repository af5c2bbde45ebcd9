# What both Windows targets share: Debian's mingw compilers with the POSIX thread model, which std::thread needs.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${KELVO_MINGW_ARCH})
set(CMAKE_C_COMPILER ${KELVO_MINGW_ARCH}-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER ${KELVO_MINGW_ARCH}-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER ${KELVO_MINGW_ARCH}-w64-mingw32-windres)
set(CMAKE_C_FLAGS_INIT "${KELVO_MINGW_FLAGS}")
set(CMAKE_CXX_FLAGS_INIT "${KELVO_MINGW_FLAGS}")

# One file to copy: no program or library of ours needs the compiler's own DLLs.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static")
endforeach()

set(CMAKE_FIND_ROOT_PATH /usr/${KELVO_MINGW_ARCH}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
