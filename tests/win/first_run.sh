#!/usr/bin/env bash
# The program's first run in a fresh Wine prefix: the installer's four folder values, the standard
# catalogue in the install folder, no user catalogue yet. The check itself is the Windows suite's
# Program test, run there.
#   first_run.sh <build folder> <ui test program>
set -euo pipefail
build=$(readlink -f "$1")
tests=$(readlink -f "$2")
runner=$(dirname "$(readlink -f "$0")")/../../cmake/wine-run.sh

work=$build/first-run
rm -rf "$work"
mkdir -p "$work/install/Velmora" "$work/data"
cp "$build/Potrubi_std.qxp" "$work/install/Velmora/"
export WINEPREFIX=$work/wineprefix VELMORA_BUILD_DIR=$build

windows_path() { echo "Z:${1//\//\\}"; }
for value in InstallPath CommonInstallPath; do
  "$runner" reg add 'HKLM\Software\Quorvex' /v "$value" /d "$(windows_path "$work/install")" /f >/dev/null
done
for value in DataPath CommonDataPath; do
  "$runner" reg add 'HKLM\Software\Quorvex' /v "$value" /d "$(windows_path "$work/data")" /f >/dev/null
done

VELMORA_PROGRAM=$(windows_path "$build/Velmora/Velmora.exe") VELMORA_FIRST_RUN_DATA=$(windows_path "$work/data") \
  "$runner" "$tests" --gtest_filter='Program.*'
