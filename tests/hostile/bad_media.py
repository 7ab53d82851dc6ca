"""MPEG streams that are not what they should be. The base is a whole track without a tag; what other
encoders make of the same sound stands beside it."""
import os
import random
import struct

SECOND = 38  # Frames of the base in a second, about.
KILOBITS = [0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0]


def frames_of(data):
    """The frames of a stream of MPEG 1, layer III, 44.1 kHz."""
    frames, at = [], 0
    while at + 4 <= len(data):
        size = 144000 * KILOBITS[data[at + 2] >> 4] // 44100 + (data[at + 2] >> 1 & 1)
        frames.append(data[at:at + size])
        at += size
    return frames


def layer_one(count):
    """Frames of silence: 128 kbit/s, 44.1 kHz, mono, with no bit allocated."""
    return b"\xff\xff\x40\xc0".ljust(136, b"\0") * count


def broken_crc(frames):
    """Says of each frame that a checksum follows, which the frame doesn't have."""
    return b"".join(frame[:1] + bytes([frame[1] & 0xFE]) + frame[2:] for frame in frames)


def damaged(frames):
    chance = random.Random(1)
    middle = [bytes(chance.randrange(256) for _ in frame) for frame in frames[SECOND:SECOND * 2]]
    return b"".join(frames[:SECOND] + middle + frames[SECOND * 2:])


def first_frame_with(frames, name, count):
    """A first frame that tells of so many frames and as many bytes."""
    fact = struct.pack(">HHHII", 1, 0, 0, count, count) if name == b"VBRI" else struct.pack(">III", 3, count, count)
    return (frames[0][:4] + bytes(32) + name + fact).ljust(len(frames[0]), b"\0")


def mixed(*pieces):
    """Several versions, layers, rates and numbers of channels in turn."""
    return b"".join([*pieces, layer_one(60), *pieces])


def sounds(base):
    data = base.read_bytes()
    frames = frames_of(data)
    beside = {name: (base.parent / name).read_bytes() for name in
              ("layer_two.mp2", "low_mono.mp3", "varying.mp3", "free_format.mp3")}
    low, two, varying = beside["low_mono.mp3"], beside["layer_two.mp2"], beside["varying.mp3"]
    chance = random.Random(7)
    return {
        "empty.mp3": b"", "text.mp3": b"[Settings]\r\nCount=1\r\n" * 400,
        "zeros.mp3": bytes(1 << 20),
        "random.mp3": bytes(chance.getrandbits(8) for _ in range(200000)),
        "first_frame_cut.mp3": frames[0][:100],
        "only_header.mp3": first_frame_with(frames, b"Xing", 1000),
        "sound.mp3": b"RIFF\xff\xff\xff\xffWAVEfmt " + bytes(4000), "film.mp3": b"\0\0\1\xba" + bytes(4000),
        "well.mp3": data, "last_frame_cut.mp3": data[:-200], "junk_in_front.mp3": b"junk" * 750 + data,
        "no_crc.mp3": broken_crc(frames), "damaged.mp3": damaged(frames),
        "mixed.mp3": mixed(data[:50000], low, two, varying), "mixed_mono_first.mp3": mixed(low, varying, two),
        "length_endless.mp3": first_frame_with(frames, b"Xing", 0xFFFFFFFF) + data,
        "vbri_endless.mp3": first_frame_with(frames, b"VBRI", 0xFFFFFFFF) + data,
        "varying_without_header.mp3": b"".join(frames_of(varying)[1:]),
        "layer_one.mp1": layer_one(2000), "layer_two.mp3": two, "low_mono.mp3": low,
        "free.mp3": beside["free_format.mp3"],
    }


def make(directory, base):
    for name, content in sounds(base).items():
        (directory / name).write_bytes(content)
    (directory / "directory.mp3").mkdir()
    os.mkfifo(directory / "pipe.mp3")
    for name, target in (("endless", "/dev/zero"), ("nowhere", "absent.mp3"), ("circle", "circle.mp3")):
        (directory / f"{name}.mp3").symlink_to(target)
