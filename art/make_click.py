"""Make the click of the buttons, so that its sound can be tuned by ear.

Needs `./setup art`.
"""
import os
import wave

import numpy as np

RATE = 44100
LENGTH = 0.030
PEAK = 10 ** (-12 / 20)
ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
PATH = os.path.join(ROOT, "app", "click.wav")


def knock(t, start, hertz, decay, level):
    """One damped mode of the key, struck at a moment."""
    u = np.clip(t - start, 0, None)
    rise = 1 - np.exp(-u * 6000)
    return level * np.sin(2 * np.pi * hertz * u) * np.exp(-u * decay) * rise


def scrape(t, start, decay, level, rng):
    """Breath of noise where plastic meets plastic, dulled to be kind."""
    noise = rng.standard_normal(len(t))
    dull = np.convolve(noise, np.hanning(9) / 4.0, "same")
    u = np.clip(t - start, 0, None)
    rise = 1 - np.exp(-u * 9000)
    return level * dull * np.exp(-u * decay) * rise * (t >= start)


def click():
    """The key snaps over, then its cap lands softly on the stop."""
    rng = np.random.default_rng(7)
    t = np.arange(int(LENGTH * RATE)) / RATE
    sound = scrape(t, 0.0004, 1500, 0.50, rng)
    sound += knock(t, 0.0004, 3150, 950, 0.60)
    sound += knock(t, 0.0004, 1840, 620, 0.70)
    sound += scrape(t, 0.0075, 1100, 0.16, rng)
    sound += knock(t, 0.0075, 1240, 520, 0.34)
    sound += knock(t, 0.0075, 430, 300, 0.30)
    ends = np.clip((LENGTH - 1 / RATE - t) / 0.008, 0, 1)
    window = np.sin(ends * np.pi / 2) ** 2
    sound *= window
    sound -= window * np.sum(sound) / np.sum(window)
    sound *= np.clip(t / 0.0003, 0, 1)
    return sound / np.max(np.abs(sound)) * PEAK


def main():
    os.makedirs(os.path.dirname(PATH), exist_ok=True)
    pcm = np.round(click() * 32767).astype("<i2")
    with wave.open(PATH, "wb") as out:
        out.setparams((1, 2, RATE, len(pcm), "NONE", ""))
        out.writeframes(pcm.tobytes())


if __name__ == "__main__":
    main()
