"""Skins with numbers and names that nobody means. Each has a background of a colour of its own, which stands
beside it in NAME.colour, and names the next one by the key Playlist, which the script fills in."""
import os
import struct
import zlib

WIDTH, HEIGHT, MOST = 200, 60, 2**31 - 1
WHOLE = {"x1": -100, "y1": -100, "x2": 1000, "y2": 1000}
EYE = {"filename": "eye.png", "filename2": "eye.png", "left": 100, "top": 30}
BUTTONS = [{"type": role, "filename": "button.png", "filename2": "pressed.png", "left": left, "top": 5}
           for role, left in ((1, 5), (2, 5), (3, 25), (4, 45), (5, 65), (6, 85), (7, 105))]
TITLE, STATUS, SCOPE = ({"type": role, "left": 130, "top": top, "width": 60, "height": 12}
                        for role, top in ((9, 5), (12, 20), (8, 35)))
LIGHTS = {"type": 13, "filename": "lights.ini"}
START = [*BUTTONS, TITLE, STATUS, SCOPE, LIGHTS]


def png(width, height, colour, rows=None, kind=(8, 2)):
    def piece(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    pixels = zlib.compress((b"\0" + bytes(colour) * width) * height if rows is None else rows)
    return (b"\x89PNG\r\n\x1a\n" + piece(b"IHDR", struct.pack(">IIBBBBB", width, height, *kind, 0, 0, 0)) +
            piece(b"IDAT", pixels) + piece(b"IEND", b""))


def section(name, keys):
    return f"[{name}]\r\n" + "".join(f"{key}={value}\r\n" for key, value in keys.items())


def write_skin(directory, number, name, objects=(), regions=(WHOLE,), **settings):
    colour = (20 + number * 53 % 230, 40 + number * 97 % 210, 200 - number * 31 % 190)
    (directory / f"{name}.png").write_bytes(png(WIDTH, HEIGHT, colour))
    (directory / f"{name}.colour").write_text("#%02X%02X%02X\n" % colour)
    keys = {"Width": (WIDTH + 6) * 15, "Height": (HEIGHT + 25) * 15, "Graphic": f"{name}.png", "Playlist": "none",
            "ShapeCount": len(regions), "ObjectCount": len(objects), **settings}
    text = section("Settings", keys)
    for prefix, rows in (("rgn", regions), ("object", objects)):
        for index, row in enumerate(rows, 1):
            text += section(f"{prefix}{index}", {"enabled": "True", **row})
    (directory / f"{name}.vs4").write_bytes(text.encode())


def combined(*ways):
    """Elements that combine others: destination, first source, second source, mode."""
    return [{**WHOLE, "destrgn": to, "srcrgn1": one, "srcrgn2": other, "combinemode": mode} for to, one, other, mode in ways]


REGION_SKINS = {
    "no_region": dict(regions=()),
    "twenty_one_regions": dict(regions=[WHOLE] * 20 + combined((1, 1, 1, 4))),
    "count_most": dict(ShapeCount=32767),
    "count_below_zero": dict(ShapeCount=-1),
    "inside_out": dict(regions=[{"x1": 1000, "y1": 1000, "x2": -100, "y2": -100}]),
    "widest": dict(regions=[{"x1": -2**31, "y1": -2**31, "x2": MOST - 30, "y2": MOST - 30}]),
    "overflow": dict(regions=[{"x1": -2**31, "y1": 0, "x2": MOST, "y2": MOST}]),
    "outside": dict(regions=[{"x1": MOST - 99, "y1": 0, "x2": MOST - 30, "y2": 100}]),
    "corners": dict(regions=[{**WHOLE, "type": 3, "x3": MOST, "y3": -2**31}, {**WHOLE, "type": 3, "x3": -1, "y3": 0}]),
    "unknown_kinds": dict(regions=[{**WHOLE, "type": kind} for kind in (0, 4, -1, MOST)]),
    "odd_combinations": dict(regions=[WHOLE, *combined(
        (1, 1, 2, 6), (1, 1, 2, -1), (1, 1, 2, MOST), (1, 21, 2, 1), (1, 32767, -1, 1), (-1, 1, 2, 2), (19, 1, 2, 2),
        (1, 1, 19, 4), (1, 2, 1, 1), (1, 1, 1, 2), (1, 1, 1, 5))]),
    "nothing_left": dict(regions=[WHOLE, *combined((1, 1, 1, 3))]),
    "no_size": dict(Width=0, Height=-1),
    "size_most": dict(Width=MOST, Height=2**31),
}
OBJECT_SKINS = {
    "twenty_five_objects": dict(objects=[EYE] * 25, ObjectCount=25),
    "objects_most": dict(ObjectCount=32767),
    "objects_below_zero": dict(objects=[EYE], ObjectCount=-1),
    "all_of_one_type": dict(objects=[BUTTONS[0]] * 24),
    "unknown_types": dict(objects=[{**EYE, "type": kind} for kind in (-1, 10, 14, 32768, MOST, -2**31, 2**31)]),
    "far_outside": dict(objects=[{**EYE, "type": kind, "left": place, "top": place, "width": 9, "height": 9}
                                 for kind in (1, 3, 8, 9, 12) for place in (MOST, -2**31)]),
    "largest": dict(objects=[{"type": kind, "left": -2**31, "top": -2**31, "width": MOST, "height": MOST} for kind in (8, 9, 12)]),
    "widest_here": dict(objects=[{"type": kind, "left": 0, "top": 0, "width": MOST, "height": MOST} for kind in (8, 9, 12)]),
    "less_than_nothing": dict(objects=[{"type": kind, "left": 5, "top": 5, "width": -1, "height": -2**31} for kind in (8, 9, 12)]),
    "odd_names": dict(objects=[{**EYE, "type": 6, "filename": name, "filename2": name} for name in (
        r"..\..\..\..\..\etc\passwd", "/etc/passwd", "x" * 5000, "", ".", "..", "folder", r"folder\\", "pipe.png", "endless.png",
        "link_out.png", "http://localhost/x.png", "%s%n", "*", "?.png", "eye.png\t", "\u202egnp.eye", "~", "$HOME", "eye.png|", "-")]),
    "letters_for_numbers": dict(objects=[{**EYE, "type": 1, "left": "left", "top": "1e400", "width": "9" * 40}], Width="wide"),
    "itself": dict(),
}
LARGE_LIGHTS = {"left": 1, "top": 1, "width": MOST, "height": MOST, "shape": 4}
LIGHT_FILES = {
    "lights.ini": "".join(section(str(number), {"left": 5 + number * 7, "top": 40, "width": 5, "height": 5}) for number in range(1, 14)),
    "large_lights.ini": "".join(section(str(number), {**LARGE_LIGHTS, "shape": number % 6, "left": left})
                                for number, left in enumerate((0, -1, MOST, -2**31, 100, 1, 2, 3, 4, 5, 6, 7, 8), 1)),
    "cut_lights.ini": section("1", {"left": 9, "top": 40, "width": 5, "height": 5}) + section("2", {"left": 9, "top": 50, "width": -5, "height": 5}) + "[3]\r\nleft=3\r\nto",
}


def make_start(directory, number=0, name="start", lights="lights.ini"):
    write_skin(directory, number, name, [*BUTTONS, TITLE, STATUS, SCOPE, {**LIGHTS, "filename": lights}])


def make_common(directory):
    for name, colour in (("button", (250, 250, 250)), ("pressed", (0, 0, 0)), ("eye", (255, 0, 255))):
        (directory / f"{name}.png").write_bytes(png(18, 18, colour))
    for name, text in LIGHT_FILES.items():
        (directory / name).write_text(text, newline="")
    make_start(directory)


def make(directory):
    make_common(directory)
    make_start(directory, 1, "start_cut_lights", "cut_lights.ini")
    make_start(directory, 2, "start_large_lights", "large_lights.ini")
    (directory / "folder").mkdir()
    os.mkfifo(directory / "pipe.png")
    (directory / "endless.png").symlink_to("/dev/zero")
    # A file of our own outside the directory: a link to one of the machine's would be a danger to it.
    outside = directory.parent / "outside_the_skins"
    outside.write_text("no picture")
    (directory / "link_out.png").symlink_to(outside)
    for number, (name, what) in enumerate({**REGION_SKINS, **OBJECT_SKINS}.items(), 3):
        write_skin(directory, number, name, **what)
