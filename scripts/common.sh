# shellcheck shell=bash
# Sourced by ./run, ./test and .ci/run: what they share.

say() { printf '\n== %s\n' "$*"; }

fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

build_packages=(g++ cmake ninja-build ccache qt6-base-dev qt6-svg-dev qt6-l10n-tools libpugixml-dev libzip-dev zlib1g-dev
    libgtest-dev libgmock-dev librapidcheck-dev libbenchmark-dev python3)
screen_packages=(xvfb fonts-dejavu-core)
test_packages=(clang-format gramps python3-kiwisolver xauth xdotool appstream desktop-file-utils man-db
    poppler-utils shared-mime-info)
lint_packages=(clang-tidy-16)
fuzz_packages=(clang-16 libclang-rt-16-dev)

is_installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "packages are missing; install them as root, then come back: ${missing[*]}"
    fi
}

# install_missing PACKAGE...: installs those that are not there yet; silent when none is missing.
install_missing() {
    command -v dpkg-query >/dev/null || fail "packages can only be installed on Debian 12 or a relative of it"
    local missing=() package
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    say "installing ${missing[*]}"
    as_root apt-get update -qq || fail "apt-get update failed: is there a network, and a package source for Debian 12?"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends \
        -o Dpkg::Use-Pty=0 "${missing[@]}" >/dev/null || fail "apt-get could not install: ${missing[*]}"
}

# configure PRESET: silent when it succeeds.
configure() {
    cmake --preset "$1" >build/configure.log 2>&1 || { cat build/configure.log >&2; fail "configuring failed"; }
}

# build PRESET [TARGET]: configures and builds, politely towards the rest of the desktop.
build() {
    local preset=$1 target=${2:-all}
    say "configuring and building $target, preset $preset"
    configure "$preset"
    nice cmake --build --preset "$preset" --target "$target"
}
