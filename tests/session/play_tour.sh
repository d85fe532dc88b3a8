#!/usr/bin/env bash
# Lays out a share of its own and plays the tour in the Wine session that this runs in. On failure the transcript tells
# which step it was.
#
#   play_tour.sh DIR   with KV2D_BIN, KV2D_SHARE and KV2D_DATA as demo/start wants them
set -u
top=$(cd "$(dirname "$0")/../.." && pwd)
if [ -z "${WINEPREFIX:-}" ]; then
  echo "play_tour.sh runs inside cmake/wine-session" >&2
  exit 2
fi
rm -rf "$1"
mkdir -p "$1"
"$top/demo/lay-out" "$KV2D_SHARE" "$KV2D_BIN" && "$top/demo/play-tour" "$1"
status=$?
[ $status = 0 ] || cat "$1/transcript.txt"
exit $status
