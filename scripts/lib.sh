# shellcheck shell=bash disable=SC2034,SC2164
# Shared by the scripts of this folder. Sourced, never run; leaves the caller in the repository's root.

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$ROOT"

JOBS=${JOBS:-$(nproc)}
export JOBS
# A comma locale for the test run that shows numbers to be read and written the same everywhere.
readonly COMMA_LOCALE=de_DE.UTF-8

die() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

heading() { printf '\n== %s\n' "$*"; }

# sources FOLDER...: the C and C++ files below these folders, new ones not yet added included.
sources() {
  local folder file
  for folder in "$@"; do
    git ls-files --cached --others --exclude-standard -- "$folder/*.h" "$folder/*.c" "$folder/*.cpp"
  done | sort -u | while IFS= read -r file; do
    if [ -f "$file" ]; then printf '%s\n' "$file"; fi
  done
}

# build_preset PRESET [TARGET...]: configures and builds into build/PRESET, quietly where nobody watches.
build_preset() {
  local preset=$1 log target arguments=()
  shift
  log=build/$preset-configure.log
  mkdir -p build
  if ! cmake --preset "$preset" >"$log" 2>&1; then
    cat "$log" >&2
    die "configuring preset '$preset' failed"
  fi
  for target in "$@"; do arguments+=(--target "$target"); done
  if [ ! -t 1 ]; then arguments+=(-- --quiet); fi
  cmake --build "build/$preset" --parallel "$JOBS" ${arguments[@]+"${arguments[@]}"}
}
