"""The program as its user sees it: where its buttons are, and which of its windows stand on the screen."""
import os
import subprocess
import time

from hand import VIEWABLE, Hand, soon, wait_for
from vitals import threads

QUIET = "..:: velora-pro.team qu><llo ::.."
SKINS = ("velora", "velora_small")
# A menu's last row ends the program; presses stay in the part above.
SAFE_PART_OF_MENU = 0.6
FRAME_HEIGHT = 25
TWIPS = 15
# Which chooser takes names that end so, without another row of its list of types.
CHOOSERS = {".mp3": "Select Media ...", ".m3u": "Select Playlist ..."}
# What lies between two tracks at most.
LONGEST_STEP_SECONDS = 2
TRACK_THREADS = {"velora-reader", "velora-length"}
SHIFTS = {1: "Shift_L", 2: "Control_L", 4: "Alt_L"}


def read_places(tool, skin):
    told = subprocess.run([tool, skin], capture_output=True, text=True, check=True).stdout
    return {name: tuple(map(int, numbers)) for name, *numbers in map(str.split, told.splitlines())}


def read_height(skin):
    with open(skin, encoding="latin-1") as lines:
        return next(int(line.split("=")[1]) for line in lines if line.startswith("Height=")) // TWIPS


class Stage:
    def __init__(self, pid, window, skins, places_tool, factor):
        self.hand = Hand()
        self.pid = pid
        self.window = window
        self.factor = factor
        self.began = time.monotonic()
        paths = {name: os.path.join(skins, name + ".vs4") for name in SKINS}
        self.places = {name: read_places(places_tool, path) for name, path in paths.items()}
        self.heights = {name: read_height(path) for name, path in paths.items()}

    def program_seconds(self):
        return (time.monotonic() - self.began) * self.factor

    def pause(self, seconds):
        """In the program's time. It is the pace of a user; nothing is expected of it."""
        time.sleep(seconds / self.factor)

    def ping(self):
        self.hand.ping(self.window)

    # What stands there.

    def caption(self):
        return self.hand.caption(self.window)

    def belongs(self, window):
        return self.hand.numbers(window, "_NET_WM_PID") == [self.pid]

    def dialogs(self):
        return [window for window in self.hand.managed_windows()
                if window != self.window and self.belongs(window) and self.hand.is_shown(window)]

    def dialog(self):
        """The one that came up last."""
        return (self.dialogs() or [None])[-1]

    def menu(self):
        """What isn't managed is a menu or a tool tip. Beside a dialog it is that dialog's list of proposals."""
        tip = self.hand.atom("_NET_WM_WINDOW_TYPE_TOOLTIP")
        for window in self.hand.top_windows():
            facts = self.hand.attributes(window)
            if facts and facts.override and facts.map_state == VIEWABLE and self.belongs(window) \
                    and tip not in self.hand.numbers(window, "_NET_WM_WINDOW_TYPE"):
                return None if self.dialog() else window
        return None

    def is_minimised(self):
        return not self.hand.is_shown(self.window)

    # The hand's ways.

    def places_now(self):
        return self.places[self.skin()]

    def skin(self):
        """Known by its height; what the file tells is that with a frame."""
        height = self.hand.rect(self.window).height
        return min(self.heights, key=lambda name: abs(self.heights[name] - FRAME_HEIGHT - height))

    def point_at(self, name, across=0.5, down=0.5):
        """Into a control, or beside it with parts below 0 or above 1; `window` is all of it."""
        frame = self.hand.rect(self.window)
        left, top, width, height = self.places_now().get(name, (0, 0, frame.width, frame.height))
        self.hand.point(frame.left + left + width * across, frame.top + top + height * down)

    def press(self, button):
        self.keep_off_exit()
        self.hand.press(button)
        if button != 1:
            self.ping()  # A menu that this opens has to be seen.

    def release(self, button):
        self.keep_off_exit()
        self.hand.release(button)

    def keep_off_exit(self):
        menu = self.menu()
        if menu is None:
            return
        frame, (x, y) = self.hand.rect(menu), self.hand.place()
        self.hand.trail.append(f"with a menu, {frame}")
        if frame and y >= frame.top + frame.height * SAFE_PART_OF_MENU:
            self.hand.point(x, max(0, frame.top - 20))
            self.ping()

    def with_keys(self, shift, deed):
        keys = [key for bit, key in SHIFTS.items() if shift & bit]
        for key in keys:
            self.hand.key_down(key)
        deed()
        for key in keys:
            if key in self.hand.keys:
                self.hand.key_up(key)

    # Ways back to the bare window.

    def minimise(self):
        """A dialog that comes up meanwhile keeps the window on the screen."""
        def is_away():
            self.hand.minimise(self.window)
            return soon(lambda: self.is_minimised() or self.dialog() is not None)
        wait_for("the window to be minimised", is_away)

    def restore(self):
        """A message that came up meanwhile can hold the window back until it is answered."""
        def is_back():
            if not self.is_minimised():
                return True
            dialog = self.dialog()
            if dialog is not None:
                self.answer(dialog, None)
            self.hand.restore(self.window)
            self.pause(1)
            return False
        wait_for("the window to be back", is_back)
        self.ping()

    def come_home(self):
        """A window that was dragged to the screen's edge is taken back to the middle."""
        frame = self.hand.rect(self.window)
        screen = self.hand.attributes(self.hand.root)
        if not (0 <= frame.left <= screen.width - frame.width and 0 <= frame.top <= screen.height - frame.height):
            self.hand.move(self.window, (screen.width - frame.width) / 2, (screen.height - frame.height) / 2)
            self.ping()

    def focus_dialog(self, dialog):
        """True once it takes the keys; false if it has gone."""
        def settled():
            if self.hand.focus() == dialog or not self.hand.is_shown(dialog):
                return True
            self.hand.activate(dialog)
            return False
        wait_for("the dialog to take the keys", settled)
        return self.hand.is_shown(dialog)

    def answer(self, dialog, name):
        """Types a file's name and Return, or only takes the dialog back; so it goes in the end in any case."""
        if not self.focus_dialog(dialog):
            return
        fits = name is not None and self.hand.caption(dialog) == CHOOSERS.get(name[-4:])
        if name is not None and self.hand.caption(dialog) in CHOOSERS.values():
            self.hand.type(name)
            self.hand.key("Return")
        # The first key may only close a list of proposals. A second question that a further press had asked for
        # comes in the same window, and is taken back.
        keys = iter(["Return"] * 4 if fits else [])
        wait_for("the dialog to close", lambda: self.closes(dialog, next(keys, "Escape")))

    def closes(self, dialog, key):
        self.ping()
        if self.dialog() != dialog:
            return True
        self.hand.key(key)
        return False

    def dismiss_menu(self):
        if self.menu() is not None:
            self.hand.key("Escape")
            self.ping()
            wait_for("the menu to close", lambda: self.menu() is None)

    def clear(self):
        """Nothing held, no dialog, no menu, the window up."""
        self.hand.let_go()
        self.dismiss_menu()
        self.restore()
        while (dialog := self.dialog()) is not None:
            self.answer(dialog, None)
        self.come_home()

    def play(self, file):
        """By eject, so it doesn't matter what plays already. Done anew if a step was on its way, which then
        starts another track behind this one."""
        def plays():
            self.clear()
            self.choose("eject", 0, file)
            self.pause(LONGEST_STEP_SECONDS)
            return file in self.caption()
        wait_for(f"{file} to play", plays)

    def stop(self, file):
        """As `clear`, and no track loaded. A track that came to its end by itself stays so, and one that can't
        be played shows nothing; so `file` is played and then stopped."""
        def stopped():
            self.play(file)
            self.click("play")
            self.pause(LONGEST_STEP_SECONDS)
            return self.caption() == QUIET and not TRACK_THREADS & threads(self.pid).keys()
        wait_for("the track to stop", stopped)

    def first_skin(self):
        """The one that the program began with."""
        if self.skin() != SKINS[0]:
            self.click("playlist")
            wait_for("the first skin", lambda: self.skin() == SKINS[0])

    def full_volume(self):
        """The knob goes from mark to mark, so the hand walks past all of them."""
        height = self.places_now()["volume"][3]
        self.point_at("volume", down=(height - 0.5) / height)
        self.press(1)
        for row in range(height, 0, -1):
            self.point_at("volume", down=(row - 0.5) / height)
        self.release(1)
        self.ping()

    def click(self, name, button=1):
        self.point_at(name)
        self.press(button)
        self.release(button)

    def change_skin(self):
        """By its button, which a window manager that is late with the last skin's shape lets a press miss."""
        before = self.skin()

        def is_other():
            self.click("playlist")
            return soon(lambda: self.skin() != before)
        wait_for("another skin", is_other)
        self.ping()

    def choose(self, button, shift, name):
        """Opens a chooser by a button and answers it. A window manager that is late with a new skin's size lets
        the first press miss."""
        def opened():
            self.with_keys(shift, lambda: self.click(button))
            return soon(lambda: self.dialog() is not None)
        wait_for("the chooser", opened)
        self.answer(self.dialog(), name)
