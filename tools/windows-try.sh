#!/bin/sh
# Runs under wine what tools/windows.sh has built: every test, the program from its ZIP with the
# same keys as on this machine, and the installer. Fails at every unexpected difference.
set -eu
cd "$(dirname "$0")/.."
. tools/display.sh
. tools/keys.sh
top=$PWD
work=$PWD/build/windows-try
rm -rf "$work"
mkdir -p "$work/home"

# A separate Windows, which asks for nothing and leaves this user's folders and menus alone.
export HOME="$work/home" WINEPREFIX="$work/wine" WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
unset DISPLAY WAYLAND_DISPLAY
# Ends wine, which would go on with the display it was started with; it may have ended by itself.
end_wine() { wineserver -k || true; }
finish() {
  end_wine
  rm -rf "$WINEPREFIX" # it holds some 700 MB
}
trap finish EXIT
trap 'exit 1' INT TERM
wine wineboot --init >/dev/null 2>&1
# The fonts of Windows are not available; without configuration wine uses any font it finds.
for font in 'Segoe UI' Tahoma 'MS Shell Dlg' 'MS Shell Dlg 2'; do
  wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$font" /d 'DejaVu Sans' /f >/dev/null
done

fail() {
  echo "$*" >&2
  exit 1
}
# same WHAT IS WANTED
same() { [ "$2" = "$3" ] || fail "$1: \"$2\" where \"$3\" is wanted"; }

# The tests, with the libraries from the build folders.
compiler=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
libraries="Z:$QUILLBOX_QT_WINDOWS/install/bin;Z:$compiler;Z:/usr/x86_64-w64-mingw32/lib"
WINEPATH="$libraries" QUILLBOX_QT_QPA_FONTDIR="Z:/usr/share/fonts/truetype/dejavu" \
  ctest --preset windows-tests
end_wine # it was started without a display

# Every form as wine draws it. In the dark it would look so nowhere: the style knows light alone.
(
  start_display
  WINEPATH="$libraries" QUILLBOX_QT_QPA_PLATFORM=windows QUILLBOX_PICTURES="Z:$work/pictures" \
    wine build/windows-tests/tests/form_tests.exe --gtest_brief=1 \
    --gtest_filter='*/FormPictures.*:*/NotWrittenPicture.*'
)
rm -rf "$work/pictures/dark"
end_wine

# The program from its ZIP, in a folder with a name beyond ASCII, compared with the program here:
# the same keys, the same short date form, the same bytes.
unzip -q build/windows-package/*.zip -d "$work/unpacked"
zip="$work/Müller & Söhne"
mv "$work"/unpacked/* "$zip"
printf '#!/bin/sh\nexec wine "%s/quillbox.exe" "$@"\n' "$zip" >"$work/quillbox"
chmod +x "$work/quillbox"
same "The version" "$("$work/quillbox" --version | tr -d '\r')" "$(build/release/quillbox --version)"
wine reg add 'HKCU\Control Panel\International' /v sShortDate /d dd/MM/yyyy /f >/dev/null
end_wine
LC_ALL=en_GB.UTF-8 XDG_RUNTIME_DIR="$work" tools/tour.sh "$work/here" "$top/build/release/quillbox"
tools/tour.sh "$work/there" "$work/quillbox"
# A catalogue has the paths of its files, as each system writes them.
for where in here there; do
  python3 - "$work/$where/sounds.WCS" <<'END'
import sys
data = bytearray(open(sys.argv[1], "rb").read())
for item in range(328, len(data), 328):
    data[item + 64:item + 192] = bytes(128)
open(sys.argv[1], "wb").write(data)
END
done
diff -r -x said.log "$work/here" "$work/there" || fail "The same keys wrote other bytes."

# The user's files: settings and texts below AppData, and nothing beside the program.
user=$(wine cmd /c 'echo %USERPROFILE%' | tr -d '\r')
home=$(winepath -u "$user")
settings="$home/AppData/Local/quillbox/windows.ini"
[ -s "$settings" ] || fail "There are no settings in $settings."
grep -qF 'there\\sounds.WCS' "$settings" || fail "The settings name no collection by a path with \\."
[ -z "$(find "$zip" -newer "$work/quillbox" -type f)" ] || fail "The program wrote beside itself."

# The installer, for this user, without questions; a collection by a double click; and removal.
installed="$home/AppData/Local/Programs/Quillbox"
link="$home/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Quillbox.lnk"
class() { wine reg query "HKCU\\Software\\Classes\\$1" /ve 2>/dev/null | tr -d '\r' | sed -n 's/.*REG_SZ *//p'; }
wine reg add 'HKCU\Software\Classes\.ics' /ve /d Calendar.File /f >/dev/null
wine build/windows-package/*.exe /S
[ -f "$installed/quillbox.exe" ] || fail "Nothing is installed in $installed."
[ -f "$link" ] || fail "The start menu has no Quillbox."
for kind in MCS=music VCS=video CCS=comics SCS=software BCS=books WCS=wave GCS=graphic MPS=mp3; do
  same "The type of .${kind%=*}" "$(class ".${kind%=*}")" "Quillbox.${kind#*=}"
  [ -n "$(class "Quillbox.${kind#*=}\\DefaultIcon")" ] || fail "$kind has no icon."
done
same "What calendars are" "$(class .ics)" Calendar.File
collection="$home/Documents/my jäzz.MCS"
mkdir -p "$home/Documents"
cp samples/jazz.MCS "$collection"
cp samples/tapes.VCS "$installed/mine.VCS"
# Windows looks up a user's types before the machine's; wine has only the machine's.
for key in .MCS 'Quillbox.music\shell\open\command'; do
  wine reg add "HKLM\\Software\\Classes\\$key" /ve /d "$(class "$key")" /f >/dev/null
done
end_wine # to go on with a display
(
  cd "$work"
  start_display
  wine start /unix "$collection" &
  form='^Music Collection Manager \(my jäzz\.MCS\)$'
  wait_for_form "$form"
  answer "$form" ctrl+w
  answer '^Quillbox V1\.71$' alt+F4
  # After a start with a collection a new one goes to the root of the drive.
  root="$WINEPREFIX/drive_c"
  same "The drive" "$(cd "$root" && wine cmd /c cd | tr -d '\r')" "C:\\"
  (cd "$root" && exec wine "$installed/quillbox.exe" "$(winepath -w "$collection")") &
  wait_for_form "$form"
  answer "$form" ctrl+w
  shown '^Quillbox V1\.71$'
  keys ctrl+n
  shown '^New Collection$'
  types Rooted
  keys alt+m
  answer '^New Collection$' Return
  waits "Nothing is made in the root" test -s "$root/Rooted.MCS"
)
end_wine
wine "$installed/uninstall.exe" /S
tries=0
while [ -e "$installed/uninstall.exe" ] && [ "$tries" -lt 100 ]; do
  tries=$((tries + 1))
  sleep 0.2
done
same "What is left of the program" "$(ls "$installed")" mine.VCS
[ ! -e "$link" ] || fail "The start menu still has Quillbox."
same "The type of .MCS" "$(class .MCS)" ""
same "What calendars are now" "$(class .ics)" Calendar.File
cmp samples/jazz.MCS "$collection"
cmp samples/tapes.VCS "$installed/mine.VCS"
[ -s "$settings" ] || fail "The settings are gone with the program."
echo "Packed and tried: build/windows-package"
