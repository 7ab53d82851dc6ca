# Skins that lie, for a run of the real program: rows of a name, the content and what is seen. What
# numbers and names come to is proved by the unit tests; here is what reaches the toolkit, its
# pictures and the screen.
import struct

from PIL import Image

WIDTH, HEIGHT, MOST, LEAST = 200, 60, 2**31 - 1, -2**31
XOR = {"destrgn": 1, "srcrgn1": 1, "srcrgn2": 1, "combinemode": 3}
WHOLE = {"x1": -1000, "y1": -1000, "x2": 1000, "y2": 1000}
# The screen behind the window, and the spectrum.
BEHIND, BLACK = "#123456", "#000000"

# Few bytes that promise more than a machine has, each behind the suffix of another format.
PICTURES = {
    "gif.png": b"GIF89a\xff\xff\xff\xff\x80" + bytes(8) + b",\0\0\0\0\2\0\1\0\0\2\2D\n\0" * 10000,
    "bmp.gif": struct.pack("<2s6I2H6I", b"BM", 54, 0, 54, 40, 30000, 30000, 1, 1, 0, 0, 0, 0, 2, 0),
    "jpeg.gif": bytes.fromhex("FFD8 FFC0 0011 08 FFFF FFFF 03 012200 021101 031101 FFDA 000C 03"),
}


def boxes(left, top, width, height):
    # Title, status and spectrum of that place and size.
    place = {"left": left, "top": top, "width": width, "height": height}
    return [{"type": kind, **place} for kind in (8, 9, 12)]


# One leads to the next by its playlist button, which stays where it is. Each shows a ground of its
# own, if nothing else is told.
SKINS = {
    "lights of any size and place": {},
    "a shape wider than numbers go": dict(regions=[{"x1": LEAST, "y1": 0, "x2": MOST, "y2": MOST}]),
    "labels and spectrum of 2^31-1": dict(objects=boxes(0, 0, MOST, MOST), seen=BLACK),
    "the same of -1 by -2^31": dict(objects=boxes(5, 5, -1, LEAST)),
    "pictures that promise more than a machine has": dict(
        objects=[{"type": 3, "filename": name, "filename2": name} for name in PICTURES]),
    "a window of 0 by 2^31-1": dict(Width=0, Height=MOST),
    "an empty shape": dict(regions=[{**WHOLE, **XOR}], seen=BEHIND),
}


def ground(number):
    return 20 + number * 53 % 230, 40 + number * 97 % 210, 200 - number * 31 % 190


def section(name, keys):
    return f"[{name}]\r\n" + "".join(f"{key}={value}\r\n" for key, value in keys.items())


def sections(prefix, rows):
    return "".join(section(f"{prefix}{number}", {"Enabled": "True", **row}) for number, row in
                   enumerate(rows, 1))


def make_skin(directory, number, objects=(), regions=(WHOLE,), seen=None, **settings):
    button = dict.fromkeys(("filename", "filename2"), "button.bmp")
    objects = [*objects, {"type": 6, **button, "left": 85, "top": 5},
               {"type": 13, "filename": "lights.ini"}]
    keys = {"Width": (WIDTH + 6) * 15, "Height": (HEIGHT + 25) * 15, "ObjectCount": len(objects),
            "ShapeCount": len(regions), "Graphic": f"ground{number}.bmp",
            "Playlist": f"{number + 1}.vs4", **settings}
    (directory / f"{number}.vs4").write_text(
        section("Settings", keys) + sections("rgn", regions) + sections("object", objects))
    Image.new("RGB", (WIDTH, HEIGHT), ground(number)).save(directory / f"ground{number}.bmp")


def make_skins(directory):
    # The row number N is N.vs4.
    directory.mkdir()
    for name, content in PICTURES.items():
        (directory / name).write_bytes(content)
    Image.new("RGB", (18, 18), "white").save(directory / "button.bmp")
    # They are made once in a run, so they must leave the left of the ground free.
    lights = [{"left": left, "top": 1, "width": MOST, "height": MOST, "shape": number % 6}
              for number, left in enumerate((MOST, LEAST, *range(120, 131)))]
    (directory / "lights.ini").write_text(sections("", lights))
    for number, row in enumerate(SKINS.values()):
        make_skin(directory, number, **row)
