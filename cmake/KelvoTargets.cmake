# How every target of this project is made: one language level, one set of warnings, one way to name things.

add_library(kelvo_flags INTERFACE)
target_compile_features(kelvo_flags INTERFACE cxx_std_20)
target_include_directories(kelvo_flags INTERFACE "${CMAKE_CURRENT_SOURCE_DIR}/src")
target_compile_options(kelvo_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                                             $<$<BOOL:${KELVO_WERROR}>:-Werror>)
# Channels and fields are small numbers that index arrays. GCC's -Wconversion lets them, Clang's is to say the same.
target_compile_options(kelvo_flags INTERFACE $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>)
# GCC 12 sees overlapping copies in "text" + std::string(...) as soon as it optimises; there are none.
target_compile_options(kelvo_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(KELVO_SANITIZE)
  target_compile_options(kelvo_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer)
  # Under the sanitizers GCC 12 takes the standard library's regular expressions for uninitialized.
  target_compile_options(kelvo_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(kelvo_flags INTERFACE -fsanitize=address,undefined)
endif()

# The sources of the calling folder. What differs between systems is named *_posix.cpp or *_windows.cpp.
function(kelvo_sources result)
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_windows\\.cpp$")
  endif()
  set(${result} ${sources} PARENT_SCOPE)
endfunction()

# kelvo_library(NAME [DEPENDENCY...]): one static library for the calling folder.
function(kelvo_library name)
  kelvo_sources(sources)
  add_library(${name} STATIC ${sources})
  # Without this a source that is new in the folder would be compiled without moc ever looking at its header.
  if(NOT sources STREQUAL "${${name}_sources}")
    file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/timestamp")
    set(${name}_sources ${sources} CACHE INTERNAL "the sources that moc has seen")
  endif()
  target_link_libraries(${name} PUBLIC kelvo_flags ${ARGN})
endfunction()
