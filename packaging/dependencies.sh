# shellcheck shell=bash
# The Debian packages that the project needs, grouped by purpose, and a function that installs the missing
# ones. Sourced by the scripts beside the README and by packaging/test-package.
# shellcheck disable=SC2034  # the lists are for the scripts that source this

# Building and running the programs. Installing these alone is enough for ./run.
clb_packages=(
    g++ cmake ninja-build pkg-config
    libsqlite3-dev libutf8proc-dev libsigc++-3.0-dev nlohmann-json3-dev libcli11-dev
    libcurl4-openssl-dev libssl-dev libevent-dev
    libpugixml-dev libarchive-dev zlib1g-dev libuchardet-dev
    qt6-base-dev qt6-svg-dev libgl1-mesa-dev
)

# Checks of the sources: layout and static analysis.
clb_lint_packages=(git clang-format clang-tidy libgtest-dev libgmock-dev)

clb_test_packages=(
    libgtest-dev libgmock-dev
    # sanitizers and fuzzing
    clang libclang-rt-14-dev
    # the window on a screen, its pictures and printed pages
    xvfb xdotool openbox imagemagick poppler-utils fonts-dejavu-core
    # another reader of statement files
    ofx
    # another search
    python3
    # files that are installed beside the programs
    desktop-file-utils appstream shared-mime-info libglib2.0-bin man-db bash-completion zsh
)

clb_coverage_packages=(gcovr)

clb_packing_packages=(dpkg-dev debhelper lintian librsvg2-bin)

# Tests of the package on a clean system.
clb_trial_packages=(lintian mmdebstrap)

# clb_install_missing PACKAGE ...: installs those of the packages that are not installed.
clb_install_missing() {
    local missing=() package
    for package in "$@"; do
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
