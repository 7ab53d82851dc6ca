"""Tags that lie, in front of a track that is whole (or behind it). The base is a track without a tag."""
import struct

WIDE = "wide".encode("utf-16")


def sync_safe(size):
    return bytes(size >> shift & 0x7F for shift in (21, 14, 7, 0))


def tag(frames, version=4, flags=0, size=None):
    return b"ID3" + bytes([version, 0, flags]) + sync_safe(len(frames) if size is None else size) + frames


def title(content):
    return b"TIT2" + sync_safe(len(content)) + b"\0\0" + content


def text(words):
    return title(b"\3" + words)


IN_FRONT = {
    "frame_beyond.mp3": tag(b"TIT2" + sync_safe((1 << 28) - 1) + b"\0\0\3short"),
    "top_bits.mp3": b"ID3\4\0\0\xff\xff\xff\xff",
    "unsynchronised.mp3": tag(b"TIT2" + sync_safe(9) + b"\0\2" + b"\3a\xff\0\xff\0\0\xff\0", flags=0x80),
    "extended.mp3": tag(sync_safe(6) + b"\1\0" + text(b"extended"), flags=0x40),
    "old_version.mp3": b"ID3\2\0\0" + sync_safe(12) + b"TT2\0\0\6\0short",
    "wide_odd.mp3": tag(title(b"\1" + WIDE[:-1])),
    "wide_without_mark.mp3": tag(title(b"\1w\0i")),
    "two_titles.mp3": tag(text(b"long " * 2000) + text(b"short")),
    "nul_inside.mp3": tag(text(b"a\0b\0\0c")),
    "no_letters.mp3": tag(text(b"\xc3\x28\xff\xfe\xed\xa0\x80")),
    "percent.mp3": tag(text(b"%s%n%1%x")),
    "backwards.mp3": tag(text("\u202e\u05d0\u05d1\u0007\u001b\u2028\ufeff".encode())),
    "megabyte.mp3": tag(text(b"M" * (1 << 20))),
}
BEHIND = {
    "ape.mp3": b"APETAGEX" + struct.pack("<IIII", 2000, 1 << 30, 1 << 31, 0xA0000000) + bytes(8),
}


def make(directory, base):
    data = base.read_bytes()
    for name, content in IN_FRONT.items():
        (directory / name).write_bytes(content + data)
    for name, content in BEHIND.items():
        (directory / name).write_bytes(data + content)
    (directory / "only_tag.mp3").write_bytes(tag(text(b"Nothing else")))
    (directory / "declared.mp3").write_bytes(tag(text(b"short"), size=(1 << 28) - 1).ljust(1024, b"\0"))
