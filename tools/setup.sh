# Sourced by ./run and ./test: installs what is missing, configures, builds. Quiet when there is nothing to do.

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev libqt6svg6 qt6-charts-dev libqt6opengl6-dev qt6-wayland libsqlite3-dev
    libutf8proc-dev libcsv-dev libcli11-dev nlohmann-json3-dev libsdl2-dev libsndfile1-dev espeak-ng csound sox fonts-comic-neue fonts-sil-andika)
test_packages=(libgtest-dev xvfb xauth xdotool sqlite3 clang-format)

# install_missing PACKAGE...: says in one line what it installs. Needs Debian or a system that is built on it.
install_missing() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "These packages need root: run this as root, or install sudo." >&2; exit 1; }
        as_root=(sudo)
    fi
    local log
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update &&
           "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
               "${missing[@]}"; } >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        echo "The installation failed; its whole log is $log." >&2
        exit 1
    fi
    rm -f "$log"
}

# build PRESET [SETTING...]: configures where that has not been done in this folder with these settings, and builds.
# Shows the build's output only when it fails.
build() {
    local preset=$1 log=build/$1.log cache=build/$1/CMakeCache.txt setting configured=yes fresh=()
    shift
    mkdir -p build
    [ -f "build/$preset/build.ninja" ] || configured=no
    for setting in "$@"; do grep -qx -- "${setting/=/:BOOL=}" "$cache" 2>/dev/null || configured=no; done
    if [ -f "$cache" ] && ! grep -qxF -- "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache"; then
        configured=no fresh=(--fresh)  # the folder was moved or copied, and all paths of its build lead elsewhere
    fi
    echo "Building ($preset)"
    if ! { { [ $configured = yes ] || cmake "${fresh[@]}" --preset "$preset" "${@/#/-D}"; } &&
           cmake --build --preset "$preset"; } >"$log" 2>&1; then
        grep -E -A30 'error|FAILED|Error' "$log" | head -n 60 >&2
        echo "The build failed; its whole log is $log." >&2
        exit 1
    fi
}
