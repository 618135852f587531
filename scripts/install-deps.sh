#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need; does nothing when all are present.
set -euo pipefail
pkgs="cmake ninja-build g++ pkg-config libcairo2-dev libreadline-dev fonts-dejavu-core libgtest-dev libbenchmark-dev
  libgtk-3-dev libproj-dev proj-bin libnetcdf-dev netcdf-bin gmt-gshhg-low gmt-dcw libgsl-dev
  libqhull-dev libpng-dev libtiff-dev libgif-dev libjpeg-dev libcfitsio-dev libcfitsio-bin hyperfine lua5.4
  librsvg2-dev libpoppler-glib-dev libqpdf-dev hershey-fonts-data xvfb xdotool x11-apps"
missing=""
for p in $pkgs; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
[ -z "$missing" ] && exit 0
echo "installing:$missing"
SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -q
$SUDO apt-get install -y -q $missing
