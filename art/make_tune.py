"""Make the demo tune, so that a fresh copy has something of its own to play.

Needs `./setup art`.
"""
import os
import subprocess
import sys
import tempfile
import wave

import numpy as np

sys.dont_write_bytecode = True
import score  # noqa: E402  (after the switch, to leave no cache behind)

RATE = 44100
BEAT = 60.0 / score.TEMPO
BAR = BEAT * score.BEATS
START = 0.08                     # silence before the first note
LENGTH = START + BAR * len(score.BARS) + 1.9
SWING = 0.035                    # beats by which the off-beats lag
ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
DEMO = os.path.join(ROOT, "demo")


class Track:
    """A stereo stem into which notes are mixed."""

    def __init__(self):
        self.data = np.zeros((2, int(LENGTH * RATE)))

    def add(self, time, sound, gain=1.0, pan=0.0):
        first = int(round(time * RATE))
        sound = sound[:self.data.shape[1] - first]
        angle = (pan + 1.0) * np.pi / 4.0
        span = slice(first, first + len(sound))
        self.data[0, span] += sound * gain * np.cos(angle)
        self.data[1, span] += sound * gain * np.sin(angle)


def when(bar, beat):
    """Seconds at which a beat of a bar sounds, off-beats a little late."""
    late = SWING if (beat * 2) % 2 == 1 else 0.0
    return START + bar * BAR + (beat + late) * BEAT


def hertz(pitch):
    return 440.0 * 2.0 ** ((pitch - 69) / 12.0)


def clock(seconds):
    return np.arange(int(seconds * RATE)) / RATE


def shape(t, attack, hold, release):
    """Smooth rise, level, smooth fall; zero at both ends."""
    rise = np.clip(t / attack, 0, 1)
    fall = np.clip((hold + release - t) / release, 0, 1)
    return np.sin(rise * np.pi / 2) ** 2 * np.sin(fall * np.pi / 2) ** 2


def band(sound, low, high):
    """Gentle band limits, done on the whole sound at once."""
    size = 1 << int(np.ceil(np.log2(sound.shape[-1] * 1.1)))
    f = np.fft.rfftfreq(size, 1.0 / RATE)
    gain = np.ones_like(f)
    if low:
        gain *= (f / low) ** 2 / (1 + (f / low) ** 2)
    if high:
        gain /= 1 + (f / high) ** 2
    spectrum = np.fft.rfft(sound, size) * gain
    return np.fft.irfft(spectrum, size)[..., :sound.shape[-1]]


# Instruments

def piano(pitch, hold, force):
    """Electric piano: a struck tine, brighter the harder it is hit."""
    f = hertz(pitch)
    t = clock(hold + 0.35)
    fade = np.exp(-t * (0.75 + f / 900.0))
    bark = 1.25 * force * np.exp(-t * 3.2)
    tine = 0.22 * force * np.exp(-t * 13.0)
    ring = np.sin(2 * np.pi * f * 7.0 * t) * tine
    body = np.sin(2 * np.pi * f * t + bark * np.sin(2 * np.pi * f * t + 0.4))
    warm = 0.35 * np.sin(2 * np.pi * f * 1.0012 * t)
    return (body + warm + ring) * fade * force * shape(t, 0.004, hold, 0.35)


def lead(pitch, hold):
    """Round singing voice with a vibrato that arrives late."""
    f = hertz(pitch)
    t = clock(hold + 0.16)
    depth = 0.0045 * np.clip((t - 0.25) / 0.35, 0, 1)
    bend = 1 + depth * np.sin(2 * np.pi * 5.1 * t)
    phase = 2 * np.pi * np.cumsum(f * bend) / RATE
    glow = 0.55 + 0.45 * np.exp(-t * 4.0)
    voice = np.sin(phase)
    for n, level in ((2, 0.30), (3, 0.20), (4, 0.09), (5, 0.07),
                     (6, 0.03), (7, 0.03)):
        voice += level * glow * np.sin(n * phase)
    return voice * (0.8 + 0.2 * np.exp(-t * 3)) * shape(t, 0.018, hold, 0.16)


