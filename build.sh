#!/usr/bin/env bash
# ./build.sh demo   build release and open mayasim-gui on the bundled demo scene (offscreen without a display)
# ./build.sh test   build with AddressSanitizer + UBSan and run every test
# ./build.sh bench  build release and run the benchmarks
# ./build.sh fuzz   build the fuzz targets with clang and run each for FUZZ_SECONDS (300)
set -euo pipefail
cd "$(dirname "$0")"

packages=(cmake g++ ninja-build pkg-config ccache qtbase5-dev libgtest-dev libgmock-dev libbenchmark-dev python3-dev fonts-dejavu-core)

install_missing() {
    local missing=()
    for package in "${packages[@]}"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    if [ "$(id -u)" -eq 0 ]; then
        apt-get update -qq
        DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}"
    else
        echo "Missing packages. Run:" >&2
        echo "  sudo apt-get install -y ${missing[*]}" >&2
        exit 1
    fi
}

configure_and_build() { # build-dir, cmake options...
    local dir=$1
    shift
    local launcher=()
    # A compiler cache makes the several build folders (test, demo, bench, fuzz) share their objects.
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    cmake -S . -B "$dir" -G Ninja "${launcher[@]}" "$@" >/dev/null
    cmake --build "$dir" -j "${JOBS:-2}"
}

case "${1:-}" in
demo)
    install_missing
    configure_and_build build/release -DCMAKE_BUILD_TYPE=Release -DORVANE_BUILD_TESTS=OFF
    # The demo in the interface: on the desktop when there is one, offscreen
    # otherwise, with a screenshot of each step under the build folder.
    shots=build/release/demo-shots
    mkdir -p "$shots"
    # A data folder of its own, fresh each run: the panel starts empty, and
    # nothing of the user's Orvane files is read or written.
    documents=$PWD/build/release/demo-documents
    config=$PWD/build/release/demo-config
    rm -rf "$documents" "$config"
    mkdir -p "$documents/maya/scripts" "$config"
    echo "XDG_DOCUMENTS_DIR=\"$documents\"" >"$config/user-dirs.dirs"
    close=()
    [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && close=(-exit)
    status=0
    XDG_CONFIG_HOME=$config build/release/mayasim/mayasim-gui -plugin build/release/orvane.so -file demo/demo.ma \
        -command "global string \$gDemoShots = \"$shots\"" -script demo/demo-gui.mel -script demo/demo.mel \
        -screenshot "$shots/04-after-blends.png" "${close[@]}" || status=$?
    echo "Screenshots of each step: $shots/"
    exit "$status"
    ;;
test)
    install_missing
    configure_and_build build/sanitize -DCMAKE_BUILD_TYPE=Debug -DORVANE_SANITIZE=ON
    cd build/sanitize
    ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
        ctest --output-on-failure -j "${JOBS:-2}"
    ;;
bench)
    install_missing
    configure_and_build build/bench -DCMAKE_BUILD_TYPE=Release -DORVANE_BUILD_TESTS=OFF -DORVANE_BUILD_BENCH=ON
    for program in build/bench/bench/*; do
        [ -x "$program" ] && [ -f "$program" ] && "$program"
    done
    ;;
fuzz)
    packages+=(clang libclang-rt-14-dev)
    install_missing
    configure_and_build build/fuzz -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ -DORVANE_BUILD_TESTS=OFF \
        -DORVANE_BUILD_FUZZ=ON
    exec fuzz/run.sh build/fuzz "${FUZZ_SECONDS:-300}"
    ;;
*)
    echo "usage: ./build.sh demo | test | bench | fuzz" >&2
    exit 2
    ;;
esac
