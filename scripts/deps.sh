# Installs the Debian packages VELDOR needs to build, run and test, when any is missing.
# Sourced by scripts/test and scripts/run.
veldor_packages=(cmake ninja-build g++ qt6-base-dev qt6-multimedia-dev libgtest-dev
                 libhamlib-utils librsvg2-bin dpkg-dev desktop-file-utils appstream man-db
                 pulseaudio clang libclang-rt-dev)

veldor_install_missing() {
    local missing=()
    for p in "${veldor_packages[@]}"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" ||
            missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
}

veldor_build() {
    local root="$1" build="$2"
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
    cmake --build "$build" --parallel "$(nproc)"
}
