# Sourced by ./run and ./test: installs what is missing, configures, builds. Says how far it is, and next to
# nothing when there is nothing to do.

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev qt6-charts-dev libqt6opengl6-dev qt6-wayland
    libpng-dev libimagequant-dev libsqlite3-dev libutf8proc-dev libcsv-dev libcli11-dev nlohmann-json3-dev libsdl2-dev
    libsndfile1-dev espeak-ng csound sox fonts-comic-neue fonts-sil-andika)
test_packages=(libgtest-dev xvfb xauth xdotool sqlite3 clang-format
    at-spi2-core dbus-daemon gir1.2-atspi-2.0 python3-gi)  # a screen reader's side
trial_packages=(fuse3 libfuse3-dev)  # only for tools/trials share
fuzz_packages=(clang-16 libclang-rt-16-dev)  # only for tools/trials fuzz
bench_packages=(libbenchmark-dev libx11-dev libxtst-dev libxdamage-dev valgrind)
package_packages=(git dpkg-dev debhelper fakeroot lintian desktop-file-utils appstream librsvg2-bin help2man file)  # only for tools/package


# progress TEXT: shows the last line of the input that says how far it is, as "TEXT: 42 %". A person sees it change in
# place; a log gets a line for every quarter.
progress() {
    local percent shown=-1 quarter
    while read -r percent; do
        if [ -t 1 ]; then
            [ "$percent" = "$shown" ] || printf '\r%s: %d %%' "$1" "$percent"
        else
            quarter=$((percent / 25))
            [ $quarter -le $((shown / 25)) ] || printf '%s: %d %%\n' "$1" "$percent"
        fi
        [ "$percent" -le "$shown" ] || shown=$percent
    done
    if [ -t 1 ] && [ "$shown" -ge 0 ]; then printf '\r%s: done \n' "$1"; fi
}
# Each reads what its program says, keeps it in the log, and prints how far that is in whole per cent.
apt_percent() { tee -a "$1" | sed -nu 's/^[dp][lm]status:[^:]*:\([0-9]*\).*/\1/p'; }
ninja_percent() { tee -a "$1" | sed -nu 's/^\[\([0-9]*\)\/\([0-9]*\)\].*/\1 \2/p' | awk '{ print int(100 * $1 / $2); fflush() }'; }

# install_missing PACKAGE...: needs Debian or a system that is built on it.
install_missing() {
    local missing
    mapfile -t missing < <(comm -23 <(printf '%s\n' "$@" | sort -u) \
        <(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null | sed -n 's/ installed$//p' | sort -u))
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
               -o APT::Status-Fd=1 -o DPkg::Lock::Timeout=300 "${missing[@]}"; } 2>&1 | apt_percent "$log" | progress "Installing"; then
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
    : >"$log"
    if ! { { [ $configured = yes ] || cmake "${fresh[@]}" --preset "$preset" "${@/#/-D}"; } &&
           cmake --build --preset "$preset"; } 2>&1 | ninja_percent "$log" | progress "Building ($preset)"; then
        grep -E -A30 'error|FAILED|Error' "$log" | head -n 60 >&2
        echo "The build failed; its whole log is $log." >&2
        exit 1
    fi
}

# run_tests ARGUMENT...: as ctest takes them. What tests write for a moment lies in memory where there is room for it: on a
# disk most of their time would go into waiting until it is safe.
run_tests() {
    local free=0
    [ ! -w /dev/shm ] || free=$(df --output=avail -k /dev/shm | tail -n 1)
    [ "$free" -lt 500000 ] || local -x TMPDIR=/dev/shm
    ctest -j"$(($(nproc) + 2))" "$@"  # some tests wait for a screen or a loudspeaker most of their time
}

# try_store WHAT TIMES: a trial of the store, told in full.
try_store() {
    local log=build/trials.log
    install_missing "${build_packages[@]}" "${test_packages[@]}"
    mkdir -p build
    { cmake --preset dev && cmake --build --preset dev --target store_trials; } >"$log" 2>&1 || { tail -n 40 "$log" >&2; exit 1; }
    # In memory: what lasts is tried by taking it away, not by waiting for a disk.
    TMPDIR=$([ -w /dev/shm ] && echo /dev/shm || echo /tmp) build/dev/tests/store_trials --gtest_brief=1 --gtest_filter="$1" --runs "$2"
}
