# Makes tracks that are different at every place, and compares what was recorded with what a decoder
# gives. A recording and a reference (TRACK.raw beside TRACK.mp3) are raw, 16 bits, stereo, 44.1
# kHz; a frame is seen as one number. A busy machine puts silence between, anywhere; in the noise
# itself there is none.
import subprocess

import numpy as np

RATE = 44100
NEEDLE, LAST, LONG_ENOUGH = 32, RATE // 10, RATE // 2


def write_noise(path, seconds, seed):
    samples = np.random.default_rng(seed).integers(-8000, 8000, seconds * RATE * 2).astype("<i2")
    subprocess.run(["lame", "--silent", "-f", "-r", "-s", "44.1", "-m", "s", "-", f"{path}.mp3"],
                   input=samples.tobytes(), check=True, stderr=subprocess.DEVNULL)
    with open(f"{path}.raw", "wb") as raw:
        subprocess.run(["mpg123", "-q", "-s", f"{path}.mp3"], stdout=raw, check=True)


def frames(path):
    data = path.read_bytes()
    return np.frombuffer(data[: len(data) // 4 * 4], dtype="<u4")


def reference(track):
    return frames(track.with_suffix(".raw"))


def without_silence(some_frames):
    return some_frames[some_frames != 0]


# Questions to a recording and a track, without its ending. What isn't so yet is told by an
# exception.

def unbroken(recording, track):
    # The track from its first sample on, nothing lost, nothing twice.
    heard, file = without_silence(frames(recording)), without_silence(reference(track))
    assert len(heard) >= min(LONG_ENOUGH, len(file)), f"{len(heard)} frames are heard"
    other = np.flatnonzero(heard != file[: len(heard)])
    assert not len(other), f"frame {other[0]} of {len(heard)} is another one"
    return True


def whole(recording, track):
    # All of it, once.
    heard, file = without_silence(frames(recording)), without_silence(reference(track))
    assert np.array_equal(heard, file), f"{len(heard)} of {len(file)} frames are heard"
    return True


def skipped(recording, track):
    # So many frames of the track weren't heard by now, where the recording ends in its midst.
    heard = frames(recording)
    at = reference(track).tobytes().find(heard[-NEEDLE:].tobytes())
    assert heard[-NEEDLE:].all() and at >= 0, "the end is no part of the track"
    return at // 4 - len(without_silence(heard))


def plays(recording, track):
    return skipped(recording, track) is not None


def skips(recording, track, seconds):
    # It went on a multiple of so many seconds further on. What is heard at the release lies a
    # little before what the machine has been given.
    frames_more, step = skipped(recording, track), seconds * RATE
    steps = round(frames_more / step)
    assert steps >= 1 and abs(frames_more - steps * step) < RATE / 4, f"{frames_more} frames"
    return True


def is_silent(recording):
    # At the end.
    return not frames(recording)[-LAST:].any()
