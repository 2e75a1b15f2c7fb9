#!/usr/bin/env bash
# Packs what is built, unpacks it into an empty folder, and works with it there as another user would:
# package_test.sh BUILD
set -euo pipefail

scripts=$(realpath "$(dirname "$0")/../../scripts")
build=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
chmod 755 "$folder"
root=$folder/root
home=$folder/home
failures=0

fail() {
  echo "FAILED: $*" >&2
  failures=$((failures + 1))
}

deb=$("$scripts/make_package.sh" "$build" "$folder/package")
mkdir "$root" "$home"
dpkg-deb -x "$deb" "$root"
usr=$root/usr

# --- What it holds -----------------------------------------------------------------------------------
for file in bin/halvorne bin/halvorne-batch man/man1/halvorne.1.gz man/man1/halvorne-batch.1.gz \
  halvorne/HALVORNE.HLP halvorne/HALVORNESETUP halvorne/DATA/burst_3mhz_dispersive.dat \
  halvorne/Database/Acoustic.mdb halvorne/Database/pzmatls.mdb \
  "halvorne/Acoustic loads/Piston 4 mm.lac" icons/hicolor/48x48/apps/halvorne.png \
  icons/hicolor/scalable/apps/halvorne.svg mime/packages/halvorne.xml doc/halvorne/copyright; do
  [ -s "$usr/$file" ] || [ -s "$usr/share/$file" ] || fail "$file is not in the package"
done
for kind in applications/*.desktop metainfo/*.metainfo.xml; do
  compgen -G "$usr/share/$kind" >/dev/null || fail "no $kind is in the package"
done

# --- What those who look at packages say -------------------------------------------------------------
desktop-file-validate "$usr"/share/applications/*.desktop >"$folder/desktop.log" 2>&1 ||
  fail "desktop-file-validate"
[ ! -s "$folder/desktop.log" ] || { cat "$folder/desktop.log"; fail "desktop-file-validate warns"; }
appstreamcli validate --no-net "$usr"/share/metainfo/*.xml || fail "appstreamcli"
lintian --fail-on error,warning --allow-root "$deb" || fail "lintian"
update-mime-database "$usr/share/mime" >/dev/null 2>&1 || fail "the MIME type"
if command -v man >/dev/null; then
  for page in "$usr"/share/man/man1/*.gz; do
    warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    [ -z "$warnings" ] || fail "$(basename "$page"): $warnings"
  done
fi
zcat "$usr/share/man/man1/halvorne-batch.1.gz" | grep -q 'recalc IN' ||
  fail "the manual page of the batch program lacks its commands"

# --- What another user does with it ------------------------------------------------------------------
as_user=()
if [ "$(id -u)" -eq 0 ]; then
  chown -R nobody "$home"
  as_user=(setpriv --reuid nobody --regid nogroup --clear-groups)
else
  chmod -R a-w "$root"
  trap 'chmod -R u+w "$root"; rm -rf "$folder"' EXIT
fi
user() {
  (cd "$home" && "${as_user[@]}" env -i HOME="$home" PATH="$usr/bin:/usr/bin:/bin" LC_ALL=C \
    QT_QPA_PLATFORM=offscreen "$@")
}
own=$home/.local/share/halvorne
sample=$own/DATA/burst_3mhz_dispersive.dat

# Starts the desktop program with a design. Once the plot stands, the settings are written again.
start_program() {
  local settings=$own/HALVORNESETUP before status=0 waited
  before=$(stat -c %i "$settings" 2>/dev/null || true)
  user timeout 50 halvorne "$1" >"$folder/program.log" 2>&1 &
  local program=$!
  for waited in $(seq 400); do
    if [ -e "$settings" ] && [ "$(stat -c %i "$settings")" != "$before" ] && [ "$waited" -gt 20 ]; then
      break
    fi
    kill -0 "$program" 2>/dev/null || break
    sleep 0.1
  done
  kill -0 "$program" 2>/dev/null || fail "the program ended by itself: $(cat "$folder/program.log")"
  [ "$waited" -lt 400 ] || fail "the design was not opened within 40 seconds"
  pkill -TERM -P "$program" 2>/dev/null || kill "$program" 2>/dev/null || true
  wait "$program" 2>/dev/null || status=$?
}

user halvorne-batch --version | grep -qx 'halvorne-batch [0-9.]*' || fail "the batch program's version"
user halvorne-batch info "$usr/share/halvorne/DATA/burst_3mhz_dispersive.dat" >/dev/null ||
  fail "the batch program reads no shipped design"
user halvorne-batch materials piezo >"$folder/materials.log" 2>&1 ||
  fail "the batch program prints no materials: $(cat "$folder/materials.log")"
[ ! -e "$own" ] || fail "the batch program alone made the user's folder"

start_program "$usr/share/halvorne/DATA/burst_3mhz_dispersive.dat"
for file in HALVORNESETUP HALVORNE.HLP DATA/burst_3mhz_dispersive.dat Database/Acoustic.mdb \
  "Acoustic loads/Piston 4 mm.lac"; do
  cmp "$own/$file" "$usr/share/halvorne/$file" || fail "$file in the user's folder"
done
user test -w "$sample" || fail "the user may not write the samples"

user halvorne-batch recalc "$sample" --set 'FrontThick(1)=0.0002' -o "$sample" --force ||
  fail "the batch program recalculates no design of the user's"
user halvorne-batch plot "$sample" --plot 31 -o "$home/plot.png" || fail "the batch program draws no plot"
[ -s "$home/plot.png" ] || fail "the plot is empty"
rm "$own/EXCITE/Tone burst 3 MHz.xct"
changed=$(md5sum "$sample")
start_program "$sample"
[ "$(md5sum "$sample")" = "$changed" ] || fail "a later start overwrote a design of the user's"
[ ! -e "$own/EXCITE/Tone burst 3 MHz.xct" ] || fail "what the user deleted came back"
cmp "$usr/share/halvorne/HALVORNE.HLP" "$own/HALVORNE.HLP" || fail "the help is not that of the package"

[ "$failures" -eq 0 ] || exit 1
echo "The package is whole and works for another user."
