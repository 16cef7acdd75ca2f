# Shared by the scripts: the source root and installing Debian packages only when they are missing.
ORVEL_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
export DEBIAN_FRONTEND=noninteractive

# orvel_apt PACKAGE...: installs those of the packages that are not installed yet. Returns non-zero when
# they cannot be installed (no root and no password-less sudo, or no network).
orvel_apt() {
    local missing=()
    for p in "$@"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local sudo=()
    if [ "$(id -u)" != 0 ]; then
        sudo -n true 2>/dev/null || return 1
        sudo=(sudo -n)
    fi
    echo "installing ${missing[*]}"
    "${sudo[@]}" apt-get install -y -q "${missing[@]}" >/dev/null 2>&1 ||
        { "${sudo[@]}" apt-get update -q >/dev/null 2>&1 && "${sudo[@]}" apt-get install -y -q "${missing[@]}" >/dev/null 2>&1; }
}

# The tools to build and test: compiler, CMake, Ninja, Python, GoogleTest, Google Benchmark, pkg-config;
# for the bindings' tests the system Python's NumPy, pandas, Dask and pytest, and Mono's C# compiler.
ORVEL_DEPS=(cmake ninja-build g++ python3 libgtest-dev libbenchmark-dev pkgconf python3-pytest python3-numpy
            python3-pandas python3-dask python3-distributed mono-mcs mono-runtime)
orvel_build_deps() {
    orvel_apt "${ORVEL_DEPS[@]}" || { echo "could not install the build tools (${ORVEL_DEPS[*]})"; return 1; }
}

# Configures (first time) and builds the native tree in build/.
orvel_build() {
    cmake -S "$ORVEL_ROOT" -B "$ORVEL_ROOT/build" -G Ninja -DORVEL_WERROR=ON >/dev/null &&
        cmake --build "$ORVEL_ROOT/build" -j2
}
