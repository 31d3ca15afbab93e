# Sourced by run, test and tools/*: where things are, and how they speak to the user.

zervo_top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
zervo_build=${ZERVO_BUILD:-$zervo_top/build}
zervo_jobs=$(nproc)

# Without a UTF-8 locale Wine refuses Georgian names of files; a bare machine has none set.
export LC_ALL=C.UTF-8

say() { printf '== %s\n' "$*"; }
loud() { printf '\n!!! %s !!!\n\n' "$*"; }

# Whether the kernel runs 32-bit programs at all: some containers do not, whatever is installed. Asked by running one,
# the smallest there is: ELF header, program header, and exit(0).
kernel_runs_32bit() {
  local program result=1
  program=$(mktemp) || return 1
  {
    printf '\x7f\x45\x4c\x46\x01\x01\x01\x00\x00\x00\x00\x00\x00\x00\x00\x00\x02\x00\x03\x00\x01\x00\x00\x00'
    printf '\x54\x80\x04\x08\x34\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x34\x00\x20\x00\x01\x00\x00\x00\x00\x00\x00\x00'
    printf '\x01\x00\x00\x00\x00\x00\x00\x00\x00\x80\x04\x08\x00\x80\x04\x08\x60\x00\x00\x00\x60\x00\x00\x00\x05\x00\x00\x00\x00\x10\x00\x00'
    printf '\xb8\x01\x00\x00\x00\x31\xdb\xcd\x80\x90\x90\x90'
  } >"$program"
  chmod +x "$program"
  "$program" 2>/dev/null && result=0
  rm -f "$program"
  return $result
}

# Which Wine can be tried here: 32, 64 or none. Setting ZERVO_WINE to one of them overrides the search.
wine_kind() {
  if [ -n "${ZERVO_WINE:-}" ]; then
    echo "$ZERVO_WINE"
  elif [ -x /usr/lib/wine/wine ] && /usr/lib/wine/wine --version >/dev/null 2>&1; then
    echo 32
  elif [ -x /usr/lib/wine/wine64 ] && /usr/lib/wine/wine64 --version >/dev/null 2>&1; then
    echo 64
  else
    echo none
  fi
}

# Configures (when needed) and builds one preset, or some targets of it: build_preset PRESET [TARGET...]
# The output goes to a log that is shown when it fails.
build_preset() {
  local preset=$1 log="$zervo_build/logs/build-$1.log" start=$SECONDS
  shift
  mkdir -p "$zervo_build/logs"
  if (cd "$zervo_top" && cmake --preset "$preset" -B "$zervo_build/$preset" -DZERVO_SOURCES="$zervo_build/sources" &&
      cmake --build "$zervo_build/$preset" -j "$zervo_jobs" ${1:+--target "$@"}) >"$log" 2>&1; then
    say "built $preset in $((SECONDS - start)) s"
  else
    grep -E 'error|Error|FAILED' -A 5 "$log" | head -60
    say "the build of $preset failed; the whole output is in $log"
    return 1
  fi
}

# The downloads from a build folder, with the date of the commit unless SOURCE_DATE_EPOCH is given:
#   make_packages BUILD_FOLDER OUTPUT_FOLDER
make_packages() {
  local version
  version=$(sed -n 's/^project(Zervo VERSION \([0-9.]*\).*/\1/p' "$zervo_top/CMakeLists.txt")
  SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -C "$zervo_top" log -1 --format=%ct 2>/dev/null || echo 0)} \
    /usr/bin/python3 "$zervo_top/tools/make_package.py" "$1" "$version" "$2"
}
