# Sourced by the other scripts: installs the Debian packages that a task needs and that are missing.

packages_build="build-essential cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev
    qt6-l10n-tools qt6-tools-dev libglib2.0-dev
    libxcb1-dev libxcb-randr0-dev libxcb-res0-dev libxcb-sync-dev libxcb-xkb-dev libexpected-dev qcoro-qt6-dev"

packages_desktop="dbus-bin dbus-daemon imagemagick libxcb-xtest0-dev openbox x11-utils x11-xkb-utils
    x11-xserver-utils xauth xserver-xorg-core xserver-xorg-video-dummy xterm fonts-dejavu-core
    gtk-3-examples librsvg2-common"

packages_test="appstream desktop-file-utils git clang-format libgtest-dev libgmock-dev
    librapidcheck-dev xvfb xwayland fluxbox i3-wm icewm kwin-x11 linguist-qt6 marco
    mate-settings-daemon-common metacity mutter sway tk x11-apps xfce4-panel xfwm4"

packages_fuzz="clang libclang-rt-dev"

packages_package="lintian"

packages_bench="libbenchmark-dev libgtest-dev sxhkd wmctrl"

# install_packages NAME...: does nothing when all are there.
install_packages() {
    local missing=()
    local name
    for name in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null || ! sudo -v; then
            echo "These packages are missing, and installing them takes root or sudo: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends -qq "${missing[@]}" >/dev/null
}
