#!/usr/bin/env bash
# Installs the build into a temporary prefix and builds the README's C example against the
# installed header, library and pkg-config file; the program must write its PNG. The installed
# mirzkl must draw through the installed library, which it loads only when a script draws.
# Usage: install.sh BUILD_DIR DEMO.c [EXTRA_CFLAGS...]
set -u
build=$(realpath "$1") demo=$(realpath "$2")
shift 2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
cmake --install "$build" --prefix "$prefix" > "$prefix/install.log" 2>&1 || { cat "$prefix/install.log"; exit 1; }
status=0
for f in bin/mirzkl include/mirval.h lib/libmirval.a lib/pkgconfig/mirval.pc \
         share/man/man1/mirzkl.1 share/man/man3/mirval.3 share/doc/mirzkl/language-guide.md; do
  [ -e "$prefix/$f" ] || { echo "not installed: $f"; status=1; }
done
soname=$(objdump -p "$prefix"/lib/libmirval.so 2>/dev/null | awk '/SONAME/ {print $2}')
case "$soname" in libmirval.so.[0-9]*) ;; *) echo "shared library without a SONAME: '$soname'"; status=1 ;; esac
export PKG_CONFIG_PATH="$prefix/lib/pkgconfig"
cd "$prefix" || exit 1
cc "$@" "$demo" -o demo $(pkg-config --cflags --libs mirval) -Wl,-rpath,"$prefix/lib" || exit 1
./demo 2> run.log || { echo "demo failed"; cat run.log; exit 1; }
[ "$(od -An -tx1 -N4 mirval.png | tr -d ' \n')" = "89504e47" ] || { echo "no PNG written"; status=1; }
ldd ./demo | grep -q "$prefix/lib/libmirval.so" || { echo "demo does not use the installed shared library"; status=1; }
printf '%%ZKL\nPRINT 6*7\n' > count.zkl
printf '%%ZKL\nMETAFL("PNG")\nSETFIL("drawn.png")\nMIRINI()\nPAGERA()\nMIRFIN()\n' > draw.zkl
[ "$(LD_DEBUG=files bin/mirzkl count.zkl 2> count.log | tr -d " ")" = "42" ] || { echo "installed mirzkl did not count"; status=1; }
grep -q "libmirval" count.log && { echo "a script that only prints loaded the plotting library"; status=1; }
LD_DEBUG=files bin/mirzkl draw.zkl > /dev/null 2> draw.log || { echo "installed mirzkl failed to draw"; status=1; }
grep -q "file=.*$prefix/bin/../lib/libmirval.so" draw.log || { echo "mirzkl did not load the installed library"; status=1; }
[ "$(od -An -tx1 -N4 drawn.png 2>/dev/null | tr -d ' \n')" = "89504e47" ] || { echo "mirzkl wrote no PNG"; status=1; }
exit $status
