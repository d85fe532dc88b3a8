# Installs the Debian packages that building, running and testing need and that are missing, and has ccache used where
# it is there. Sourced by run and test.
kv2d_packages=(
  g++ cmake ninja-build pkg-config python3 clang-format
  g++-mingw-w64-x86-64-posix mingw-w64-tools wine wine64 fonts-wine
  xvfb xauth xdotool imagemagick
  googletest python3-ezdxf
)
# Only the benchmarks and the fuzz targets need these.
kv2d_bench_packages=(libbenchmark-dev libglib2.0-dev libsimpleini-dev)
kv2d_fuzz_packages=(clang libclang-rt-14-dev)

# install_packages NAME...: installs those of the named packages that are not there yet.
install_packages() {
  local missing=() name
  for name in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local sudo=()
  if [ "$(id -u)" != 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing and there is no sudo to install them: ${missing[*]}" >&2
      return 1
    fi
    sudo=(sudo)
  fi
  echo "Installing ${missing[*]} ..."
  local log
  log=$(mktemp)
  # A first try with the package lists that are there, a second one with fresh lists.
  if ! "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}" >"$log" 2>&1 &&
     ! { "${sudo[@]}" apt-get update && "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    tail -20 "$log" >&2
    rm -f "$log"
    return 1
  fi
  rm -f "$log"
}

# use_compiler_cache: exports what the build needs for ccache, if that is installed.
use_compiler_cache() {
  command -v ccache >/dev/null && [ -z "${CMAKE_CXX_COMPILER_LAUNCHER:-}" ] || return 0
  # Precompiled headers are cached only with these.
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_SLOPPINESS="${CCACHE_SLOPPINESS:-pch_defines,time_macros}"
}
