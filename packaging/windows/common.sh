# Read by the scripts of this folder: what they all need to know about the machine and the target.

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cache=${KELVO_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kelvo-console}
export LC_ALL=C.UTF-8

say() { printf '== %s\n' "$*"; }
die() { printf '%s: %s\n' "${0##*/}" "$*" >&2; exit 1; }
need() { "$top/tools/need" "$@"; }

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

# 32-bit Wine is a package of another architecture, which a machine's owner has to allow.
has_wine32() { [ -x /usr/lib/wine/wine ]; }

# The compiler cache is used where the machine has one.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
fi
