#!/bin/sh
# Reading a 4096 x 4096 PNG or FITS image and drawing it into a PDF (goal: under a second):
# the in-process timings of media_bench, then a whole run of the interpreter with hyperfine.
# Usage: bench/media/run.sh [BUILD_DIR]
set -e
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${1:-$here/../../build}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$build/bench/media/media_bench"
"$build/bench/media/media_bench" --files "$work"
cp "$here/png_pdf.zkl" "$work/"
cd "$work"
hyperfine --warmup 1 --runs 5 -N "$build/mirzkl png_pdf.zkl"
