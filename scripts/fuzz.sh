#!/usr/bin/env bash
# Runs every fuzz target of a build for FUZZ_SECONDS (60 unless set), as many at a time as there are cores:
#   cmake --preset fuzz && cmake --build --preset fuzz && scripts/fuzz.sh build/fuzz
# The seeds are read from fuzz/corpus; what the targets find stays in the build.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$(cd "${1:?the build directory}" && pwd)
seconds=${FUZZ_SECONDS:-60}
export root build seconds

fuzz_one() {
  local name=$1 found=$build/fuzz/found/$1
  mkdir -p "$found/corpus"
  # Inputs are short, so a target that asks for much memory or time has believed a count in one of them.
  if (cd "$found" && "$build/fuzz/$name" -max_total_time="$seconds" -timeout=10 -malloc_limit_mb=64 \
        -rss_limit_mb=1024 -print_final_stats=1 corpus "$root/fuzz/corpus/$name") >"$found/log" 2>&1; then
    printf '  %s: %s\n' "$name" "$(sed -n 's/^Done //p' "$found/log")"
  else
    tail -n 60 "$found/log"
    printf '  %s: FAILED; its input is in %s\n' "$name" "$found"
    return 1
  fi
}
export -f fuzz_one

[ -s "$build/fuzz/targets.txt" ] || { echo "no fuzz targets in $build" >&2; exit 1; }
xargs -P "$(nproc)" -I{} bash -c 'fuzz_one {}' <"$build/fuzz/targets.txt"
