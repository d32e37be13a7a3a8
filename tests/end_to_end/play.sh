#!/usr/bin/env bash
# Plays the real program on a virtual screen of 1024 x 768 with real key and mouse events, and reads what it kept. Then
# the run is played again from its recording, on the same screen, and must come to the same end.
# Usage: play.sh PROGRAM_FOLDER SCENE, with a scene of those at the end of this file; or
#        play.sh STORE SCENE COMMAND..., which starts the installed program by its command and reads its own store.
# SCREEN is the size of the virtual screen, 1024x768 unless told. BESIDE is a command that is started on it before, such
# as a window manager.
#
# Nobody here can see the letters, so a game is played as a very young child would: everything is tried until
# something fits. A wrong try changes nothing.
set -euo pipefail
program=$1 scene=$2
shift 2
installed=("$@")
here=$(mktemp -d)
trap 'kill ${marrowfen:-} ${beside:-} ${xvfb:-} 2>/dev/null || true; rm -rf "$here"' EXIT

fail() { echo "FAILED: $*" >&2; exit 1; }

if [ ${#installed[@]} -gt 0 ]; then
    store=$program
else
    # A program folder of our own, so that nobody's pupils are touched.
    cp -r "$program" "$here/program"
    store=$here/program/data.mdb
    installed=("$here/program/marrowfen" --record "$here/run.txt")
fi
kept() { sqlite3 "$store" "$1"; }
kept "DELETE FROM Pupils; DELETE FROM Hall_of_Fame"
[ "$scene" != no_store ] || rm "$here/program/data.mdb"

mkfifo "$here/display"
screen=${SCREEN:-1024x768}
Xvfb -displayfd 7 -screen 0 "${screen}x24" -nolisten tcp -noreset 7>"$here/display" 2>/dev/null &
xvfb=$!
read -r number <"$here/display"
export DISPLAY=":$number" SDL_AUDIODRIVER=dummy QT_QPA_PLATFORM=xcb
if [ "$scene" = held_store ]; then  # by another computer, until the file is closed here
    mkfifo "$here/hold"
    sqlite3 "$store" <"$here/hold" &
    exec 8>"$here/hold"
    echo "BEGIN EXCLUSIVE;" >&8
fi
[ "$scene" != small_hands ] ||
    sqlite3 "$here/program/data.mdb" "INSERT INTO Pupils (PupilName, PupilName_folded) VALUES ('Ann', 'ann')"
if [ -n "${BESIDE:-}" ]; then
    $BESIDE 2>/dev/null &
    beside=$!
fi
"${installed[@]}" 8>&- &
marrowfen=$!

# until_true SECONDS COMMAND...: asks again and again until the command succeeds.
until_true() {
    local until=$((SECONDS + $1))
    shift
    until "$@"; do
        [ $SECONDS -lt $until ] || return 1
        sleep 0.05  # not through the display, which may just have gone with its last window
    done
    return 0
}
window_is_there() { xdotool search --onlyvisible --name '^Marrowfen$' >/dev/null 2>&1; }
until_true 20 window_is_there || fail "no window came up"
xdotool sleep 0.5

# The places below are those on a screen of 1024 x 768. On another one the same picture is as large as it fits, in the
# middle.
wide=${screen%x*} high=${screen#*x}
if [ $((wide * 768)) -le $((high * 1024)) ]; then share=$wide of=1024; else share=$high of=768; fi
place() { echo "$((wide / 2 + ($1 - 512) * share / of)) $((high / 2 + ($2 - 384) * share / of))"; }
# shellcheck disable=SC2046  # a place is two words
click() { xdotool mousemove $(place "$1" "$2") mousedown 1 mouseup 1 sleep "${3:-0.2}"; }
gone() { ! kill -0 "$marrowfen" 2>/dev/null; }

# The middles of the controls, in pixels, as the forms' tables have them.
new_player() { click 650 450; }
next_button() { click 621 442; }
first_names_pupil() {
    new_player
    xdotool type --delay 20 "$1"
    next_button
    [ "$(kept "SELECT count(*) FROM Pupils")" = 1 ] || fail "the pupil was not kept"
}
# pick GAME_NUMBER: by keyboard, as the entries lie in the order of their numbers.
pick() {
    xdotool key Home
    for _ in $(seq 2 "$1"); do xdotool key Down; done
    xdotool key Return sleep 0.4
}
game_number() { kept "SELECT GameNumber FROM Templates WHERE Template_ID=$1"; }
blue_team() { click 706 339 0.5; }
start_stopwatch() { click 168 177 0.3; }
hall_of_fame_after_a_win() { click 512 510 0.3; }
one_result() { [ "$(kept "SELECT count(*) FROM Hall_of_Fame")" = 1 ]; }

# x y of each key of the board, by row.
keys() {
    local i
    for i in 0 1 2 3 4 5 6 7 8 9; do echo "$((251 + 44 * i)) $((198 + 109))"; done
    for i in 0 1 2 3 4 5 6 7 8 9; do echo "$((275 + 44 * i)) $((198 + 148))"; done
    for i in 0 1 2 3 4 5 6 7 8; do echo "$((290 + 44 * i)) $((198 + 188))"; done
    for i in 0 1 2 3 4 5 6; do echo "$((309 + 44 * i + (i > 1 ? 1 : 0)))" "$((198 + 228))"; done
}
drag_first_tile_to_every_key() {
    keys | while read -r x y; do
        echo "mousemove $(place 177 543) mousedown 1 mousemove $(place $((x - 3)) $((y - 3)))" \
            "mousemove $(place "$x" "$y") mouseup 1"
    done | xdotool -
}
type_every_letter() { xdotool type --delay 8 abcdefghijklmnopqrstuvwxyz; }

# until_won TRY: tries until the result form takes the press on its button.
until_won() {
    local round
    for round in $(seq 40); do
        "$1"
        hall_of_fame_after_a_win
        one_result && return
        gone && fail "the program ended in the middle of a game"
    done
    fail "the game was not won in $round rounds"
}
expect_result() {
    local got
    got=$(kept "SELECT Pupil_id, GameID, TimeLimit, $1 FROM Hall_of_Fame")
    [ "$got" = "$2" ] || fail "the result kept is '$got', not '$2'"
}
leave_from_hall_of_fame() {
    click 520 635 0
    until_true 5 gone || fail "Exit did not end the program"
    wait "$marrowfen" || fail "the program ended with status $?"
}
points_fit_time="Points = (240 - (substr(TimeTaken, 1, 1) * 60 + substr(TimeTaken, 3))) * 100 / 240"

play_board_game() {  # TEMPLATE_ID TRY
    first_names_pupil "Zoe O'Neill"
    pick "$(game_number "$1")"
    blue_team
    start_stopwatch
    until_won "$2"
    local pupil
    pupil=$(kept "SELECT Pupil_ID FROM Pupils WHERE PupilName='Zoe O''Neill'")
    expect_result "$points_fit_time" "$pupil|$1|240|1"
    leave_from_hall_of_fame
}

win_typing_test() {
    xdotool type --delay 20 "the quick brown fox jumps over the lazy dog"
    xdotool sleep 0.5
    hall_of_fame_after_a_win
    one_result || fail "the typing test left no result"
}

case $scene in
    tiles_by_mouse) play_board_game 7 drag_first_tile_to_every_key ;;
    word_game_by_keyboard) play_board_game 26 type_every_letter ;;
    small_hands)
        # The icon of the program takes a double click, too: the second start shows the first and ends.
        timeout 10 "$here/program/marrowfen" || fail "the second start did not end well"
        [ "$(xdotool search --onlyvisible --name '^Marrowfen$' | wc -l)" = 1 ] || fail "there are two windows"
        # A double click on a name is none on the list of games, where its second press would open something.
        click 400 448
        xdotool mousemove 400 482 click 1 sleep 0.3 click 1 sleep 0.3 click 1 sleep 1.2
        [ "$(grep -c '^> here' "$here/run.txt")" = 3 ] && ! grep -q '^> frmGames[.]' "$here/run.txt" ||
            fail "the second press of a double click did something"
        # Enter is held down on a game: the clock of the typing test starts with the first key that is meant for it.
        xdotool key Home
        for _ in $(seq 2 "$(game_number 27)"); do xdotool key Down; done
        xdotool keydown Return sleep 2.5 keyup Return
        win_typing_test
        [ "$(grep -c "key Enter" "$here/run.txt")" -gt 3 ] || fail "the key did not repeat"
        expect_result "Points < 3" "$(kept "SELECT Pupil_ID FROM Pupils")|27|0|1"
        leave_from_hall_of_fame
        ;;
    typing_test)
        first_names_pupil "Zoe O'Neill"
        pick "$(game_number 27)"
        win_typing_test
        expect_result "Points < 30" "$(kept "SELECT Pupil_ID FROM Pupils")|27|0|1"
        leave_from_hall_of_fame
        ;;
    held_store)
        # What is typed into the window that waits is nobody's name.
        new_player
        xdotool type --delay 20 "Ann" sleep 0.5
        gone && fail "the program gave up"
        exec 8>&-
        until_true 10 grep -q "^< " "$here/run.txt" || fail "the games did not begin"
        xdotool sleep 1
        first_names_pupil "Zoe O'Neill"
        [ "$(kept "SELECT PupilName FROM Pupils")" = "Zoe O'Neill" ] || fail "another name was kept"
        kill "$marrowfen"
        ;;
    no_store)
        xdotool mousemove 512 384 key Return
        until_true 5 gone || fail "the window with the reason did not go"
        ! wait "$marrowfen" || fail "the program ended as if all were well"
        [ ! -e "$here/program/data.mdb" ] || fail "a store without games was made"
        ;;
    *) fail "there is no scene $scene" ;;
esac
if [ -e "$here/run.txt" ] && [ "$scene" != no_store ]; then
    "$here/program/marrowfen" --replay "$here/run.txt" --fast || fail "the run went another way when it was played again"
fi
echo "passed: $scene"
