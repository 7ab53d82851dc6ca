"""A hand at a display, and an eye: pointer, buttons, keys, and a look at the windows. It goes through the
display's own libraries in one process, since thousands of events are too many for a tool's start each."""
import collections
import ctypes as c
import pathlib
import select
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "desktop"))
from screen import CLIENT_MESSAGE, ClientMessage  # noqa: E402

PATIENCE_SECONDS = 60
MOMENT_SECONDS = 2
PROPERTY_ANY = 0
STRUCTURE_NOTIFY, SUBSTRUCTURE_NOTIFY, SUBSTRUCTURE_REDIRECT = 1 << 17, 1 << 19, 1 << 20
VIEWABLE = 2
PLAIN_NAMES = {".": "period", "_": "underscore", "-": "minus"}

Rect = collections.namedtuple("Rect", "left top width height")


class Attributes(c.Structure):
    _fields_ = [("x", c.c_int), ("y", c.c_int), ("width", c.c_int), ("height", c.c_int),
                ("border", c.c_int), ("depth", c.c_int), ("visual", c.c_void_p), ("root", c.c_ulong),
                ("kind", c.c_int), ("bit_gravity", c.c_int), ("win_gravity", c.c_int), ("store", c.c_int),
                ("planes", c.c_ulong), ("pixel", c.c_ulong), ("save_under", c.c_int), ("colormap", c.c_ulong),
                ("installed", c.c_int), ("map_state", c.c_int), ("masks", c.c_long * 3),
                ("override", c.c_int), ("screen", c.c_void_p)]


def load(name, **functions):
    """The functions that are told, with their kinds of arguments; the result comes last."""
    library = c.CDLL(name)
    for function, kinds in functions.items():
        getattr(library, function).argtypes = kinds[:-1]
        getattr(library, function).restype = kinds[-1]
    return library


P, W, I, L = c.c_void_p, c.c_ulong, c.c_int, c.c_long
X11 = load("libX11.so.6", XOpenDisplay=[c.c_char_p, P], XDefaultRootWindow=[P, W], XSync=[P, I, I],
           XInternAtom=[P, c.c_char_p, I, W], XGetWindowAttributes=[P, W, P, I], XFree=[P, I],
           XQueryTree=[P, W, P, P, P, P, I], XSelectInput=[P, W, L, I], XNextEvent=[P, P, I],
           XGetWindowProperty=[P, W, W, L, L, I, W, P, P, P, P, P, I], XPending=[P, I],
           XSendEvent=[P, W, I, L, P, I], XStringToKeysym=[c.c_char_p, W], XKeysymToKeycode=[P, W, c.c_ubyte],
           XTranslateCoordinates=[P, W, W, I, I, P, P, P, I], XIconifyWindow=[P, W, I, I],
           XMapRaised=[P, W, I], XMoveWindow=[P, W, I, I, I], XGetInputFocus=[P, P, P, I],
           XConnectionNumber=[P, I], XSetErrorHandler=[P, P],
           XQueryPointer=[P, W, P, P, P, P, P, P, P, I])
XTEST = load("libXtst.so.6", XTestFakeMotionEvent=[P, I, I, I, W, I], XTestFakeButtonEvent=[P, c.c_uint, I, W, I],
             XTestFakeKeyEvent=[P, c.c_uint, I, W, I])
# A window that has gone between two looks is no failure.
IGNORE_ERRORS = c.CFUNCTYPE(I, P, P)(lambda display, event: 0)


class GaveUp(Exception):
    """Something that has to happen did not."""


def soon(condition):
    """Whether it becomes true within a moment; where it doesn't, the caller tries something else."""
    deadline = time.monotonic() + MOMENT_SECONDS
    while not condition():
        if time.monotonic() > deadline:
            return False
        time.sleep(0.002)
    return True


def wait_for(what, condition):
    deadline = time.monotonic() + PATIENCE_SECONDS
    while not condition():
        if time.monotonic() > deadline:
            raise GaveUp(f"gave up waiting for {what}")
        time.sleep(0.002)


