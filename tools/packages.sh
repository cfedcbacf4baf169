# What `run` and `test` need from Debian, and how it gets there. Sourced, not run.

say() { printf '\n== %s\n' "$*"; }

give_up() {
  printf '\n%s: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

build_packages="cmake ninja-build g++ googletest
  g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64"
wine_packages="wine wine64 fonts-wine fonts-liberation"
screen_packages="xvfb openbox"
test_packages="clang libclang-rt-dev clang-format libbenchmark-dev git
  g++-mingw-w64-i686-posix binutils-mingw-w64-i686"
# Printers, and programs that read what Ondrel writes.
reader_packages="cups ghostscript libwmf-bin python3"

missing_packages() {
  local package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
      printf '%s ' "$package"
  done
}

# Installs those of the given packages that are missing.
need() {
  local missing as_root=
  missing=$(missing_packages "$@")
  [ -n "$missing" ] || return 0
  command -v apt-get >/dev/null || give_up "these Debian packages are missing: $missing"
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || give_up "please install as root: apt-get install $missing"
    as_root="sudo"
  fi
  say "Installing: $missing"
  export DEBIAN_FRONTEND=noninteractive
  { $as_root apt-get update -q && $as_root apt-get install -y -q --no-install-recommends $missing; } \
    </dev/null >"$logs/apt.log" 2>&1 ||
    { tail -n 20 "$logs/apt.log" >&2; give_up "apt-get failed; its output is in $logs/apt.log"; }
}

# Configures and builds targets of a preset; quiet unless it fails.
build() {
  local preset=$1
  shift
  say "Building $preset: ${*:-everything}"
  {
    cmake --preset "$preset" >"$logs/configure-$preset.log" 2>&1 &&
      cmake --build "build/$preset" ${1:+--target "$@"} >"$logs/build-$preset.log" 2>&1
  } || {
    grep -hE -A5 'error|FAILED|Error' "$logs/configure-$preset.log" "$logs/build-$preset.log" 2>/dev/null |
      head -n 60 >&2
    give_up "the build of $preset failed; see $logs/configure-$preset.log and $logs/build-$preset.log"
  }
}
