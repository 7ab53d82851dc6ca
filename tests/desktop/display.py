# A hand at a display, and an eye: pointer, buttons and keys, and looks at windows and pixels, all
# in one process. A window is known by its number, and one that has gone between two looks is no
# failure.
from PIL import Image, ImageChops
from Xlib import X, XK, error
from Xlib.display import Display as Connection
from Xlib.ext import xtest
from Xlib.protocol import event as events

from session import wait_for
from skin import Rect

ICONIC = 3


def lasting(look):
    # A look at a window that has gone meanwhile finds nothing.
    def careful(*arguments):
        try:
            return look(*arguments)
        except error.XError:
            return None
    return careful


class Display:
    def __init__(self):
        self.connection = Connection()
        self.connection.set_error_handler(lambda *_: None)
        self.root = self.connection.screen().root
        self.connection.xfixes_query_version()
        # The answers to pings are sent to it.
        self.root.change_attributes(event_mask=X.StructureNotifyMask)
        self.pings = 0

    # The hand.

    def send(self, kind, detail=0, **place):
        xtest.fake_input(self.connection, kind, detail, **place)
        self.connection.sync()

    def point(self, x, y):
        self.send(X.MotionNotify, x=x, y=y)

    def press(self, button=1):
        self.send(X.ButtonPress, button)

    def release(self, button=1):
        self.send(X.ButtonRelease, button)

    def key_code(self, name):
        # The code, and whether it takes Shift.
        symbol = XK.string_to_keysym(name) or ord(name)
        code, level = min(self.connection.keysym_to_keycodes(symbol), key=lambda found: found[1])
        return code, level % 2 == 1

    def key_down(self, name):
        self.send(X.KeyPress, self.key_code(name)[0])

    def key_up(self, name):
        self.send(X.KeyRelease, self.key_code(name)[0])

    def key(self, *names):
        # Presses each and lets it go; `Alt_L+y` is y with Alt held.
        for name in names:
            *held, last = name.split("+") if len(name) > 1 else name
            code, shifted = self.key_code(last)
            codes = [self.key_code(one)[0] for one in held + ["Shift_L"] * shifted] + [code]
            for kind, some in ((X.KeyPress, codes), (X.KeyRelease, reversed(codes))):
                for one in some:
                    self.send(kind, one)

    # The eye.

    def window(self, number):
        return self.connection.create_resource_object("window", number)

    @lasting
    def property(self, window, name):
        atom = self.connection.get_atom(name)
        found = self.window(window).get_full_property(atom, X.AnyPropertyType)
        return found.value if found else None

    def caption(self, window):
        value = self.property(window, "_NET_WM_NAME")
        return bytes(value).decode(errors="replace") if value is not None else ""

    @lasting
    def kind(self, window):
        # `window`, `dialog`, `menu` or `tooltip`.
        kind = (self.property(window, "_NET_WM_WINDOW_TYPE") or [0])[0]
        for name in ("dialog", "tooltip"):
            if kind == self.connection.get_atom(f"_NET_WM_WINDOW_TYPE_{name.upper()}"):
                return name
        return "menu" if self.window(window).get_attributes().override_redirect else "window"

    @lasting
    def is_shown(self, window):
        return self.window(window).get_attributes().map_state == X.IsViewable

    def is_minimised(self, window):
        return (self.property(window, "WM_STATE") or [0])[0] == ICONIC

    def is_managed(self, window):
        return window in (self.property(self.root.id, "_NET_CLIENT_LIST") or ())

    def focus(self):
        return getattr(self.connection.get_input_focus().focus, "id", None)

    def windows(self):
        # Those of the program that are seen, the topmost last.
        managed = self.property(self.root.id, "_NET_CLIENT_LIST_STACKING") or []
        others = [window.id for window in self.root.query_tree().children]
        return [each for each in [*managed, *others]
                if b"velora" in (self.property(each, "WM_CLASS") or b"") and self.is_shown(each)]

    def find(self, kind, title=None):
        # The topmost window of the kind, with that title if one is told.
        for window in reversed(self.windows()):
            if kind == self.kind(window) and title in (None, self.caption(window)):
                return window
        return None

    @lasting
    def rect(self, window):
        size = self.window(window).get_geometry()
        place = self.root.translate_coords(self.window(window), 0, 0)
        return Rect(place.x, place.y, size.width, size.height)

    def paint_behind(self, colour):
        # As #RRGGBB.
        self.root.change_attributes(background_pixel=int(colour[1:], 16))
        self.root.clear_area()
        self.connection.sync()

    def picture(self, left=0, top=0, width=None, height=None):
        # A piece of the screen, or all of it.
        size = self.root.get_geometry()
        width, height = width or size.width, height or size.height
        image = self.root.get_image(left, top, width, height, X.ZPixmap, 0xFFFFFF)
        return Image.frombytes("RGB", (width, height), image.data, "raw", "BGRX")

    def cursor(self):
        # The number of the pointer's picture, which a window manager changes for a move. To ask who
        # holds pointer and keyboard, by taking them, would make that manager's older wish for them
        # void.
        return self.connection.xfixes_get_cursor_image(self.root).cursor_serial

    # What a window manager or a pager asks of a window.

    def ask(self, window, name, *data):
        event = events.ClientMessage(window=window, client_type=self.connection.get_atom(name),
                                     data=(32, (list(data) + [0] * 5)[:5]))
        self.window(window).send_event(event)
        self.connection.sync()

    def close(self, window):
        # As a click on its close box does.
        self.ask(window, "WM_PROTOCOLS", self.connection.get_atom("WM_DELETE_WINDOW"))

    def restore(self, window):
        self.window(window).map()
        self.connection.sync()

    def ping(self, window):
        # Returns once the window's program has come round: everything before it has been handled.
        # The first answer can come from the toolkit while a press still waits in its queue; the
        # second comes behind it.
        for _ in range(2):
            self.pings += 1
            ping = self.connection.get_atom("_NET_WM_PING")
            self.ask(window, "WM_PROTOCOLS", ping, self.pings, window)
            wait_for("an answer of the program", self.has_answer)

    def has_answer(self):
        while self.connection.pending_events():
            event = self.connection.next_event()
            if event.type == X.ClientMessage and list(event.data[1])[1] == self.pings:
                return True
        return False


def differ(one, other):
    # Whether two pictures of a size differ by more than what rounding does.
    by_channel = ImageChops.difference(one, other.convert("RGB")).getextrema()
    return max(most for _, most in by_channel) > 8
