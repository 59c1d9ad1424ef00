# shellcheck shell=bash
# The Debian packages that building, running and testing need, those that packing needs on top, and a
# function that installs those that are missing. Sourced by ./run, ./test, ./package and
# packaging/test-package.

clb_packages=(
    # building
    g++ cmake ninja-build pkg-config
    libsqlite3-dev libutf8proc-dev libsigc++-3.0-dev nlohmann-json3-dev libcli11-dev
    libcurl4-openssl-dev libevent-dev
    qt6-base-dev qt6-svg-dev libgl1-mesa-dev
    # running
    libqt6svg6 qt6-qpa-plugins fonts-dejavu-core
    # testing
    clang libclang-rt-14-dev libgtest-dev libgmock-dev libbenchmark-dev sqlite3 xvfb xdotool openbox x11-apps imagemagick poppler-utils
    ofx
    # testing the files of the package
    desktop-file-utils appstream shared-mime-info libglib2.0-bin man-db bash-completion zsh
)

# shellcheck disable=SC2034  # for the scripts that source this
clb_packing_packages=(dpkg-dev debhelper lintian librsvg2-bin mmdebstrap)

# clb_install_missing [package ...]: those that building, running and testing need, and these.
clb_install_missing() {
    local missing=() package
    for package in "${clb_packages[@]}" "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}" >&2
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing and sudo is not there to install them: ${missing[*]}" >&2
            return 1
        }
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq >&2 &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}
