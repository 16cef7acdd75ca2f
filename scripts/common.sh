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

# The tools to build and test: compiler, CMake, Ninja, Python, GoogleTest, Google Benchmark.
orvel_build_deps() {
    orvel_apt cmake ninja-build g++ python3 libgtest-dev libbenchmark-dev ||
        { echo "could not install the build tools (cmake ninja-build g++ python3 libgtest-dev libbenchmark-dev)"; return 1; }
}

# Configures (first time) and builds the native tree in build/.
orvel_build() {
    cmake -S "$ORVEL_ROOT" -B "$ORVEL_ROOT/build" -G Ninja -DORVEL_WERROR=ON >/dev/null &&
        cmake --build "$ORVEL_ROOT/build" -j2
}
