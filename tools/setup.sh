# Sourced by run, test and .ci/run. need PACKAGE... installs the Debian packages that are missing.

packages_to_build="g++ cmake ninja-build qt6-base-dev libqt6svg6 fonts-dejavu-core
  nlohmann-json3-dev libcli11-dev libsqlite3-dev"
packages_to_test="libgtest-dev poppler-utils python3 python3-jsonschema chromium"
packages_to_bench="libbenchmark-dev"
packages_to_picture="xvfb openbox xdotool imagemagick"
packages_to_package="appstream dbus desktop-file-utils dpkg-dev file fish groff-base
  libfile-mimeinfo-perl libglib2.0-bin libxml2-utils lintian man-db shared-mime-info x11-utils xdg-utils zsh"
packages_to_hear="at-spi2-core dbus openbox python3-pyatspi xdotool xvfb"
packages_to_sanitize="clang libclang-rt-14-dev"
packages_to_check="clang-format git"
packages_to_cover="gcovr"
packages_to_tidy="clang-tidy"
packages_to_windows="g++-mingw-w64-x86-64-posix cmake ninja-build perl dpkg-dev qt6-base-dev
  librsvg2-bin icoutils nsis zip unzip wine wine64 googletest fonts-dejavu-core"

# One more than there are processors, as some wait.
tests_at_once=$(($(nproc) + 1))

is_installed() {
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

need() {
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    echo "This machine has no apt-get. Quillbox needs what these Debian packages hold: $*" >&2
    exit 1
  fi
  missing=
  for package in "$@"; do
    is_installed "$package" || missing="$missing $package"
  done
  [ -n "$missing" ] || return 0
  sudo=
  [ "$(id -u)" -eq 0 ] || sudo=sudo
  echo "Installing:$missing"
  # shellcheck disable=SC2086 # the list is meant to be split
  $sudo apt-get update -qq &&
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
      $missing >/dev/null || {
    echo "Could not install:$missing" >&2
    exit 1
  }
}

# fetch_source BINARY SOURCE VERSION: downloads the source package that BINARY was built from to the
# current folder, from BINARY's own origin. The machine's package lists stay unchanged.
fetch_source() {
  from=$(apt-cache policy "$1" | awk '$2 ~ "://" { split($3, part, "/"); print $2, part[1], part[2]; exit }')
  mkdir -p lists/partial
  echo "deb-src $from" >sources.list
  set -- "$2=$3" -o "Dir::Etc::SourceList=$PWD/sources.list" -o Dir::Etc::SourceParts=/dev/null \
    -o "Dir::State::Lists=$PWD/lists" -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= \
    -o Debug::NoLocking=1
  source=$1
  shift
  apt-get -qq "$@" update && apt-get -qq "$@" source --download-only "$source"
}

# build PRESET [TARGET...]: configures the preset and builds it.
build() {
  preset=$1
  shift
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" ${1:+--target "$@"}
}
