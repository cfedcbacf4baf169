#!/bin/bash
# Runs a command with a screen and a Windows of its own: a virtual display with a window manager and
# a fresh Wine profile. All of it is gone when the command has ended; what this script did not start
# is left alone. Gives back the command's exit code.
#
#   with_display.sh command [argument...]
#
# Environment, all with defaults:
#   ONDREL_SCREEN   size and depth of the display, 1440x1080x24
#   ONDREL_FRESH_PROFILE  a folder in which an untouched profile is kept: made by the first run,
#                   copied by later ones, which then start in a second or two; default: none
#   ONDREL_TIMEOUT  seconds after which the command is given up, 600
set -u

if [ $# -eq 0 ]; then
  echo "usage: with_display.sh command [argument...]" >&2
  exit 2
fi

fail() {
  echo "with_display.sh: $*" >&2
  exit 125
}

for program in Xvfb openbox wine wineserver timeout; do
  command -v "$program" >/dev/null || fail "$program is missing (Debian: xvfb openbox wine wine64)"
done

scratch=$(mktemp -d) || fail "no scratch folder"
xvfb_pid=
openbox_pid=
prefix=$scratch/wine

# Ends a process of ours: asked first, then made to.
end_process() {
  local pid=$1
  [ -n "$pid" ] || return 0
  kill "$pid" 2>/dev/null
  for _ in $(seq 50); do
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.1
  done
  kill -9 "$pid" 2>/dev/null
  wait "$pid" 2>/dev/null
}

clean_up() {
  trap - EXIT
  if [ -d "$prefix" ]; then
    WINEPREFIX=$prefix wineserver -k 2>/dev/null
    WINEPREFIX=$prefix timeout 20 wineserver -w 2>/dev/null
  fi
  end_process "$openbox_pid"
  end_process "$xvfb_pid"
  rm -rf "$scratch"
}
trap clean_up EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# --- The display: it picks its own number and tells it when it is ready ---------------------------
mkfifo "$scratch/display"
Xvfb -displayfd 3 -screen 0 "${ONDREL_SCREEN:-1440x1080x24}" -nolisten tcp \
  3<>"$scratch/display" >"$scratch/xvfb.log" 2>&1 &
xvfb_pid=$!
exec 4<>"$scratch/display"
if ! read -r -t 30 number <&4; then
  cat "$scratch/xvfb.log" >&2
  fail "the virtual display did not start"
fi
exec 4<&-
export DISPLAY=:$number

# --- The profile ------------------------------------------------------------------------------------
# A home of its own, too: file dialogs start there, and nothing is left in the user's.
mkdir -p "$scratch/home" "$prefix"
export HOME=$scratch/home
export XDG_CONFIG_HOME=$HOME/.config XDG_CACHE_HOME=$HOME/.cache XDG_DATA_HOME=$HOME/.local/share
export XDG_RUNTIME_DIR=$scratch TMPDIR=$scratch
export WINEPREFIX=$prefix WINEARCH=win64
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="
unset WAYLAND_DISPLAY

openbox >"$scratch/openbox.log" 2>&1 &
openbox_pid=$!

make_profile() {
  if ! timeout 180 wine wineboot --init >"$scratch/wineboot.log" 2>&1; then
    cat "$scratch/wineboot.log" >&2
    fail "the Wine profile could not be made"
  fi
  # The first server writes the profile to disk when its last process has gone.
  timeout 60 wineserver -w || fail "the Wine profile was not finished"
  # Folders of the user are links into the home that is gone afterwards; file dialogs need them.
  local link
  find "$prefix/drive_c/users" -type l | while read -r link; do rm "$link" && mkdir "$link"; done
  # The signs on caption buttons are a font that Debian's Wine does not find where Debian puts it.
  cp /usr/share/wine/fonts/marlett.ttf "$prefix/drive_c/windows/Fonts/" 2>/dev/null
}

kept=${ONDREL_FRESH_PROFILE:-}
if [ -n "$kept" ] && [ -d "$kept" ]; then
  cp -a "$kept/." "$prefix/" || fail "the fresh profile in $kept could not be copied"
else
  make_profile
  if [ -n "$kept" ]; then
    mkdir -p "$kept.new" && cp -a "$prefix/." "$kept.new/" && mv "$kept.new" "$kept"
  fi
fi

# Wine tells of every disk that it may not look into; nobody here has asked.
timeout --foreground "${ONDREL_TIMEOUT:-600}" "$@" \
  2> >(grep --line-buffered -v 'FS volume label and serial are not available' >&2)
result=$?
[ $result -ne 124 ] || echo "with_display.sh: given up after ${ONDREL_TIMEOUT:-600} s" >&2
exit $result
