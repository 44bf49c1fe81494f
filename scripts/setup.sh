# Sourced by run.sh, test.sh and .ci/run: installs what a build needs and builds the release preset. All messages
# go to standard error, so that the program's own output stays clean.

pelor_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
pelor_build=$pelor_root/build/release

pelor_say() { printf '%s\n' "$*" >&2; }

pelor_die() {
  pelor_say "$(basename "$0"): $*"
  exit 1
}

# pelor_quiet LOG COMMAND...: runs the command with its output in LOG, and shows LOG only when the command fails.
pelor_quiet() {
  local log=$1 status=0
  shift
  mkdir -p "$(dirname "$log")"
  "$@" >"$log" 2>&1 </dev/null || status=$?
  [ "$status" -eq 0 ] || cat "$log" >&2
  return "$status"
}

# pelor_have PACKAGE: a tool counts when it can be called, a library when its package is installed.
pelor_have() {
  case $1 in
    g++ | cmake | clang-tidy | clang-format) command -v "$1" ;;
    clang) command -v clang++ ;;
    ninja-build) command -v ninja ;;
    pkg-config) command -v pkg-config ;;
    *) [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ] ;;
  esac >/dev/null
}

# pelor_install PACKAGE...: installs those that are missing, and asks for no rights when none is.
pelor_install() {
  local package missing=() as_root=()
  for package in "$@"; do
    pelor_have "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0

  command -v apt-get >/dev/null || pelor_die "please install what these Debian packages hold: ${missing[*]}"
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || pelor_die "please run as root: apt-get install ${missing[*]}"
    as_root=(sudo)
  fi
  pelor_say "Installing ${missing[*]}"
  as_root+=(env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300)
  pelor_quiet "$pelor_root/build/apt-update.log" "${as_root[@]}" update
  pelor_quiet "$pelor_root/build/apt-install.log" \
    "${as_root[@]}" install --yes --no-install-recommends "${missing[@]}"
}

# pelor_setup: everything that building the library, the program and the tests needs.
pelor_setup() {
  pelor_install g++ cmake ninja-build pkg-config libcli11-dev libcairo2-dev libgtest-dev nlohmann-json3-dev
}

# pelor_make TARGET: configures the release preset and builds TARGET. CMake's options can be added in
# PELOR_CMAKE_ARGS.
pelor_make() {
  local options=()
  read -r -a options <<<"${PELOR_CMAKE_ARGS:-}"
  pelor_say "Building $1 in $pelor_build"
  (cd "$pelor_root" && pelor_quiet "$pelor_build/configure.log" cmake --preset release "${options[@]}")
  grep '^-- Pelor: ' "$pelor_build/configure.log" >&2 || true
  # Ninja's progress is one line on a terminal, and one a file elsewhere.
  local quiet=()
  [ -t 2 ] || quiet=(-- --quiet)
  cmake --build "$pelor_build" --target "$1" "${quiet[@]}" >&2
}

# pelor_filter_tests: lets pass what is worth reading of ctest's output: failures and the summary.
pelor_filter_tests() {
  grep -vE '^ +Start +[0-9]+: |^ *[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed '
}
