#!/usr/bin/env bash
# Eight runs of one script started together in one directory, each asking for a versioned
# file name: every run must leave its own complete picture, and no temporary file remains.
# Usage: parallel-runs.sh MIRZKL
set -u
exe=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
cat > par.zkl <<'ZKL'
%ZKL
FILMOD('VERSION')
X = FALLOC(200)
Y = SIN(X / 20.0)
PLOT X, Y
ZKL
pids=()
for i in 1 2 3 4 5 6 7 8; do
  timeout 60 "$exe" par.zkl > "out$i.txt" 2> "err$i.txt" < /dev/null &
  pids+=($!)
done
status=0
for p in "${pids[@]}"; do wait "$p" || status=1; done
[ "$status" -eq 0 ] || { echo "a run failed"; cat err*.txt; exit 1; }
n=0
for f in mirval.png mirval_[1-7].png; do
  if [ -s "$f" ] && [ "$(od -An -tx1 -N4 "$f" | tr -d ' \n')" = "89504e47" ]; then
    n=$((n + 1))
  else
    echo "missing or broken: $f"
  fi
done
leftover=$(ls -A | grep '^\.' || true)
[ -z "$leftover" ] || { echo "temporary files left: $leftover"; exit 1; }
echo "$n pictures"
[ "$n" -eq 8 ]
