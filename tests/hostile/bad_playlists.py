"""Playlists that are none, or strange. The track that some of them need is the base."""
import os
import random
import shutil

MARK = b"\xef\xbb\xbf"
NOTHING = {
    "empty": b"", "one_byte": b"x", "blanks": b" " * 500, "line_ends": b"\r\n\n\r\r\n\n" * 50, "only_mark": MARK + b"\r\n",
    "no_name": b"\\Music\\\r\nlost_a.mp3\r\n", "known_first": b"first.mp3\r\nlost_b.mp3\r\n",
}
SOMETHING = {
    "first": b"first.mp3\r\n", "mixed_ends": b"ends_a.mp3\r\nends_b.mp3\nends_c.mp3\n\r\r\nends_d.mp3\r\n",
    "no_end": b"cut_a.mp3\r\ncut_b.mp3xy",
    "two_encodings": MARK + "\u00fc_new.mp3\r\n".encode() + "\u00fc_old.mp3\r\n".encode("cp1252"),
    "nuls": b"zero\0\0\0.mp3\r\n", "drive": b"C:\\Music\\drive.mp3\r\n", "caseless": b"..\\MEDIA\\Folder\\.\\DEEP.MP3\r\n",
    "itself": b"itself.mp3\r\n", "long": b"y" * (1 << 18) + b".mp3\r\n",
    "extended": b"#EXTM3U\r\nbehind_sign.mp3\r\n#EXTINF:1,x\r\n",
}


def binary():
    chance = random.Random(3)
    return bytes(chance.choice([byte for byte in range(256) if byte not in b"\0\n\\"]) for _ in range(400)) + b"_binary.mp3\r\n"


def make(directory, base):
    for name, content in {**NOTHING, **SOMETHING, "binary": binary()}.items():
        (directory / f"{name}.m3u").write_bytes(content)
    (directory / "directory.m3u").mkdir()
    os.mkfifo(directory / "pipe.m3u")
    for name, target in (("endless", "/dev/zero"), ("nowhere", "absent.m3u"), ("circle", "circle.m3u")):
        (directory / f"{name}.m3u").symlink_to(target)
    (directory / "itself.mp3").symlink_to("itself.m3u")
    (directory / "folder").mkdir()
    shutil.copy(base, directory / "folder" / "deep.mp3")
    (directory / "million.m3u").write_bytes(b"".join(b"%07d.mp3\r\n" % number for number in range(1, 1000001)))
    (directory / "one_line.m3u").write_bytes(b"z" * (32 << 20))
