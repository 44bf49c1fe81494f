#!/usr/bin/env bash
# Builds everything and runs every test; the first use installs what that needs. Arguments go to ctest, such as
# -R AngleTest.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

pelor_setup
pelor_make all

# On a terminal the progress is one line; elsewhere only failures and the summary are worth one.
run_tests() {
  ctest --test-dir "$pelor_build" --parallel "$(nproc)" --output-on-failure --no-tests=error "$@"
}
if [ -t 1 ]; then
  run_tests --progress "$@"
else
  run_tests "$@" | pelor_filter_tests
fi