def bass(pitch, hold):
    """Soft plucked bass with enough overtones for small speakers."""
    f = hertz(pitch)
    t = clock(hold + 0.08)
    sound = np.sin(2 * np.pi * f * t)
    for n, level, speed in ((2, 0.55, 2.5), (3, 0.30, 4.5), (4, 0.14, 7.0)):
        sound += level * np.exp(-t * speed) * np.sin(2 * np.pi * n * f * t)
    return sound * np.exp(-t * 0.9) * shape(t, 0.006, hold, 0.08)


def pad(pitch, hold, rng):
    """Slow cushion of slightly spread voices."""
    f = hertz(pitch)
    t = clock(hold + 0.9)
    sound = np.zeros_like(t)
    for cents in (-6.0, 0.0, 6.5):
        g = f * 2.0 ** (cents / 1200.0)
        for n in range(1, 7):
            turn = rng.uniform(0, 2 * np.pi)
            sound += np.sin(2 * np.pi * n * g * t + turn) / n ** 1.8
    return sound / 3.0 * shape(t, 0.5, hold, 0.9)


def bell(pitch):
    f = hertz(pitch)
    t = clock(1.6)
    index = 0.9 * np.exp(-t * 6.0)
    sound = np.sin(2 * np.pi * f * t + index * np.sin(2 * np.pi * 3.0 * f * t))
    return sound * np.exp(-t * 3.2) * shape(t, 0.003, 1.4, 0.2)


def kick():
    t = clock(0.32)
    phase = 2 * np.pi * (48 * t + (58 / 28.0) * (1 - np.exp(-t * 28)))
    return np.sin(phase) * np.exp(-t * 11) * shape(t, 0.003, 0.26, 0.06)


def brush(rng):
    """Snare played with brushes: air first, a hint of drum below."""
    t = clock(0.26)
    air = band(rng.standard_normal(len(t)), 1100, 6500)
    skin = 0.5 * np.sin(2 * np.pi * 185 * t) * np.exp(-t * 26)
    sound = air * np.exp(-t * 17) + skin
    return sound * shape(t, 0.005, 0.2, 0.06)


def shaker(rng, length):
    t = clock(length)
    air = band(rng.standard_normal(len(t)), 5200, 12000)
    return air * np.exp(-t * 38) * shape(t, 0.009, length - 0.03, 0.02)


def rim():
    t = clock(0.07)
    sound = np.sin(2 * np.pi * 820 * t) + 0.6 * np.sin(2 * np.pi * 1270 * t)
    return sound * np.exp(-t * 75) * shape(t, 0.0012, 0.05, 0.015)


# Parts

def spans():
    """Every chord of the piece as (bar, beat, beats long, name)."""
    for number, bar in enumerate(score.BARS):
        ends = [beat for _, beat in bar[1:]] + [score.BEATS]
        for (name, beat), end in zip(bar, ends):
            yield number, beat, end - beat, name


def strum(track, bar, beat, length, notes, force, rng):
    for place, pitch in enumerate(notes):
        time = when(bar, beat) + place * 0.011 + rng.uniform(0, 0.004)
        hit = force * rng.uniform(0.92, 1.05)
        track.add(time, piano(pitch, length * BEAT, hit), 1.0,
                  -0.45 + 0.3 * place)


def ripple(track, bar, beat, length, notes, force, rng):
    """Chord opened note by note, for the beginning."""
    order = (0, 1, 2, 3, 2, 1, 2, 3)[:int(length * 2)]
    for step, which in enumerate(order):
        at = beat + step * 0.5
        hold = (length - step * 0.5) * BEAT + 0.1
        hit = force * (1.0 if step % 2 == 0 else 0.85) * rng.uniform(0.95, 1.05)
        track.add(when(bar, at), piano(notes[which] + 12 * (step > 3), hold,
                                       hit), 1.0, -0.4 + 0.25 * which)


