#!/usr/bin/env bash
# Builds the program and runs it with the arguments given; the first use installs what the build needs. Without
# arguments it takes the bundled sample to an interchange pair and back, and draws it.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

pelor_setup
pelor_make pelor_app
pelor=$pelor_build/bin/pelor

[ $# -eq 0 ] || exec "$pelor" "$@"

sample=$pelor_root/examples/data/sample.dgn
out=$pelor_root/build/sample
rm -rf "$out"
mkdir -p "$out"

# Conversions end with 1 when they had to approximate or skip something, and say so; the sample holds such things
# on purpose.
convert() {
  local status=0
  "$pelor" convert "$@" || status=$?
  [ "$status" -le 1 ] || exit "$status"
}

"$pelor" info "$sample"
convert "$sample" -o "$out/sample.mif"
convert "$out/sample.mif" -o "$out/sample.dgn"
for picture in sample.png sample.svg; do
  "$pelor" plot "$sample" -o "$out/$picture"
done
"$pelor" plot "$out/sample.mif" -o "$out/sample_pair.png"

printf '\nThe results:\n'
printf '  %s\n' "$out"/*
