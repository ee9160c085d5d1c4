# For quorvale.sh: the Debian packages by what they are for, and the one function that installs.

build_packages="g++ cmake ninja-build pkg-config qt6-base-dev libsdl2-dev libsqlite3-dev libjpeg62-turbo-dev
  libpng-dev libgif-dev libwebp-dev libheif-dev libjxl-dev libtiff-dev liblcms2-dev libxcb1-dev libxcb-shm0-dev
  fontconfig fonts-dejavu-core"
wayland_packages="qt6-wayland"
# The show on a virtual display.
screenshot_packages="xvfb xdotool python3 libjpeg-turbo-progs"
# What the preset "release" has beside the program.
whole_packages="libgtest-dev libgmock-dev"
screen_packages="xvfb openbox xdotool x11-utils imagemagick"
test_packages="$wayland_packages python3 sox xscreensaver xsecurelock x11-xserver-utils weston
  fonts-liberation fonts-noto-color-emoji"
sanitize_packages="clang libclang-rt-dev"
windows_packages="g++-mingw-w64-x86-64 g++-mingw-w64-i686 googletest"
wine_packages="wine wine64"
lint_packages="clang-format clang-tidy pyflakes3"
bench_packages="feh webp libheif-examples libjxl-tools"
installer_packages="nsis osslsigncode openssl"
package_packages="dpkg-dev desktop-file-utils lintian appstream $installer_packages"

# update_lists [COMMAND THAT BECOMES ROOT]. The system's own updates may hold the lock on a fresh machine, and apt-get waits
# by itself only for that of installations.
update_lists() {
  local said
  for _ in {1..30}; do
    if said=$("$@" env LC_ALL=C apt-get update -qq 2>&1); then return; fi
    [[ $said == *"Could not get lock"* ]] || break
    sleep 10
  done
  echo "$said" >&2
  return 1
}

# Installs those of the given packages that are missing, unless QUORVALE_INSTALL=no.
need() {
  local missing=() package
  for package in "$@"; do
    dpkg -s "$package" 2>/dev/null | grep -q '^Status: .* installed$' || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  if [ "${QUORVALE_INSTALL:-yes}" = no ]; then
    echo "These packages are missing, and QUORVALE_INSTALL=no: ${missing[*]}" >&2
    exit 1
  fi
  say "Installing ${missing[*]} (QUORVALE_INSTALL=no would stop here)"
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  update_lists "${as_root[@]}"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -o DPkg::Lock::Timeout=300 install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