def play_piano(rng):
    track = Track()
    for bar, beat, length, name in spans():
        notes = score.CHORDS[name][1]
        if bar < score.FIRST_GROOVE:
            ripple(track, bar, beat, length, notes, 0.85, rng)
        elif bar > score.LAST_GROOVE:
            last = bar == len(score.BARS) - 1
            strum(track, bar, beat, length + (2 if last else 0), notes, 0.8,
                  rng)
        else:
            strum(track, bar, beat, 1.4, notes, 0.85, rng)
            strum(track, bar, beat + 1.5, 0.45, notes[1:], 0.6, rng)
            if length > 2:
                strum(track, bar, beat + 2.5, 1.2, notes, 0.7, rng)
    return track


def play_lead():
    track = Track()
    for bar, notes in score.MELODY.items():
        for beat, length, pitch in notes:
            loud = 1.0 if beat % 2 == 0 else 0.85
            track.add(when(bar, beat), lead(pitch, length * BEAT * 0.93),
                      loud, 0.08)
    return track


def play_bass():
    track = Track()
    for bar, beat, length, name in spans():
        low = score.CHORDS[name][0]
        if not score.FIRST_GROOVE <= bar <= score.LAST_GROOVE:
            if bar > 0:
                track.add(when(bar, beat), bass(low, length * BEAT), 0.8)
            continue
        fifth = low + 7 if low < 41 else low - 5
        line = [(0, 1.3, low), (1.5, 0.45, low)]
        if length > 2:
            line += [(2, 0.95, fifth), (3, 0.5, low), (3.5, 0.4, low + 12)]
        for at, hold, pitch in line:
            track.add(when(bar, beat + at), bass(pitch, hold * BEAT),
                      1.0 if at == 0 else 0.8)
    return track


def play_pad(rng):
    track = Track()
    for bar, beat, length, name in spans():
        if bar < 1:
            continue
        gain = 1.0 if bar >= score.FIRST_BELLS else 0.65
        for place, pitch in enumerate(score.CHORDS[name][1]):
            sound = pad(pitch, length * BEAT, rng)
            track.add(when(bar, beat) - 0.05, sound, gain,
                      -0.8 if place % 2 else 0.8)
    return track


def play_bells():
    track = Track()
    for bar, beat, length, name in spans():
        if not score.FIRST_BELLS <= bar <= score.LAST_BELLS:
            continue
        notes = [pitch + 24 for pitch in score.CHORDS[name][1]]
        for step, which in enumerate((0, 2, 1, 3, 2, 1, 3, 0)):
            side = 0.6 if step % 2 else -0.6
            track.add(when(bar, beat + step * 0.5), bell(notes[which]),
                      0.8 if step % 2 else 0.6, side)
    for place, (beat, pitch) in enumerate(score.FAREWELL):
        track.add(when(len(score.BARS) - 1, beat), bell(pitch),
                  1.1 - 0.1 * place, 0.6 if place % 2 else -0.6)
    return track


def play_drums(rng):
    track = Track()
    for bar in range(score.FIRST_GROOVE, score.LAST_GROOVE + 1):
        for beat, gain in ((0, 1.0), (1.5, 0.55), (2, 0.85)):
            track.add(when(bar, beat), kick(), gain)
        for beat in (1, 3):
            track.add(when(bar, beat), brush(rng), 0.34, -0.1)
        for step in range(8):
            gain = 0.42 if step % 2 else 0.26
            track.add(when(bar, step / 2), shaker(rng, 0.12),
                      gain * rng.uniform(0.85, 1.1), 0.35)
        if bar % 2:
            track.add(when(bar, 2.5), rim(), 0.20, -0.45)
        if bar in score.FILLS:
            for step, beat in enumerate((3.25, 3.5, 3.75)):
                track.add(when(bar, beat), brush(rng), 0.14 + 0.05 * step,
                          -0.3 + 0.3 * step)
    return track


# Mixing

def tremolo(data):
    """The piano sways slowly from side to side."""
    sway = 0.14 * np.sin(2 * np.pi * 2.3 * np.arange(data.shape[1]) / RATE)
    return data * np.stack((1 + sway, 1 - sway))


def echo(data):
    """Three fading repeats that change sides."""
    out = np.zeros_like(data)
    gap = int(0.75 * BEAT * RATE)
    for n, level in ((1, 0.26), (2, 0.12), (3, 0.05)):
        side = data[::-1] if n % 2 else data
        side = side * np.array([[1.0], [0.45]] if n % 2 else [[0.45], [1.0]])
        out[:, n * gap:] += level * side[:, :-n * gap]
    return band(out, 250, 5000)


