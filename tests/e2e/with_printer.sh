#!/bin/bash
# Runs a command with a printer of its own: a private print server with one queue, the default, that
# keeps the last page as PostScript. The machine's own printers and its print server are neither used
# nor seen. All of it is gone when the command has ended. Gives back the command's exit code.
#
#   with_printer.sh command [argument...]
#
# The command finds in its environment:
#   CUPS_SERVER     the server, for whatever prints
#   ONDREL_PRINTER  a folder: page.ps is the last page, and spool/ holds a file c* for each job
set -u

if [ $# -eq 0 ]; then
  echo "usage: with_printer.sh command [argument...]" >&2
  exit 2
fi

fail() {
  echo "with_printer.sh: $*" >&2
  exit 125
}

PATH=$PATH:/usr/sbin
for program in cupsd lpadmin lpstat; do
  command -v "$program" >/dev/null || fail "$program is missing (Debian: cups)"
done

# Short, since the path of a socket must be.
folder=$(mktemp -d /tmp/printer.XXXXXX) || fail "no scratch folder"
server_pid=

clean_up() {
  trap - EXIT
  if [ -n "$server_pid" ]; then
    kill "$server_pid" 2>/dev/null
    wait "$server_pid" 2>/dev/null
  fi
  rm -rf "$folder"
}
trap clean_up EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

mkdir -p "$folder"/{etc/ppd,spool/tmp,cache,state}
chmod 755 "$folder"

cat >"$folder/etc/cups-files.conf" <<END
ServerRoot $folder/etc
RequestRoot $folder/spool
TempDir $folder/spool/tmp
CacheDir $folder/cache
StateDir $folder/state
AccessLog $folder/access.log
ErrorLog $folder/error.log
PageLog $folder/page.log
FileDevice Yes
END

cat >"$folder/etc/cupsd.conf" <<END
Listen $folder/socket
Browsing Off
WebInterface No
DirtyCleanInterval 0
DefaultAuthType None
<Location />
  Order allow,deny
  Allow all
</Location>
<Location /admin>
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
END

cupsd -f -c "$folder/etc/cupsd.conf" -s "$folder/etc/cups-files.conf" >"$folder/server.log" 2>&1 &
server_pid=$!
export CUPS_SERVER=$folder/socket ONDREL_PRINTER=$folder

ready=
for _ in $(seq 100); do
  if lpstat -r 2>/dev/null | grep -q 'is running'; then
    ready=yes
    break
  fi
  sleep 0.1
done
add_queue() {
  lpadmin -p Paper -v "file://$folder/page.ps" -m drv:///sample.drv/generic.ppd -o PageSize=A4 -E &&
    lpadmin -d Paper
}
if [ -z "$ready" ] || ! add_queue >>"$folder/server.log" 2>&1; then
  cat "$folder/server.log" "$folder/error.log" >&2
  fail "the private print server did not start"
fi

"$@"
