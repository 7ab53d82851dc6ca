# What a screen reader finds of the program from the outside, and presses; it needs no place on the
# screen. The session needs a bus, and the program QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1. Import it
# once that bus is up.
import fnmatch

import gi

from session import wait_for

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def children(parent):
    for index in range(parent.get_child_count()):
        child = parent.get_child_at_index(index)
        if child:
            yield child


def windows():
    desktop = Atspi.get_desktop(0)
    # Nothing that was told before counts, and what programs told since is heard first.
    desktop.set_cache_mask(Atspi.Cache.NONE)
    while GLib.MainContext.default().iteration(False):
        pass
    for application in children(desktop):
        application.set_cache_mask(Atspi.Cache.NONE)
        if application.get_name().lower() == "velora":
            yield from children(application)


def heard(look):
    # A program that has ended, or not begun to answer, or let go what is asked for, is asked again.
    try:
        return look()
    except GLib.Error as error:
        raise LookupError(error.message) from error


def controls():
    # By their names; the title is named by its file, the status by its words.
    return heard(lambda: {one.get_name(): one for window in windows() for one in children(window)})


def spoken(part):
    # Its role and name, and those of all in it.
    # Newer libraries call a push button a button.
    own = f"{part.get_role_name()} {part.get_name()}".strip().removeprefix("push ")
    return [own, *(line for child in children(part) for line in spoken(child))]


def await_words(*patterns):
    # Waits until a window says just that.
    def says_it(window):
        lines = spoken(window)
        return len(lines) == len(patterns) and all(map(fnmatch.fnmatchcase, lines, patterns))
    wait_for(f"a window of {patterns}", lambda: heard(lambda: any(map(says_it, windows()))))


def await_control(name):
    return wait_for(f"a control named {name}", lambda: controls()[name])


def press(name):
    await_control(name).get_action_iface().do_action(0)
