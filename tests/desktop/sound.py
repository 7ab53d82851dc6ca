# Makes tracks that are different at every place, and compares what was recorded with what a decoder gives, sample by
# sample. A recording and a reference (TRACK.raw beside TRACK.mp3) are raw, 16 bits, stereo, 44.1 kHz; a frame is seen
# as one number.
import subprocess

import numpy as np

RATE = 44100
NEEDLE, STRIDE = 32, 64
LAST, LONG_ENOUGH = RATE // 10, RATE // 2
WAV_HEADER_BYTES = 44


def write_noise(path, seconds, seed):
    samples = np.random.default_rng(seed).integers(-8000, 8000, size=seconds * RATE * 2).astype("<i2")
    subprocess.run(["lame", "--silent", "-f", "-r", "-s", "44.1", "-m", "s", "-", f"{path}.mp3"],
                   input=samples.tobytes(), check=True, stderr=subprocess.DEVNULL)
    with open(f"{path}.raw", "wb") as raw:
        subprocess.run(["mpg123", "-q", "-s", f"{path}.mp3"], stdout=raw, check=True)


def frames(path):
    with open(path, "rb") as file:
        data = file.read()
    return np.frombuffer(data[: len(data) // 4 * 4], dtype="<u4")


def loudness(some_frames):
    return float(np.sqrt(np.mean(some_frames.view("<i2").astype(np.float64) ** 2)))


def next_sound(recording, place):
    found = np.flatnonzero(recording[place:])
    return place + int(found[0]) if len(found) else len(recording)


def find(reference_bytes, needle):
    at = reference_bytes.find(needle)
    while at > 0 and at % 4 != 0:
        at = reference_bytes.find(needle, at + 1)
    return at // 4 if at >= 0 else -1


def run_length(left, right):
    # How many frames are equal from the start on.
    count = min(len(left), len(right))
    other = np.flatnonzero(left[:count] != right[:count])
    return int(other[0]) if len(other) else count


def pieces(recording, reference):
    # The stretches of the recording that are stretches of the reference, of some length: place heard, place in the
    # reference, length.
    found, reference_bytes, place = [], reference.tobytes(), next_sound(recording, 0)
    behind = 0
    while place + NEEDLE <= len(recording):
        at = find(reference_bytes, recording[place: place + NEEDLE].tobytes())
        if at < 0:
            place = next_sound(recording, place + STRIDE)
            continue
        back = run_length(recording[behind:place][::-1], reference[:at][::-1])
        length = back + run_length(recording[place:], reference[at:])
        found.append((place - back, at - back, length))
        behind = place - back + length
        place = next_sound(recording, behind)
    return found


def unbroken(found, recording, reference):
    # The reference from its beginning on, nothing lost, nothing twice, whatever a busy machine puts between. Silence
    # at its own beginning is no sound in the recording.
    joined = all(one[1] + one[2] == other[1] for one, other in zip(found, found[1:]))
    begins = found and found[0][1] == 0 and found[0][0] <= next_sound(recording, 0)
    return joined and begins and found[-1][1] + found[-1][2] >= min(LONG_ENOUGH, len(reference))


def whole(found, recording, reference):
    # All of the reference, once.
    return unbroken(found, recording, reference) and found[-1][1] + found[-1][2] == len(reference)


def plays(found, recording, reference):
    # The reference is heard at the recording's end.
    return found and found[-1][0] + found[-1][2] == len(recording)


def jumps(found, recording, reference, seconds):
    # It goes on a multiple of so many seconds further on (or back), but not before the beginning.
    seams = [(one[1] + one[2], other[1]) for one, other in zip(found, found[1:]) if one[1] + one[2] != other[1]]
    [(left, goes_on)] = seams
    way, step = goes_on - left, seconds * RATE
    # What is heard at the release lies a little before what the machine has been given.
    far = round(way / step) >= 1 and abs(way - round(way / step) * step) < RATE / 4
    return far or (step < 0 and way < 0 and goes_on == 0)


def hear(what, path, track, *more):
    # `what` is one of the questions above; the file of the recording, and of the track without its ending.
    recording, reference = frames(path), frames(f"{track}.raw")
    found = pieces(recording, reference)
    assert what(found, recording, reference, *more), f"{what.__name__}: {found} of {len(reference)} in {len(recording)}"
    return True


def is_heard(path):
    # There is sound at the end.
    return bool(np.any(frames(path)[-LAST:]))


def percent_heard(path, track):
    # How loud the end is, compared with the track; noise is as loud all the way.
    return 100 * loudness(frames(path)[-LAST:]) / loudness(frames(f"{track}.raw")[RATE: 2 * RATE])


def click_samples(path, target):
    # Of a short sound with one channel, as it is heard on two.
    np.repeat(np.frombuffer(path.read_bytes()[WAV_HEADER_BYTES:], "<i2"), 2).tofile(target)


def write_silence(path, target):
    # As long as that sound.
    data = path.read_bytes()
    target.write_bytes(data[:WAV_HEADER_BYTES] + bytes(len(data) - WAV_HEADER_BYTES))
