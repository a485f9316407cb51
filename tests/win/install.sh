#!/usr/bin/env bash
# The installer in a fresh Wine prefix. A silent install puts the program, its library and the
# standard catalogue in place with the Start-menu shortcut and the four folder values; the
# installed program's first run makes the user's catalogue and the sample host picks a material
# through the installed library (the Windows suite's Program tests, run there); a silent uninstall
# removes what was installed and keeps the user's catalogue.
#   install.sh <build folder> <installer> <ui test program> <sample host>
set -euo pipefail
build=$(readlink -f "$1")
installer=$(readlink -f "$2")
tests=$(readlink -f "$3")
host=$(readlink -f "$4")
runner=$(dirname "$(readlink -f "$0")")/../../cmake/wine-run.sh

work=$build/install-test
rm -rf "$work"
mkdir -p "$work"
export WINEPREFIX=$work/wineprefix VELMORA_BUILD_DIR=$build

windows_path() { echo "Z:${1//\//\\}"; }
fail() {
  echo "install.sh: $*" >&2
  exit 1
}
# The values of the maker's key, one "name=data" a line, sorted.
folder_values() {
  "$runner" reg query 'HKLM\Software\Quorvex' 2>/dev/null | tr -d '\r' |
    sed -n 's/^ *\([A-Za-z]*\) *REG_SZ *\(.*\)$/\1=\2/p' | sort
}

program_folder="$WINEPREFIX/drive_c/Program Files/Common Files/Quorvex/Velmora"
catalogue=$WINEPREFIX/drive_c/ProgramData/Quorvex/Velmora/Potrubi.qxp
# The machine's Start menu on Windows; Wine's installer puts per-machine shortcuts in the user's.
shortcuts() { find "$WINEPREFIX/drive_c" -path '*/Start Menu/Programs/Materiály potrubí.lnk'; }

"$runner" msiexec /i "$(windows_path "$installer")" /qn || fail "the installation failed"
for file in Velmora.exe velmora.dll Potrubi_std.qxp; do
  [[ -f $program_folder/$file ]] || fail "$file is not installed"
done
[[ -n $(shortcuts) ]] || fail "no Start-menu shortcut"
expected_values='CommonDataPath=C:\ProgramData\Quorvex\
CommonInstallPath=C:\Program Files\Common Files\Quorvex\
DataPath=C:\ProgramData\Quorvex\
InstallPath=C:\Program Files\Common Files\Quorvex\'
[[ $(folder_values) == "$expected_values" ]] || fail "folder values: $(folder_values)"

VELMORA_PROGRAM='C:\Program Files\Common Files\Quorvex\Velmora\Velmora.exe' \
  VELMORA_FIRST_RUN_DATA='C:\ProgramData\Quorvex' \
  VELMORA_SAMPLE_HOST=$(windows_path "$host") \
  WINEPATH='C:\Program Files\Common Files\Quorvex\Velmora' \
  "$runner" "$tests" --gtest_filter='Program.*'

"$runner" msiexec /x "$(windows_path "$installer")" /qn || fail "the uninstallation failed"
[[ ! -e $program_folder ]] || fail "the program's folder is left: $(ls "$program_folder")"
[[ -z $(shortcuts) ]] || fail "the Start-menu shortcut is left"
[[ -z $(folder_values) ]] || fail "folder values are left: $(folder_values)"
[[ -f $catalogue ]] || fail "the user's catalogue is gone"
echo "install.sh: installed, used and uninstalled; the user's catalogue is kept"
