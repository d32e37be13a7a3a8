#!/usr/bin/python3
"""Plays the real program as somebody who can't see it: from the first screen to the board, through a typed game and into
the hall of fame, by what a screen reader is told and by nothing else. Keys are struck as on a keyboard, buttons pressed
as a switch or a screen reader presses them.

Usage: by_ear.py PROGRAM_FOLDER"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

if "BY_EAR" not in os.environ:  # once more, with a message bus and a screen of its own
    os.execvp("dbus-run-session", ["dbus-run-session", "--", "env", "BY_EAR=1", "NO_AT_BRIDGE=1", "xvfb-run", "-a", "-s",
                                   "-screen 0 1024x768x24", *sys.argv])

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 20  # seconds
announced = []
focused = []


def fail(why):
    print("FAILED:", why, file=sys.stderr)
    for line in described(window()) if window() else []:
        print(line, file=sys.stderr)
    print("announced last:", announced[-8:], "focus went to:", focused[-4:], file=sys.stderr)
    sys.exit(1)


def until(what, found):
    """Asks again and again, and hears meanwhile what is announced; gives what was found."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        for _ in range(50):
            if not GLib.MainContext.default().iteration(False):
                break
        try:
            result = found()
        except GLib.Error:  # what was asked has gone
            result = None
        if result:
            return result
        time.sleep(0.01)
    fail(f"waited in vain for {what}")


def children(parent):
    return [child for child in (parent.get_child_at_index(i) for i in range(parent.get_child_count())) if child]


def window():
    for app in children(Atspi.get_desktop(0)):
        if app.get_name() == "Marrowfen":
            return next(iter(children(app)), None)
    return None


def described(what, indent=0):
    yield f"{' ' * indent}{what.get_role_name()} {what.get_name()!r}"
    for child in children(what):
        yield from described(child, indent + 2)


def has(state, what):
    return what.get_state_set().contains(getattr(Atspi.StateType, state))


def form(name):
    return next((one for one in children(window()) if one.get_name() == name), None)


def comes(name):
    """The form of this name, once it is the one that keys go to; all that it holds must be called something."""
    one = until(f"the form {name}", lambda: form(name) and has("ACTIVE", form(name)) and form(name))
    for part in children(one):
        if not part.get_name():
            fail(f"a {part.get_role_name()} of {name} has no name")
        place = part.get_extents(Atspi.CoordType.SCREEN)
        if place.width <= 0 or not (0 <= place.x < 1024 and -60 <= place.y < 768):
            fail(f"{part.get_name()} of {name} is at {place.x}, {place.y}")
    return one


def part(owner, role, name):
    return until(f"the {role} {name} of {owner}", lambda: next(
        (one for one in children(form(owner)) if one.get_role_name() == role and one.get_name() == name), None))


def press(owner, name, role="push button"):
    button = part(owner, role, name)
    until(f"{name} being ready", lambda: has("ENABLED", button))
    if not Atspi.Action.do_action(button, 0):
        fail(f"{name} can't be pressed")


def strike(*keys):
    subprocess.run(["xdotool", "key", "--delay", "4", *keys], check=True)


def hear(event):
    try:
        if event.type.startswith("object:state-changed:showing") and event.source.get_role_name() == "notification":
            announced.append(event.source.get_name())
        elif event.type.startswith("object:state-changed:focused") and event.detail1:
            focused.append(event.source.get_name())
    except GLib.Error:
        pass


def tile():
    return next((one.get_name()[-1] for one in children(form("Keyboard")) if one.get_name().startswith("Tile ")), None)


def choose(name):
    comes("Games")
    games = part("Games", "list", "Games")
    wanted = next(i for i, game in enumerate(children(games)) if game.get_name().endswith(f". {name}"))
    strike("Home", *["Down"] * wanted)
    until("the game being selected", lambda: has("SELECTED", games.get_child_at_index(wanted)))
    strike("Return")
    comes("Team colour")


def play():
    comes("Your name")
    press("Your name", "New player")
    comes("New player")
    press("New player", "Next")
    comes("Message")
    part("Message", "label", "Please type in your name")
    until("the message having the focus", lambda: focused and focused[-1] == "Message")
    press("Message", "Continue")
    comes("New player")
    strike("A", "n", "n")
    until("the name", lambda: Atspi.Text.get_text(part("New player", "text", "Please enter your name"), 0, -1) == "Ann")
    press("New player", "Next")

    comes("Games")
    was_on = has("CHECKED", part("Games", "check box", "Sound"))
    press("Games", "Sound", "check box")
    until("the sound being switched", lambda: has("CHECKED", part("Games", "check box", "Sound")) != was_on)
    choose("Type the big letter")
    blue = part("Team colour", "push button", "Blue team")
    Atspi.Component.grab_focus(blue)
    until("the blue button having the focus", lambda: has("FOCUSED", blue) and focused[-1] == "Blue team")
    strike("Return")

    keys = until("the keys", lambda: [key for key in children(form("Keyboard")) if len(key.get_name()) == 1])
    if sorted(key.get_name() for key in keys) != sorted("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"):
        fail("the keyboard has other keys")
    press("Stopwatch", "Start")
    watch = until("the time left", lambda: next(
        (one for one in children(form("Stopwatch")) if re.fullmatch(r"Stopwatch, 2[34]\d seconds left", one.get_name())), None))
    if Atspi.Value.get_maximum_value(watch) != 240:
        fail("the stopwatch says another time limit")

    letter = until("a tile", tile)
    for number in range(1, 37):
        announced.clear()
        strike(letter.lower())
        until(f"key {letter} being done", lambda: number == 36 or any(
            key.get_name() == f"{letter}, done" for key in children(form("Keyboard"))))
        if number < 36:
            news = until("the next tile", lambda: [said for said in announced if said.startswith("Tile ")])
            letter = news[-1][-1]

    comes("Your result")
    press("Your result", "Hall of fame")
    hall = comes("Hall of fame")
    said = " | ".join(one.get_name() for one in children(hall))
    if not re.search(r"Blue Team Hall Of Fame \| Type the big letter \|.*\| 1\. \| Ann \| \d:\d\d \| \d+ \| \S+ \| 2\.", said):
        fail(f"the hall of fame says: {said}")

    press("Hall of fame", "Another game")
    choose("Drag the big letters")
    press("Team colour", "Red team")
    press("Stopwatch", "Start")
    letter = until("a tile", tile)
    press("Keyboard", f"Tile {letter}")
    press("Keyboard", letter)
    part("Keyboard", "push button", f"{letter}, done")
    press("Keyboard", "Close")
    comes("Games")
    press("Games", "Exit")


with tempfile.TemporaryDirectory() as here:
    program = shutil.copytree(sys.argv[1], f"{here}/program")  # nobody's pupils are touched
    subprocess.run(["sqlite3", f"{program}/data.mdb", "DELETE FROM Pupils; DELETE FROM Hall_of_Fame"], check=True)
    listener = Atspi.EventListener.new(hear)
    for kind in ("showing", "focused"):
        listener.register(f"object:state-changed:{kind}")
    marrowfen = subprocess.Popen(
        [f"{program}/marrowfen"],
        env={**os.environ, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "SDL_AUDIODRIVER": "dummy", "QT_QPA_PLATFORM": "xcb"})
    try:
        until("the window", window)
        play()
        if marrowfen.wait(PATIENCE) != 0:
            fail("the program did not end well")
    finally:
        marrowfen.kill()
print("passed: by_ear")
