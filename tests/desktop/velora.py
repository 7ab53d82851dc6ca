# Drives the real program as its user does: started in a copy of its directory, clicked by the names
# that its skin gives, read by its caption, its pixels and the recording of its sound. A script is
# called with the built program as its first argument. It is scenes, procedures with the parameter
# `velora` alone, each named by what it shows, and ends by `play(globals(), "display", "sound",
# "manager")`. What fails leaves a picture beside the program, and prints the captions and what all
# programs said.
import contextlib
import fnmatch
import inspect
import os
import pathlib
import re
import shutil
import signal
import sys
import time

import sound
from display import Display, differ
from session import GaveUp, Session, wait_for
from skin import Skin

HERE = pathlib.Path(__file__).resolve().parent
FIRST_CAPTION = "..:: velora.team-qu><llo::.."
QUIET_CAPTION = "..:: velora-pro.team qu><llo ::.."
BARE = (8, 140)  # A place of the background that no control covers.
MEDIA, LIST, SKIN, MESSAGE = "Select Media ...", "Select Playlist ...", "Select skin ...", "Velora"
WAV_HEADER_BYTES = 44


def play(script, *parts, stage=None, **options):
    # On a stage of another kind, if one is given.
    with (stage or Velora)(*parts, **options) as velora:
        for name, scene in list(script.items()):
            if inspect.isfunction(scene) and [*inspect.signature(scene).parameters] == ["velora"]:
                begun = time.monotonic()
                print("-", name.replace("_", " "), end="", flush=True)
                scene(velora)
                print(f" ({time.monotonic() - begun:.1f} s)")


def check(what, holds):
    assert holds, f"not so: {what}"


