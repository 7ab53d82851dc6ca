# Files that lie, for runs of the real program: rows of a name, the content and, for skins, what is seen.
# What numbers and names come to is proved by the unit tests; here is what reaches toolkit, threads and disk.
import os
import random
import struct
import zlib

WIDTH, HEIGHT, MOST, LEAST = 200, 60, 2**31 - 1, -2**31
WHOLE = {"x1": -1000, "y1": -1000, "x2": 1000, "y2": 1000}
# The screen behind the window, and the spectrum.
BEHIND, BLACK = "#123456", "#000000"


def png(width, height, rows, kind=(8, 2)):
    def piece(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    head = struct.pack(">IIBBBBB", width, height, *kind, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + piece(b"IHDR", head) + piece(b"IDAT", zlib.compress(rows)) +
            piece(b"IEND", b""))


def flat(width, height, colour):
    return png(width, height, (b"\0" + bytes(colour) * width) * height)


# Few bytes that promise more than a machine has, each behind the suffix of another format.
PICTURES = {
    "png.gif": png(30000, 30000, bytes(3751 * 30000), (1, 0)),
    "gif.png": b"GIF89a" + b"\xff" * 4 + b"\x80" + bytes(8) + b",\0\0\0\0\2\0\1\0\0\2\2\x44\x0A\0" * 10000,
    "bmp.gif": b"BM" + struct.pack("<IIIIIIHHIIIIII", 54, 0, 54, 40, 30000, 30000, 1, 1, 0, 0, 0, 0, 2, 0),
    "jpeg.gif": b"\xFF\xD8\xFF\xC0\0\x11\x08" + b"\xFF" * 4 + b"\3\1\x22\0\2\x11\1\3\x11\1\xFF\xDA\0\x0c\3",
}


def boxes(left, top, width, height):
    # Title, status and spectrum of that place and size.
    return [{"type": kind, "left": left, "top": top, "width": width, "height": height} for kind in (8, 9, 12)]


def buttons(*names):
    return [{"type": 3, "filename": name, "filename2": name} for name in names]


# One leads to the next by its playlist button, which stays where it is. Each shows a ground of its own, if
# nothing else is told.
SKINS = {
    "lights of any size and place": {},
    "a shape wider than numbers go": dict(regions=[{"x1": LEAST, "y1": 0, "x2": MOST, "y2": MOST}]),
    "a shape of all numbers": dict(regions=[{"x1": LEAST, "x2": MOST - 99, "y1": LEAST, "y2": MOST - 99}]),
    "corners of 2^31-1 by -2^31": dict(regions=[{**WHOLE, "type": 3, "x3": MOST, "y3": LEAST}]),
    "labels and spectrum of 2^31-1, far outside": dict(objects=boxes(LEAST, LEAST, MOST, MOST)),
    "the same in the corner": dict(objects=boxes(0, 0, MOST, MOST), seen=BLACK),
    "the same of -1 by -2^31": dict(objects=boxes(5, 5, -1, LEAST)),
    "pictures that promise more than a machine has": dict(objects=buttons(*PICTURES)),
    "names of what is no file, of 5,000 characters, of a host": dict(objects=buttons(
        "pipe.png", "endless.png", "circle.png", "..", "x" * 5000, "http://localhost/x.png")),
    "a window of 0 by 2^31-1": dict(Width=0, Height=MOST),
    "an empty shape": dict(regions=[{**WHOLE, "destrgn": 1, "srcrgn1": 1, "srcrgn2": 1, "combinemode": 3}],
                           seen=BEHIND),
}


def ground(number):
    return 20 + number * 53 % 230, 40 + number * 97 % 210, 200 - number * 31 % 190


def section(name, keys):
    return f"[{name}]\r\n" + "".join(f"{key}={value}\r\n" for key, value in keys.items())


def sections(prefix, rows):
    return "".join(section(f"{prefix}{number}", {"Enabled": "True", **row}) for number, row in
                   enumerate(rows, 1))


def skin(number, objects=(), regions=(WHOLE,), seen=None, **settings):
    playlist = {"type": 6, "filename": "button.png", "filename2": "button.png", "left": 85, "top": 5}
    objects = [*objects, playlist, {"type": 13, "filename": "lights.ini"}]
    keys = {"Width": (WIDTH + 6) * 15, "Height": (HEIGHT + 25) * 15, "Graphic": f"ground{number}.png",
            "Playlist": f"{number + 1}.vs4", "ShapeCount": len(regions), "ObjectCount": len(objects)}
    text = section("Settings", {**keys, **settings}) + sections("rgn", regions) + sections("object", objects)
    return {f"{number}.vs4": text.encode(), f"ground{number}.png": flat(WIDTH, HEIGHT, ground(number))}


def make_skins(directory):
    # The row number N is N.vs4.
    # They are made once in a run, so they must leave the left of the ground free.
    lights = [{"left": left, "top": 1, "width": MOST, "height": MOST, "shape": number % 6} for number, left in
              enumerate((MOST, LEAST, *range(120, 131)))]
    make(directory, ".png", {**PICTURES, "button.png": flat(18, 18, (250, 250, 250)),
                             "lights.ini": sections("", lights).encode()})
    for number, row in enumerate(SKINS.values()):
        make(directory, "", skin(number, **row))


def make(directory, suffix, contents):
    # The files, and with a suffix what has a name and is no file to be read; returns all names.
    directory.mkdir(exist_ok=True)
    for name, content in contents.items():
        (directory / name).write_bytes(content)
    if not suffix:
        return list(contents)
    os.mkfifo(directory / f"pipe{suffix}")
    (directory / f"folder{suffix}").mkdir()
    for name, target in (("endless", "/dev/zero"), ("circle", f"circle{suffix}"), ("nowhere", "absent")):
        (directory / f"{name}{suffix}").symlink_to(target)
    return [*(name + suffix for name in ("pipe", "folder", "endless", "circle", "nowhere")), *contents]


def tag(declared=None, **frames):
    # Of version 4; DECLARED is how long it says that it is.
    def length(size):
        return bytes(size >> shift & 0x7F for shift in (21, 14, 7, 0))

    text = b"".join(name.encode() + length(len(content) + 1) + b"\0\0\3" + content
                    for name, content in frames.items())
    return b"ID3\4\0\0" + length(declared or len(text)) + text


def make_tracks(directory, song):
    # Bad ones, made of a good one; returns their names.
    chance = random.Random(7)
    odd = "%s%n \u202e\u05d0\u0007\u001b\u2028 ".encode() + b"\xff\xc3\x28" + b"M" * (1 << 20)
    return make(directory, ".mp3", {
        "no_bytes.mp3": b"", "zeros.mp3": bytes(1 << 20), "any_bytes.mp3": chance.randbytes(200000),
        "holes.mp3": b"".join(song[at:at + 3000] + chance.randbytes(200) for at in range(0, len(song), 4000)),
        "layers.mp3": song[:30000] + b"\xff\xff\x40\xc0".ljust(136, b"\0") * 60 + song[:30000],
        "declared.mp3": tag((1 << 28) - 1, TIT2=b"short"), "title.mp3": tag(TIT2=odd, TPE1=odd) + song})


def make_playlists(directory):
    # Bad ones; returns their names.
    return make(directory, ".m3u", {
        "binary.m3u": random.Random(3).randbytes(4000), "ends.m3u": b"\xef\xbb\xbf\r\n\n\r" * 50,
        "line.m3u": b"y" * (32 << 20),
        "million.m3u": b"".join(b"%07d.mp3\r\n" % number for number in range(1000000))})
