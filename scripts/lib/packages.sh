# Sourced by the other scripts: installs the Debian packages that a task needs and that are missing.

packages_build="build-essential cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev
    qt6-l10n-tools qt6-tools-dev libglib2.0-dev
    libwayland-dev wayland-protocols qt6-base-private-dev
    libxcb1-dev libxcb-randr0-dev libxcb-res0-dev libxcb-sync-dev libxcb-xkb-dev libxkbcommon-dev rapidjson-dev
    libarchive-dev libexpected-dev libsodium-dev qcoro-qt6-dev"

packages_desktop="dbus-bin dbus-daemon imagemagick libxcb-icccm4-dev libxcb-xtest0-dev openbox x11-utils
    x11-xkb-utils x11-xserver-utils xauth xserver-xorg-core xserver-xorg-video-dummy xterm fonts-dejavu-core
    gtk-3-examples librsvg2-common"

packages_sway="foot grim qt6-wayland sway"

packages_kwin="kwin-wayland libegl1 libgl1-mesa-dri qt6-wayland xterm xwayland"
# Plasma's parts changed their names with its sixth version.
if [ "$(. /etc/os-release && echo "${VERSION_ID:-}")" = 12 ]; then
    packages_kwin+=" libkf5globalaccel-bin libkf5screen-bin"
else
    packages_kwin+=" kglobalacceld libkscreen-bin"
fi

packages_gnome="gnome-shell qt6-wayland"

packages_wayland="$packages_sway $packages_kwin $packages_gnome featherpad gtk-4-examples qtwayland5"

packages_unit_test="appstream desktop-file-utils libgtest-dev libgmock-dev librapidcheck-dev
    linguist-qt6 openssl python3 strace zstd"

packages_test="$packages_unit_test at-spi2-core git clang-format mold xwayland fluxbox i3-wm icewm kwin-x11
    marco mate-settings-daemon-common metacity mutter tk x11-apps xfce4-panel xfwm4
    $packages_wayland"

packages_fuzz="clang libclang-rt-dev"

packages_package="lintian"

packages_release="openssl patchelf python3 qt6-base-dev-tools qt6-translations-l10n qt6-wayland zstd"

packages_bench="libbenchmark-dev libgtest-dev sxhkd wmctrl $packages_sway $packages_kwin"

# as_root COMMAND...: with sudo unless this is root already.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# install_packages NAME...: does nothing when all are there.
install_packages() {
    local missing=()
    local name
    for name in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    if [ "$(id -u)" -ne 0 ] && { ! command -v sudo >/dev/null || ! sudo -v; }; then
        echo "These packages are missing, and installing them takes root or sudo: ${missing[*]}" >&2
        return 1
    fi
    echo "Installing ${missing[*]}"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq &&
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends -qq "${missing[@]}" >/dev/null
}
