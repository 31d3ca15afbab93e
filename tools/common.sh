# Sourced by run, test and tools/*: where things are, and how they speak to the user.

zervo_top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
zervo_build=${ZERVO_BUILD:-$zervo_top/build}
zervo_jobs=$(nproc)

say() { printf '== %s\n' "$*"; }
loud() { printf '\n!!! %s !!!\n\n' "$*"; }

# Whether the kernel runs 32-bit programs at all: some containers do not, whatever is installed. Asked by running one.
kernel_runs_32bit() {
  local folder result=1
  folder=$(mktemp -d) || return 1
  printf '.globl _start\n_start: movl $1,%%eax\n xorl %%ebx,%%ebx\n int $0x80\n' >"$folder/p.s"
  if as --32 -o "$folder/p.o" "$folder/p.s" && ld -m elf_i386 -o "$folder/p" "$folder/p.o"; then
    "$folder/p" 2>/dev/null && result=0
  fi 2>/dev/null
  rm -rf "$folder"
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

# Configures (when needed) and builds one preset; its output goes to a log that is shown when it fails.
build_preset() {
  local preset=$1 log="$zervo_build/logs/build-$1.log" start=$SECONDS
  mkdir -p "$zervo_build/logs"
  if (cd "$zervo_top" && cmake --preset "$preset" -B "$zervo_build/$preset" &&
      cmake --build "$zervo_build/$preset" -j "$zervo_jobs") >"$log" 2>&1; then
    say "built $preset in $((SECONDS - start)) s"
  else
    grep -E 'error|Error|FAILED' -A 5 "$log" | head -60
    say "the build of $preset failed; the whole output is in $log"
    return 1
  fi
}
