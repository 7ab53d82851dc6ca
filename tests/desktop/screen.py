"""What can be seen of the display, and who holds it, without a program for each look; and the message by which
windows are asked for something."""
import ctypes

ALL_PLANES, Z_PIXMAP, ASYNCHRONOUS, NOW, TAKEN = 0xFFFFFF, 2, 1, 0, 1
CLIENT_MESSAGE = 33


class ClientMessage(ctypes.Structure):
    """As long as any event."""
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("room", ctypes.c_long * 24)]


class Screen:
    """Stays connected to the display that it met when it was made."""

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        for name in ("XOpenDisplay", "XGetImage"):
            getattr(self.x11, name).restype = ctypes.c_void_p
        for name in ("XDefaultRootWindow", "XGetPixel"):
            getattr(self.x11, name).restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        self.root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))

    def place(self, window, x, y):
        left, top, child = ctypes.c_int(), ctypes.c_int(), ctypes.c_ulong()
        self.x11.XTranslateCoordinates(self.display, ctypes.c_ulong(window), self.root, x, y, ctypes.byref(left),
                                       ctypes.byref(top), ctypes.byref(child))
        return left, top

    def colour(self, window, x, y):
        image = ctypes.c_void_p(self.x11.XGetImage(self.display, self.root, *self.place(window, x, y), 1, 1,
                                                   ctypes.c_ulong(ALL_PLANES), Z_PIXMAP))
        pixel = self.x11.XGetPixel(image, 0, 0)
        self.x11.XDestroyImage(image)
        return f"#{pixel & 0xFFFFFF:06X}"

    def keyboard_is_taken(self):
        """Whether another program holds all keys, as a window manager does in a move. The server serves nobody
        else meanwhile, or the question would be in that program's way."""
        self.x11.XGrabServer(self.display)
        answer = self.x11.XGrabKeyboard(self.display, self.root, 0, ASYNCHRONOUS, ASYNCHRONOUS, ctypes.c_ulong(NOW))
        self.x11.XUngrabKeyboard(self.display, ctypes.c_ulong(NOW))
        self.x11.XUngrabServer(self.display)
        self.x11.XSync(self.display, 0)
        return answer == TAKEN