class Velora:
    # The stage: a session with the program's directory in `app`, room for tracks in `media`.
    # `screen` is the hand and the eye, `process` and `window` the program that was started last.

    def __init__(self, *parts, **options):
        # The sanitizer build also ends with a search for leaks; those of the libraries are not
        # ours.
        known = f"suppressions={HERE.parent}/lsan.supp:print_suppressions=0"
        os.environ.setdefault("LSAN_OPTIONS", known)
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
        self.built = pathlib.Path(sys.argv[1]).resolve()
        self.session = Session(*parts, **options)
        self.directory = self.session.directory
        self.screen = Display()
        self.process = self.window = None
        self.app, self.media = self.directory / "app", self.directory / "media"
        self.media.mkdir()
        self.app.mkdir()
        shutil.copy(self.built, self.app / "velora")
        shutil.copytree(self.built.parent / "VELORA_MAIN", self.app / "VELORA_MAIN")
        # As long as the real click, but silent: the recordings are compared with the tracks alone.
        click = (self.built.parent / "click.wav").read_bytes()
        (self.app / "click.wav").write_bytes(click[:WAV_HEADER_BYTES].ljust(len(click), b"\0"))
        self.use_skin("velora")

    def __enter__(self):
        return self

    def __exit__(self, kind, *_):
        if kind:
            with contextlib.suppress(Exception):
                self.leave_traces()
        self.session.end()

    def leave_traces(self):
        for log in sorted(self.directory.glob("*.log")):
            for line in log.read_text(errors="replace").splitlines()[-60:]:
                print(f"{log.name}: {line}", file=sys.stderr)
        for window in self.screen.windows():
            print("window:", self.screen.caption(window), self.screen.rect(window), file=sys.stderr)
        picture = self.built.parent / "desktop-pictures" / f"{pathlib.Path(sys.argv[0]).name}.png"
        picture.parent.mkdir(exist_ok=True)
        self.screen.picture().save(picture)
        print(f"picture: {picture}", file=sys.stderr)

    # Start and end.

    def launch(self, *arguments, program=None, **environment):
        # Starts the program without waiting for anything.
        self.window = None
        all_of_it = {**os.environ, **{name: str(value) for name, value in environment.items()}}
        self.process = self.session.start(program or self.app / "velora", *arguments, log="velora",
                                          env=all_of_it)

    def start(self, *arguments, **environment):
        # Starts the program and waits for its window.
        self.launch(*arguments, **environment)
        self.meet_window()

    def meet_window(self):
        self.window = wait_for("Velora's window", self.find_window)

    def find_window(self):
        if self.process.poll() is not None:
            raise GaveUp(f"the program has ended with status {self.process.returncode}")
        return self.screen.find("window")

    def ends_well(self):
        # The program ends by itself, with status 0, and no sanitizer has spoken.
        wait_for("the program's end", lambda: self.process.poll() is not None)
        status = self.process.returncode
        check(f"the program ends with status 0, not {status}", status == 0)
        self.check_log()

    def check_log(self):
        log = (self.directory / "velora.log").read_text(errors="replace")
        check("no sanitizer report", not re.search("Sanitizer|runtime error", log))

    def end(self, number=signal.SIGTERM):
        # A request to end is followed.
        self.process.send_signal(number)
        self.ends_well()

    def answers(self):
        # The program lives, no sanitizer has spoken, and all that was sent to the window has been
        # handled.
        check("the program lives", self.process.poll() is None)
        self.check_log()
        self.screen.ping(self.window)

    # The pointer.

    def use_skin(self, name, folder="VELORA_MAIN"):
        # The skin that clicks and looks go by.
        self.skin = Skin(self.app / folder / f"{name}.vs4")

    def place(self, where):
        # Of a control's middle, or of a pixel of the window, on the screen.
        x, y = where if isinstance(where, tuple) else self.skin.middle(where)
        left, top = self.corner()
        return left + x, top + y

    def point_at(self, where):
        self.screen.point(*self.place(where))

    def press(self, where, button=1, key=None):
        self.point_at(where)
        if key:
            self.screen.key_down(key)
        self.screen.press(button)

    def release(self, button=1, key=None):
        self.screen.release(button)
        if key:
            self.screen.key_up(key)

    def click(self, where, button=1, key=None):
        # Presses and releases, with a key held if one is named.
        self.press(where, button, key)
        self.release(button, key)

    def change_skin(self, name):
        # By the button, to the companion of that name.
        self.click("playlist")
        self.use_skin(name)
        self.await_picture("eject")

    def begin_move(self):
        # A window manager makes a move of a press that has to begin before the pointer goes on, or
        # what it has gone until then would be missing. A busy one loses the request now and then,
        # so that is made again.
        self.point_at(BARE)
        self.resting = self.screen.cursor()
        for patience in (9, 9, 9):
            self.screen.press()
            with contextlib.suppress(GaveUp):
                return hasattr(self.session, "manager") and wait_for(
                    "a move", self.has_other_cursor, patience)
            self.end_move()
        raise GaveUp("no move began")

    def has_other_cursor(self):
        return self.screen.cursor() != self.resting

    def end_move(self):
        # It has to be over for the window manager, which would take what comes next for a part of
        # it, and for the program, which hears of the release from its next look at the pointer
        # alone.
        self.release()
        wait_for("the move's end", lambda: not self.has_other_cursor())
        self.answers()

    # The caption.

    def caption(self):
        return self.screen.caption(self.window)

    def await_caption(self, pattern):
        # A pattern of the shell.
        wait_for(f"a caption like {pattern}",
                 lambda: fnmatch.fnmatchcase(self.caption(), pattern) or told(self.caption()))

    def await_track(self, name):
        self.await_caption(f"..:: *{name}.mp3 *% ::.. velora *")

    def percent(self):
        # Less than any between two tracks.
        found = re.search(r" (\d+)% ::\.\. velora *$", self.caption())
        return int(found[1]) if found else -1

    def await_progress(self):
        # The display counts on; between two tracks it doesn't.
        looks = [self.percent()]

        def counts():
            looks.append(self.percent())
            return looks[-1] > looks[-2] >= 0
        wait_for("the caption to count", counts)

    # Pixels.

    def corner(self):
        return self.screen.rect(self.window)[:2]

    def pixel(self, where):
        # The colour on the screen at a control's middle or at a place of the window, as #RRGGBB.
        return "#%02X%02X%02X" % self.screen.picture(*self.place(where), 1, 1).getpixel((0, 0))

    def await_pixel(self, where, colour):
        wait_for(f"{colour} at {where}",
                 lambda: self.pixel(where) == colour or told(self.pixel(where)))

    def shows(self, control, key="filename", at=None):
        # The screen shows that picture of the skin (`filename`, at rest, or `filename2`, held down)
        # at the place of the control, or at that of another one.
        place = self.skin.place(at or control)
        seen = self.screen.picture(*self.place(place[:2]), place.width, place.height)
        return not differ(seen, self.skin.shown(control, key, place))

    def await_picture(self, control, key="filename", at=None):
        wait_for(f"the picture of {control} {key}", lambda: self.shows(control, key, at))

    # Dialogs and the menu.

    def await_dialog(self, title):
        # It is up, and takes the keys.
        dialog = wait_for(f"the dialog {title}", lambda: self.screen.find("dialog", title))
        wait_for(f"the dialog {title} to take the keys", lambda: self.screen.focus() == dialog)
        return dialog

    def answer(self, title, *keys, text=""):
        # Types at a dialog, and waits until it is gone. The window manager takes the frame away a
        # moment after the dialog in it has gone, and until then a click would fall on that.
        dialog = self.await_dialog(title)
        # No faster than the program reads: the proposals come up and go with each letter, and must
        # not have one of their own on its way.
        for letter in text:
            self.screen.key(letter)
            self.screen.ping(dialog)
        self.screen.key(*keys)
        wait_for(f"the dialog {title} to close", lambda: not self.screen.is_shown(dialog))
        wait_for(f"the frame of {title} to go", lambda: not self.screen.is_managed(dialog))

    def choose_file(self, title, path):
        self.answer(title, "Return", text=str(path))

    def choose_media(self, name):
        # A track in `media`.
        self.choose_file(MEDIA, self.media / f"{name}.mp3")
        self.await_track(name)

    def enter_playlists(self, *names):
        # Lists in `media`, before the program starts.
        rows = "".join(f"[{number}]\nEnabled=True\nName=Days\nFile={name}\nPath={self.media}\n"
                       for number, name in enumerate(names, 1))
        (self.app / "velplaylists.ini").write_text(f"[Settings]\nCount={len(names)}\n{rows}")

    def find_menu(self):
        return self.screen.find("menu")

    def open_menu(self):
        self.click(BARE, 3)
        return wait_for("the menu", self.find_menu)

    def choose_from_menu(self, *keys):
        self.open_menu()
        self.screen.key(*keys)
        self.await_no_menu()

    def await_no_menu(self):
        wait_for("the menu to close", lambda: not self.find_menu())

    # Sound.

    def write_noise(self, name, seconds, seed):
        # A track that is different at every place: NAME.mp3 in `media`, and its samples in
        # NAME.raw.
        sound.write_noise(self.media / name, seconds, seed)

    def listen(self):
        # Records from here on into the file `heard`.
        self.heard = self.directory / f"heard-{len(list(self.directory.glob('heard-*')))}"
        self.session.record(self.heard)

    def await_sound(self, question, track, *more):
        # One of `sound` to the recording and a track in `media`.
        wait_for(f"the sound of {track}", lambda: question(self.heard, self.media / track, *more))

    def await_silence(self):
        wait_for("silence", lambda: sound.is_silent(self.heard))


def told(seen):
    # A look that failed, and what it saw.
    raise ValueError(f"seen: {seen}")
