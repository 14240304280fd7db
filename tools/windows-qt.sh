#!/bin/sh
# Builds the toolkit's base libraries for Windows, once, from the source package that the host's own
# were built from: windows-qt.sh FOLDER. FOLDER/install exists only when it is complete.
set -eu
here=$(cd "$(dirname "$0")/.." && pwd)
. "$here/tools/setup.sh"

version=$(dpkg-query -W -f='${source:Version}' qt6-base-dev)
mkdir -p "$1"
cd "$1"
folder=$PWD
[ "$(cat install/version 2>/dev/null)" != "$version" ] || exit 0
rm -rf install

if [ "$(cat source/version 2>/dev/null)" != "$version" ]; then
  rm -rf source build
  mkdir -p fetched
  (cd fetched && fetch_source qt6-base-dev qt6-base "$version")
  dpkg-source --no-check --no-copy -x fetched/qt6-base_"$version".dsc source >/dev/null
  rm -rf fetched
  echo "$version" >source/version
fi

# Only windows, drawing, printing and tests; what these need besides is in the source package.
off=
for feature in sql network dbus vulkan xml concurrent pkg_config \
  system_zlib system_png system_jpeg system_pcre2 system_harfbuzz system_freetype; do
  off="$off -DFEATURE_$feature=OFF"
done
off="$off -DFEATURE_tabletevent=OFF" # its header is not in the source package
launcher=
if command -v ccache >/dev/null; then
  launcher="-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache"
fi
# shellcheck disable=SC2086 # the lists are meant to be split
cmake -S source -B build -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_TOOLCHAIN_FILE="$here/cmake/mingw-w64.cmake" -DCMAKE_INSTALL_PREFIX="$folder/install" \
  -DQT_HOST_PATH=/usr \
  -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake" \
  -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no $off $launcher >configured.log
nice cmake --build build
cmake --install build --strip >installed.log
echo "$version" >install/version
