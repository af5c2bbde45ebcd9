# Read by the scripts of this folder: what they all need to know about the machine and the target.

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cache=${KELVO_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kelvo-console}
export LC_ALL=C.UTF-8

say() { printf '== %s\n' "$*"; }
die() { printf '%s: %s\n' "${0##*/}" "$*" >&2; exit 1; }
need() { "$top/tools/need" "$@"; }
version() { sed -n 's/^project(kelvo-console VERSION \([0-9.]*\).*/\1/p' "$top/CMakeLists.txt"; }

# choose_arch ARCH: the target, as the compilers name it in $arch and as people count it in $bits.
choose_arch() {
    arch=$1
    case $arch in
        i686) bits=32 ;;
        x86_64) bits=64 ;;
        *) die "unknown architecture '$arch'; one of i686, x86_64" ;;
    esac
    toolchain=$top/cmake/mingw-$arch.cmake
}

need_compiler() { need cmake ninja-build "g++-mingw-w64-${arch/_/-}-posix"; }

# configure_console: sets $toolkit and $build, and prepares the console's Windows build there.
configure_console() {
    need_compiler
    need doctest-dev qt6-base-dev-tools
    toolkit=$("$top/packaging/windows/toolkit" "$arch")
    build=$top/build/windows-$arch
    # What was found in another toolkit stays in the folder's own records.
    grep -qsF "$toolkit/" "$build/CMakeCache.txt" || rm -rf "$build"
    cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$toolkit/lib/cmake/Qt6/qt.toolchain.cmake" \
        -DQT_CHAINLOAD_TOOLCHAIN_FILE="$toolchain" \
        -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
        -DCMAKE_CROSSCOMPILING_EMULATOR="$top/packaging/windows/wine;$arch" >/dev/null
}

# can_run: whether this machine can run programs for $arch; it says why when it cannot.
can_run() { [ "$bits" -eq 64 ] || "$top/packaging/windows/wine32"; }

# The compiler cache is used where the machine has one.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
fi