def room(data, rng):
    """A small bright room, its own noise on each side."""
    t = clock(1.5)
    rise = np.clip((t - 0.018) / 0.02, 0, 1)
    tail = rng.standard_normal((2, len(t))) * np.exp(-t * 4.4) * rise
    tail = band(tail, 260, 4800)
    tail /= np.sqrt(np.sum(tail ** 2, axis=1, keepdims=True))
    size = 1 << int(np.ceil(np.log2(data.shape[1] + len(t))))
    wet = np.fft.rfft(data, size) * np.fft.rfft(tail, size)
    return np.fft.irfft(wet, size)[:, :data.shape[1]]


def master(data, peak):
    """Clear the rumble, round the peaks, set the level, seal both ends."""
    data = band(data, 28, 0)
    data = data / np.sqrt(np.mean(data ** 2)) * 0.15
    data = np.tanh(data * 1.05)
    data *= peak / np.max(np.abs(data))
    return fade(data, 0.01, 1.7)


def fade(data, rise, fall):
    n = data.shape[1]
    t = np.arange(n) / RATE
    up = np.clip(t / rise, 0, 1)
    down = np.clip((n - 1) / RATE - t, 0, fall) / fall
    return data * np.sin(up * np.pi / 2) ** 2 * np.sin(down * np.pi / 2) ** 2


def compose():
    rng = np.random.default_rng(20)
    keys = tremolo(band(play_piano(rng).data, 140, 9000)) * 0.155
    song = play_lead().data * 0.165
    song += echo(song)
    low = play_bass().data * 0.225
    cushion = band(play_pad(rng).data, 180, 2600) * 0.05
    bells = play_bells().data * 0.085
    drums = play_drums(rng).data * 0.40
    send = keys * 0.8 + song * 0.8 + cushion + bells * 1.6 + drums * 0.22
    mix = keys + song + low + cushion + bells + drums + 0.26 * room(send, rng)
    return master(mix, 10 ** (-2.5 / 20))


# Files

def write_wave(path, data):
    pcm = np.round(data.T * 32767).astype("<i2")
    with wave.open(path, "wb") as out:
        out.setparams((2, 2, RATE, len(pcm), "NONE", ""))
        out.writeframes(pcm.tobytes())


def cut(data, first, last, rise, fall):
    """Some bars of the whole, faded where they were cut."""
    edges = [int((START * (n > 0) + n * BAR) * RATE) for n in (first, last)]
    return fade(data[:, edges[0]:edges[1]], rise, fall)


def run(*command, source=None):
    with open(source or os.devnull, "rb") as text:
        subprocess.run(command, check=True, stdin=text)


def encode(data, folder):
    whole, opening, second = (os.path.join(folder, name) for name in
                              ("whole.wav", "opening.wav", "second.wav"))
    write_wave(whole, data)
    write_wave(opening, cut(data, 0, 5, 0.01, 1.8))
    write_wave(second, cut(data, 10, len(score.BARS) + 9, 0.01, 0.2))
    run("lame", "--quiet", "-q", "0", "-m", "j", "-b", "128", "--add-id3v2",
        "--tt", score.TITLE, "--ta", score.ARTIST, whole,
        os.path.join(DEMO, "tune.mp3"))
    run("twolame", "--quiet", "-m", "joint", "-b", "160", second,
        os.path.join(DEMO, "tune.mp2"))
    run("mp2enc", "-v", "0", "-l", "1", "-b", "256", "-r", "44100", "-s",
        "-o", os.path.join(DEMO, "tune.mp1"), source=opening)


def write_list():
    names = ("tune.mp3", "tune.mp2", "tune.mp1")
    with open(os.path.join(DEMO, "tunes.m3u"), "wb") as out:
        out.write("".join(name + "\r\n" for name in names).encode("ascii"))


def main():
    os.makedirs(DEMO, exist_ok=True)
    with tempfile.TemporaryDirectory() as folder:
        encode(compose(), folder)
    write_list()


if __name__ == "__main__":
    main()
