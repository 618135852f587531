#!/usr/bin/env bash
# Draws every script of examples/ again with the mirzkl of BUILD and puts the PNG it names into
# docs/gallery, then rewrites docs/gallery.md; the gallery test compares against these.
# Usage: scripts/gallery-pictures.sh [BUILD]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
exe=$(realpath "${1:-$root/build}/mirzkl")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for script in "$root"/examples/*.zkl; do
  rm -rf "${work:?}"/*
  cp "$script" "$work/"
  png=$(cd "$work" && env -u DISPLAY -u MIRVAL_TRACE "$exe" "$(basename "$script")" < /dev/null 2> /dev/null |
    grep -o '[A-Za-z0-9_.-]*\.png' | tail -1 || true)
  case "$png" in
    gallery_*.png) cp "$work/$png" "$root/docs/gallery/$png" && echo "docs/gallery/$png" ;;
  esac
done
python3 "$root/scripts/gallery-page.py"