class Hand:
    def __init__(self):
        self.display = X11.XOpenDisplay(None)
        self.root = X11.XDefaultRootWindow(self.display)
        self.held = []
        self.keys = []
        self.pings = 0
        self.trail = collections.deque(maxlen=40)
        X11.XSetErrorHandler(c.cast(IGNORE_ERRORS, P))
        X11.XSelectInput(self.display, self.root, STRUCTURE_NOTIFY)

    def atom(self, name):
        return X11.XInternAtom(self.display, name.encode(), 0)

    # The hand.

    def point(self, x, y):
        self.trail.append(f"to {int(x)},{int(y)}")
        XTEST.XTestFakeMotionEvent(self.display, -1, int(x), int(y), 0)
        self.sync()

    def place(self):
        words = [W(), W(), I(), I(), I(), I(), c.c_uint()]
        X11.XQueryPointer(self.display, self.root, *[c.byref(word) for word in words])
        return words[2].value, words[3].value

    def press(self, button):
        if button not in self.held:
            self.held.append(button)
            self.trail.append(f"press {button}")
            XTEST.XTestFakeButtonEvent(self.display, button, 1, 0)
            self.sync()

    def release(self, button):
        if button in self.held:
            self.held.remove(button)
            self.trail.append(f"release {button}")
            XTEST.XTestFakeButtonEvent(self.display, button, 0, 0)
            self.sync()

    def key_down(self, key):
        self.keys.append(key)
        self.send_key(key, 1)

    def key_up(self, key):
        self.keys.remove(key)
        self.send_key(key, 0)

    def key(self, key):
        self.send_key(key, 1)
        self.send_key(key, 0)

    def type(self, text):
        """Small letters, digits, and what stands in names beside them."""
        for letter in text:
            self.key(PLAIN_NAMES.get(letter, letter))

    def send_key(self, key, down):
        self.trail.append(f"{key} {'down' if down else 'up'}")
        code = X11.XKeysymToKeycode(self.display, X11.XStringToKeysym(key.encode()))
        XTEST.XTestFakeKeyEvent(self.display, code, down, 0)
        self.sync()

    def let_go(self):
        for button in list(self.held):
            self.release(button)
        for key in list(self.keys):
            self.key_up(key)

    def sync(self):
        X11.XSync(self.display, 0)

    # The eye.

    def numbers(self, window, name):
        """A property that is a list of numbers."""
        kind, size, count, rest, data = W(), I(), W(), W(), P()
        X11.XGetWindowProperty(self.display, window, self.atom(name), 0, 1024, 0, PROPERTY_ANY,
                               *[c.byref(one) for one in (kind, size, count, rest, data)])
        if not data.value:
            return []
        wide = {8: c.c_ubyte, 16: c.c_ushort, 32: c.c_ulong}.get(size.value, c.c_ubyte)
        found = list(c.cast(data, c.POINTER(wide))[: count.value])
        X11.XFree(data)
        return found

    def caption(self, window):
        return bytes(self.numbers(window, "_NET_WM_NAME")).decode("utf-8", "replace")

    def attributes(self, window):
        facts = Attributes()
        return facts if X11.XGetWindowAttributes(self.display, window, c.byref(facts)) else None

    def is_shown(self, window):
        facts = self.attributes(window)
        return facts is not None and facts.map_state == VIEWABLE

    def rect(self, window):
        facts, x, y, child = self.attributes(window), I(), I(), W()
        if facts is None:
            return None
        X11.XTranslateCoordinates(self.display, window, self.root, 0, 0, c.byref(x), c.byref(y), c.byref(child))
        return Rect(x.value, y.value, facts.width, facts.height)

    def top_windows(self):
        root, parent, children, count = W(), W(), P(), c.c_uint()
        X11.XQueryTree(self.display, self.root, *[c.byref(one) for one in (root, parent, children, count)])
        if not children.value:
            return []
        found = list(c.cast(children, c.POINTER(W))[: count.value])
        X11.XFree(children)
        return found

    def managed_windows(self):
        return self.numbers(self.root, "_NET_CLIENT_LIST")

    def focus(self):
        window, kind = W(), I()
        X11.XGetInputFocus(self.display, c.byref(window), c.byref(kind))
        return window.value

    # What a window manager or a pager asks of a window.

    def message(self, target, window, name, *data, mask=0):
        event = ClientMessage(type=CLIENT_MESSAGE, window=window, format=32, message_type=self.atom(name))
        event.data[: len(data)] = data
        X11.XSendEvent(self.display, target, 0, mask, c.byref(event))
        self.sync()

    def activate(self, window):
        self.message(self.root, window, "_NET_ACTIVE_WINDOW", 2, 0, 0,
                     mask=SUBSTRUCTURE_NOTIFY | SUBSTRUCTURE_REDIRECT)

    def minimise(self, window):
        self.trail.append("minimise")
        X11.XIconifyWindow(self.display, window, 0)
        self.sync()

    def restore(self, window):
        self.trail.append("restore")
        X11.XMapRaised(self.display, window)
        self.sync()

    def move(self, window, x, y):
        X11.XMoveWindow(self.display, window, int(x), int(y))
        self.sync()

    def ping(self, window):
        """Returns once the window's program has come round: everything before it has been handled. The first
        answer can come from the toolkit while a press still waits in its queue; the second comes behind it."""
        for _ in range(2):
            self.pings += 1
            self.message(window, window, "WM_PROTOCOLS", self.atom("_NET_WM_PING"), self.pings, window)
            wait_for("an answer of the program", lambda: self.has_answer(self.pings))

    def has_answer(self, number):
        event = ClientMessage()
        while X11.XPending(self.display):
            X11.XNextEvent(self.display, c.byref(event))
            if event.type == CLIENT_MESSAGE and event.window == self.root and event.data[1] == number:
                return True
        select.select([X11.XConnectionNumber(self.display)], [], [], 0.05)
        return False
