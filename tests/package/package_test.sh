#!/usr/bin/env bash
# Makes the .deb from the build, unpacks it into a scratch root without root rights, and
# checks what an operator's machine would get: the dependencies, the files' places, the
# validators' verdicts, and the installed programs answering and starting.
set -u
build="$1" source="$2" version="$3"
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work/out" >"$work/cpack.log" 2>&1 ||
    { cat "$work/cpack.log"; fail "cpack"; }
deb="$work/out/veldor_${version}_$(dpkg --print-architecture).deb"
[ -f "$deb" ] || fail "no $deb"

# Qt from Debian's own packages, the platform plugins a window needs, Hamlib only suggested;
# and no maintainer script, so installing changes no group or anything else.
dpkg-deb -f "$deb" Depends >"$work/depends"
for p in libqt6core6 libqt6widgets6 libqt6network6 qt6-qpa-plugins; do
    grep -q "\b$p\b" "$work/depends" || fail "Depends lacks $p: $(cat "$work/depends")"
done
[ "$(dpkg-deb -f "$deb" Suggests)" = libhamlib-utils ] || fail "Suggests"
[ "$(dpkg-deb -f "$deb" Section)" = hamradio ] || fail "Section"
scripts=$(dpkg-deb --ctrl-tarfile "$deb" | tar t | grep -Ev '^\./(control|md5sums)?$')
[ -z "$scripts" ] || fail "maintainer scripts: $scripts"

root="$work/root"
dpkg-deb -x "$deb" "$root"
outside=$(cd "$root" && find . -mindepth 1 -maxdepth 1 ! -name usr)
[ -z "$outside" ] || fail "files outside /usr: $outside"
u="$root/usr"
for f in bin/veldor bin/veldor-rigsim share/applications/veldor.desktop \
    share/metainfo/org.veldor.veldor.metainfo.xml share/icons/hicolor/scalable/apps/veldor.svg \
    share/man/man1/veldor.1.gz share/man/man1/veldor-rigsim.1.gz share/doc/veldor/README.md; do
    [ -f "$u/$f" ] || fail "missing /usr/$f"
done
# Each PNG is drawn at the size its folder names (width and height from the PNG header).
for size in 16 22 24 32 48 64 128 256; do
    png="$u/share/icons/hicolor/${size}x${size}/apps/veldor.png"
    [ -f "$png" ] || fail "missing $png"
    read -r w h < <(od -An -tu4 --endian=big -j16 -N8 "$png")
    [ "$w $h" = "$size $size" ] || fail "$png is ${w}x${h}"
done
if [ -d "$source/docs/manual" ]; then
    (cd "$source/docs/manual" && find . -type f | sort) >"$work/manual.src"
    (cd "$u/share/doc/veldor/manual" && find . -type f | sort) >"$work/manual.deb"
    diff -u "$work/manual.src" "$work/manual.deb" || fail "the manual is not installed whole"
fi
for bin in veldor veldor-rigsim; do
    readelf -d "$u/bin/$bin" | grep -Eq 'R(UN)?PATH' && fail "$bin keeps a library path"
done

desktop-file-validate "$u/share/applications/veldor.desktop" || fail "desktop-file-validate"
appstreamcli validate-tree --no-net "$root" >"$work/as.log" 2>&1 ||
    { cat "$work/as.log"; fail "appstreamcli validate-tree"; }
for page in veldor veldor-rigsim; do
    warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 \
        man --warnings -E UTF-8 -l -Tutf8 -Z "$u/share/man/man1/$page.1.gz" 2>&1 >/dev/null)
    [ -z "$warnings" ] || fail "man page $page: $warnings"
done

# The programs from the scratch root: --help and --version need no display.
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
[ "$("$u/bin/veldor" --version)" = "veldor $version" ] || fail "veldor --version"
[ "$("$u/bin/veldor-rigsim" --version)" = "veldor-rigsim $version" ] || fail "rigsim --version"
"$u/bin/veldor" --help | grep -q '^Usage: veldor \[/CONFIG=NAME\]' || fail "veldor --help"
"$u/bin/veldor-rigsim" --help | grep -q -- '--rig NAME' || fail "veldor-rigsim --help"

# An offscreen start on the built-in simulated FT-817: the link comes up, SIGTERM lets it go.
export XDG_CONFIG_HOME="$work/config" QT_QPA_PLATFORM=offscreen
ini="$XDG_CONFIG_HOME/VELDOR/VELDOR_PKG.ini"
mkdir -p "$XDG_CONFIG_HOME/VELDOR" "$work/home"
printf '[Settings]\nRigType=FT817\nCommport=SIM\nCommSpeed=38400,N,8,2\nAutoStart=Yes\nHomeDir=%s\n' \
    "$work/home" >"$ini"
# Started where an empty TimedEvents.txt stands, so that no message waits at the start.
: >"$work/home/TimedEvents.txt"
(cd "$work/home" && exec "$u/bin/veldor" /CONFIG=pkg >"$work/veldor.log" 2>&1) &
pid=$!
wait_for() {
    for _ in $(seq 100); do grep -qx "$1" "$ini" 2>/dev/null && return 0; sleep 0.1; done
    return 1
}
wait_for "Status=Active" || { cat "$work/veldor.log"; fail "no live link on SIM"; }
kill -TERM "$pid"
wait "$pid" || fail "veldor ended with $?"
wait_for "Status=InActive" || fail "Status not InActive after SIGTERM"
echo "ok: $(basename "$deb") unpacks, validates and starts"
