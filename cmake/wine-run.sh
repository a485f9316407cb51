#!/usr/bin/env bash
# Runs a Windows program under Wine for CTest and the dev script.
#
# Every build tree keeps its own Wine prefix (<build>/wineprefix), made on first use, so tests
# never touch the user's ~/.wine. Without a display the program runs on a private Xvfb.
set -euo pipefail

program=$1
shift

build_dir=${VELMORA_BUILD_DIR:+$(readlink -f "$VELMORA_BUILD_DIR")}
if [[ -z $build_dir ]]; then
  # CTest starts tests in their build folder; walk up to the tree that holds CMakeCache.txt.
  build_dir=$PWD
  while [[ $build_dir != / && ! -f $build_dir/CMakeCache.txt ]]; do build_dir=$(dirname "$build_dir"); done
  [[ -f $build_dir/CMakeCache.txt ]] || build_dir=$(dirname "$(readlink -f "$program")")
fi

export WINEPREFIX=${WINEPREFIX:-$build_dir/wineprefix}
export WINEDEBUG=${WINEDEBUG:--all}
# No Mono or Gecko installer; no menu entries on the Linux desktop for shortcuts that installers make.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=;winemenubuilder.exe=d}
export WINEARCH=win64

wine_bin=$(command -v wine64 || command -v wine)

# Making a prefix takes ~10 s; tests running in parallel must not make it twice.
(
  flock 9
  if [[ ! -f $WINEPREFIX/.velmora-ready ]]; then
    mkdir -p "$WINEPREFIX"
    "$wine_bin" wineboot -i >/dev/null 2>&1 || true
    wineserver -w || true
    touch "$WINEPREFIX/.velmora-ready"
  fi
  if [[ ! -f $WINEPREFIX/.velmora-settings ]]; then
    # Windows the X window manager does not manage: Xvfb has no manager, and Wine would wait two
    # seconds for one whenever a window is hidden. Wine then draws the frames itself.
    "$wine_bin" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1 || true
    # Windows' own hot-tracking colour (dialog headings), instead of Wine's pale grey.
    "$wine_bin" reg add 'HKCU\Control Panel\Colors' /v HotTrackingColor /d '0 102 204' /f >/dev/null 2>&1 || true
    wineserver -w || true
    touch "$WINEPREFIX/.velmora-settings"
  fi
) 9>"$build_dir/.wineprefix.lock"

if [[ -z ${DISPLAY:-} ]]; then
  exec xvfb-run -a -s "-screen 0 1280x1024x24" "$wine_bin" "$program" "$@"
fi
exec "$wine_bin" "$program" "$@"
