"""Pictures that lie about themselves, by group: each group comes with a skin that puts all of them on its
buttons, each in all places that a button has for a picture."""
import struct

from bad_skins import make_common, png, write_skin

MOST = 2**31 - 1


def bmp(width=4, height=4, bits=24, offset=54, pixels=bytes(64), compression=0, colours=0, header=40):
    return (b"BM" + struct.pack("<IHHI", 54 + len(pixels), 0, 0, offset & 0xFFFFFFFF) +
            struct.pack("<IIIHHIIIIII", header, width & 0xFFFFFFFF, height & 0xFFFFFFFF, 1, bits, compression, 0, 0, 0, colours, 0) + pixels)


def gif(width=2, height=1, left=0, data=b"\2\2\x44\x0A\0", frames=1, end=b";"):
    frame = b"," + struct.pack("<HHHH", left, 0, 2, 1) + b"\0" + data
    return b"GIF89a" + struct.pack("<HH", width, height) + b"\x80\0\0" + b"\xFF\0\0\0\xFF\0" + frame * frames + end


def icon(count, size=64, offset=22, inside=b""):
    entry = struct.pack("<BBBBHHII", 16, 16, 0, 0, 1, 32, size, offset)
    return b"\0\0\1\0" + struct.pack("<H", count) + entry * min(count, 1) + inside


JPEG = b"\xFF\xD8\xFF\xE0\0\x10JFIF\0\1\1\0\0\1\0\1\0\0\xFF\xC0\0\x11\x08\xFF\xFF\xFF\xFF\3\1\x22\0\2\x11\1\3\x11\1"
RUNS = b"\xff\1" * 40 + b"\0\2\xff\xff" + b"\0\1"
FLAT = png(8, 8, (9, 9, 9))
GROUPS = {
    "nothing_pictures": [b"", b"B", b"\0", b"GIF89a", b"\x89PNG\r\n\x1a\n", b"[Settings]\r\n", b"\xd7\xcd\xc6\x9a" + bytes(90), b"<svg/>"],
    "bmp_sizes": [bmp(height=-4), bmp(height=-2**31), bmp(width=MOST), bmp(width=MOST, height=MOST, bits=32), bmp(0, 0), bmp(width=-1),
                  bmp(width=30000, height=30000, bits=1)],
    "bmp_bodies": [bmp(bits=8, colours=257, offset=54 + 257 * 4, pixels=bytes(257 * 4 + 64)), bmp(bits=257), bmp(bits=8, compression=1, colours=2, offset=62, pixels=bytes(8) + RUNS),
                   bmp(bits=4, compression=2, colours=2, offset=62, pixels=bytes(8) + RUNS), bmp(offset=MOST), bmp(offset=-1), bmp(pixels=bytes(9)),
                   b"BM" + struct.pack("<IHHI", 90, 0, 0, 26) + struct.pack("<IHHHH", 12, 4, 4, 1, 24) + bytes(64), bmp(header=MOST), bmp(bits=16, compression=3, pixels=bytes(12))],
    "gifs": [gif(left=60000), gif(65535, 65535), gif(data=b"\2\2\x12\x0A\0"), gif(data=b"\2" + b"\xff" * 256 * 40), gif(data=b"\x0f\2\0\0\0"), gif()[:-8], gif(end=b""), gif(0, 0), gif(frames=10000)],
    "pngs": [png(30000, 30000, (), rows=bytes(3751 * 30000), kind=(1, 0)), png(8, 8, (0, 0, 0), rows=b""), FLAT[:40], FLAT[:-20], png(MOST, MOST, (), rows=b"\0"), png(0, 0, (0, 0, 0)), JPEG, JPEG + b"\xFF\xDA\0\x0c\3" + bytes(99)],
    "icons": [icon(0), icon(1, offset=MOST), icon(1, size=2**32 - 1), icon(65535), icon(1, inside=FLAT), icon(1, inside=struct.pack("<IiiHHIIiiII", 40, MOST, MOST, 1, 32, 0, 0, 0, 0, 0, 0))],
}


def make(directory):
    make_common(directory)
    for number, (group, pictures) in enumerate(GROUPS.items(), 3):
        objects = []
        for index, content in enumerate(pictures):
            name = f"{group}_{index}.gif"
            (directory / name).write_bytes(content)
            objects.append({"type": 1 + index % 7, "filename": name, "filename2": name, "left": 5, "top": 5})
        # The last one stands on the playlist button, which has to lead on.
        playlist = {"type": 6, "filename": "button.png", "filename2": "pressed.png", "left": 85, "top": 5}
        volume = {"type": 11, "filename": f"{group}_0.gif", "filename2": f"{group}_1.gif", "left": 170, "top": 5}
        write_skin(directory, number, group, [*objects, volume, playlist])
