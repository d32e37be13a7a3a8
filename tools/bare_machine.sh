# Sourced by the trials that install the package: makes a bare Debian system in a folder. Needs root.
#
# Set by whoever sources it: nothing. Gives: $room, the folder of the trials; $bare, the system's; in_bare COMMAND...;
# as ACCOUNT COMMAND..., which runs a command there as an ordinary account.
room=build/trials
mkdir -p "$room"
room=$(realpath "$room")
bare=$room/bare
[ "$(id -u)" -eq 0 ] || { echo "A system in a folder needs root." >&2; exit 1; }
install_missing debootstrap xvfb xdotool sqlite3 x11-utils

stage() { echo "== $*"; }
fail() { echo "FAILED: $*" >&2; exit 1; }
in_bare() { LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive chroot "$bare" "$@"; }
as() {
    chroot --userspec="$1:$1" --groups="$1" "$bare" env -i HOME="/home/$1" USER="$1" LOGNAME="$1" PATH=/usr/bin:/bin \
        DISPLAY="${DISPLAY:-}" SDL_AUDIODRIVER=dummy QT_QPA_PLATFORM=xcb "${@:2}"
}
# What debootstrap made is kept: the next trial begins with a copy of it.
make_bare() {
    leave_bare
    if [ ! -e "$room/base/etc/debian_version" ]; then
        stage "debootstrap --variant=minbase bookworm"
        debootstrap --variant=minbase bookworm "$room/base" >"$room/debootstrap.log" ||
            fail "see $room/debootstrap.log"
    fi
    cp -a "$room/base" "$bare"
    echo 'APT::Install-Recommends "false";' >"$bare/etc/apt/apt.conf.d/90trial"
    printf '#!/bin/sh\nexit 101\n' >"$bare/usr/sbin/policy-rc.d"
    chmod +x "$bare/usr/sbin/policy-rc.d"
    mount --bind /proc "$bare/proc"
    mount --bind /dev "$bare/dev"
    in_bare apt-get update -qq
}
leave_bare() {
    local where
    for where in proc dev; do mountpoint -q "$bare/$where" && umount "$bare/$where"; done
    rm -rf --one-file-system "$bare"
}
