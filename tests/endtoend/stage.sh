# shellcheck shell=bash
# The stage on which the stories of this folder play: a display and a session of their own, the programs installed into
# a scratch folder, and the moves of a person at the keyboard. Sourced by a story, which is called with the build folder.
#
# Nothing here counts on a time: waiting ends with what is to be seen, and a key that may come too early for a
# window that is still busy is pressed again until its dialog is there.

set -u
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$(cd "${1:?usage: $0 BUILD-FOLDER}" && pwd)

# The tools of a story, and python3's way to the accessibility bus. All are in packaging/check-packages.txt.
for tool in Xvfb xdotool openbox dbus-run-session /usr/bin/python3; do
    command -v "$tool" > /dev/null || { echo "failed: $tool is missing, see packaging/check-packages.txt"; exit 1; }
done
/usr/bin/python3 -c 'import gi; gi.require_version("Atspi", "2.0"); from gi.repository import Atspi' ||
    { echo 'failed: python3 finds no accessibility library, see packaging/check-packages.txt'; exit 1; }

# A message bus of its own for each story: neither the desktop of the user who runs it nor another story is on it.
if [ -z "${VELMARCH_STAGE:-}" ]; then
    VELMARCH_STAGE=$(mktemp -d)
    export VELMARCH_STAGE XDG_RUNTIME_DIR=$VELMARCH_STAGE
    unset AT_SPI_BUS_ADDRESS DBUS_SESSION_BUS_ADDRESS
    # For the proof that a story fails where nobody serves the accessibility bus.
    bare=()
    if [ -n "${VELMARCH_BARE_SESSION:-}" ]; then
        bare=(--config-file "$VELMARCH_STAGE/bare.conf")
        cat > "$VELMARCH_STAGE/bare.conf" << 'END'
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/></policy>
</busconfig>
END
    fi
    dbus-run-session "${bare[@]}" -- "$0" "$build" 2> "$VELMARCH_STAGE/session.log"
    outcome=$?
    [ "$outcome" = 0 ] || { echo 'what the session said:'; tail -n 20 "$VELMARCH_STAGE/session.log"; }
    rm -rf "$VELMARCH_STAGE"
    exit "$outcome"
fi
scratch=$VELMARCH_STAGE

jobs_to_end=()
finish() {
    local job
    for job in "${jobs_to_end[@]}"; do kill "$job" 2> /dev/null; done
    wait 2> /dev/null
}
trap finish EXIT
window= # process of the window
fail() {
    echo "failed: $1"
    if [ -n "$window" ]; then
        kill -0 "$window" 2> /dev/null && echo 'the window process runs' || echo 'the window process has ended'
        cat "$scratch/window.log"
    fi
    echo "display ${DISPLAY:-}, windows:"
    for shown in $(xdotool search --onlyvisible --name '.' 2> /dev/null); do echo "  $(xdotool getwindowname "$shown")"; done
    import -window root "${VELMARCH_SCREENSHOT:-$scratch/failed.png}" 2> /dev/null
    exit 1
}
passed() { echo "ok: $1"; }

# until_so SECONDS COMMAND...: asks again until the command succeeds.
until_so() {
    local end=$((SECONDS + $1))
    shift
    until "$@" > /dev/null 2>&1; do
        ((SECONDS < end)) || return 1
        sleep 0.1
    done
}
gone() { ! kill -0 "$1" 2> /dev/null; }

# --- The display

unset WAYLAND_DISPLAY QT_QPA_PLATFORM
export LC_ALL=C.UTF-8 PYTHONDONTWRITEBYTECODE=1 QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
exec 3> "$scratch/display"
Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp > /dev/null 2>&1 &
jobs_to_end+=($!)
until_so 30 test -s "$scratch/display" || fail 'there is no display'
DISPLAY=:$(tr -d '[:space:]' < "$scratch/display")
export DISPLAY
# Without a window manager no dialog gets the keyboard; one that gives up on a busy machine is started again.
manager=
is_managed() {
    xdotool get_num_desktops && return 0
    if [ -z "$manager" ] || gone "$manager"; then
        openbox > "$scratch/manager.log" 2>&1 &
        manager=$!
        jobs_to_end+=("$manager")
    fi
    return 1
}
until_so 30 is_managed || { cat "$scratch/manager.log"; fail 'there is no window manager'; }

# --- The programs, as they are where a user has installed them

place=$scratch/place
cmake --install "$build" --prefix "$place" > "$scratch/install.log" 2>&1 || { cat "$scratch/install.log"; fail 'it cannot be installed'; }
home= # folder of records and settings, set by the story
cli() { "$place/velmarch-cli" --home "$home" --json "$@"; }
# Records of a mode without what differs from home to home: the identities and the frame of the list.
records() { cli "$1" list | grep -o '"date":.*' | sed 's/}\], "sums".*/}/; s/},$/}/'; }
same_records() { # same_records MODE HOME HOME: a home may be empty, but then the other one must be, too
    local one other
    one=$(home=$2 records "$1")
    other=$(home=$3 records "$1")
    [ -n "$one" ] || fail "no record of $1 is there"
    [ "$one" = "$other" ] || fail "the records of $1 differ:
$one
--
$other"
}
setting() { cli settings get "$1" | grep -o '"value": *[^,]*' | sed 's/.*: *//'; }

# The main window says in front of its name what runs: "0:42 Client A · Velmarch".
is_active() {
    local title
    title=$(xdotool getactivewindow getwindowname 2> /dev/null)
    [ "$title" = "$1" ] || [[ $1 = Velmarch && $title = *' · Velmarch' ]]
}
# start_with TITLE: the program, until the window or dialog of this title is in front.
start_with() {
    "$place/velmarch" --home "$home" > "$scratch/window.log" 2>&1 &
    window=$!
    jobs_to_end+=("$window")
    until_so 60 is_active "$1" || fail "$1 doesn't appear"
}
# On a home that the console has made, where there is one to be made: a new one opens with the first steps.
start() {
    [ -e "$home/velmarch.settings" ] || cli settings set confirmCopy 1 > /dev/null || fail 'there are no settings'
    start_with Velmarch
}
leave() {
    until_so 20 is_active Velmarch || fail "the window isn't in front"
    local end=$((SECONDS + 30))
    until gone "$window"; do
        ((SECONDS < end)) || fail "the window doesn't end"
        xdotool key --clearmodifiers ctrl+q
        until_so 3 gone "$window"
    done
    wait "$window" || fail "the window ends with an error"
}

# --- The keyboard

keys() {
    local key
    for key in "$@"; do xdotool key --clearmodifiers "$key"; done
}
text() { xdotool type --delay 15 -- "$1"; }
# A key that opens a window, and the window's title.
opens() {
    local end=$((SECONDS + 30))
    until is_active "$2"; do
        ((SECONDS < end)) || fail "the key $1 doesn't open $2"
        keys "$1"
        until_so 5 is_active "$2"
    done
}
# A key that ends a dialog, and the title of the window that is in front then.
closes() {
    keys "$1"
    until_so 20 is_active "$2" || fail "the key $1 doesn't lead back to $2"
}
# A command by its name.
command_named() {
    opens ctrl+k 'Find a command'
    text "$1"
    closes Return Velmarch
}
