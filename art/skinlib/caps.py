"""The buttons: a golden sun and small enamelled caps, at rest and pressed.

A cap stands in a round bore. At rest it is a cushion that throws a shadow to
the lower right; pressed it has sunk into the bore, whose upper left wall now
shades it, and its face catches the light from the other side.
"""
import numpy as np

from .canvas import cover, linear, smooth
from .geometry import disc
from .materials import COPPER, GOLD, bead, dome, gold, lit

NIGHT = linear('#0b1533')
IVORY = linear('#fff3cf')
INK = linear('#2a1405')
DARK = linear('#05060c')
# The faces of a cap. The sun is an ember while nothing plays, and gold while a track is on.
NIGHT_CAP, EMBER, SUN = 'night', 'ember', 'sun'


def bore(c, x, y, r, wire):
    """The fixed surround of a button: a gold wire around a dark hole."""
    d = disc(c, x, y, r)
    c.shade(0.55 * smooth(2.6, 0.0, disc(c, x + 0.9, y + 1.2, r + wire)))
    gx, gy = (c.x - x) / np.maximum(d + r, 1e-3), (c.y - y) / np.maximum(d + r, 1e-3)
    # The ring's outer flank looks outward, its inner one inward.
    n = bead(d, wire, gx, gy)
    c.paint(cover(d - wire), gold(*n))
    c.paint(cover(d), DARK)


def cap(c, x, y, r, symbol, size, pressed, kind):
    """The moving part in a bore of radius r."""
    sun = kind != NIGHT_CAP
    dx, dy = (0.9, 1.1) if pressed else (0.0, 0.0)
    face = r - (1.3 if pressed else 0.7)
    wall = disc(c, x, y, r)
    # What is seen of the bore beside the cap: its far wall takes some light.
    side = smooth(0, 1, ((c.x - x) + (c.y - y)) / (1.4 * r))
    c.paint(cover(wall) * side * (0.55 if pressed else 0.15), linear('#7a5a2c'))
    d = disc(c, x + dx * 0.55, y + dy * 0.55, face)
    px, py = c.x - x - dx, c.y - y - dy
    n = dome(px, py, face, -0.40 if pressed else (0.46 if sun else 0.60))
    if sun:
        metal, shine = (GOLD, 1.12) if kind == SUN else (COPPER, 0.98)
        colour = gold(*n, polish=0.25, metal=metal) * (0.76 * shine if pressed else shine)
    else:
        colour = enamelled(n, px, py, face)
    c.paint(cover(d), colour)
    edge(c, d, px, py, face, pressed)
    if sun:
        groove(c, px, py, 0.80 * face)
    sign(c, symbol(c, x + dx, y + dy, size), pressed, sun)
    if pressed:
        lip = smooth(0.34 * r, -0.2, -disc(c, x + 0.30 * r, y + 0.36 * r, r * 1.02))
        c.shade(cover(wall) * 0.72 * lip)


def enamelled(n, px, py, face):
    nx, ny, nz = n
    body = NIGHT * (0.35 + 1.5 * lit(nx, ny, nz) ** 2)[..., None]
    sheen = smooth(0.80, 0.99,
                   (2 * nz * nx) * -0.50 + (2 * nz * ny) * -0.62 + (2 * nz * nz - 1) * 0.60)
    return body + (sheen * 0.34)[..., None] * linear('#cfe0ff')


def edge(c, d, px, py, face, pressed):
    """The cap's own chamfer: lit above left at rest, below right when pressed."""
    side = -(px * 0.6 + py * 0.8) / face * (-0.55 if pressed else 1)
    line = smooth(-1.25, -0.5, d) * cover(d)
    c.glow(line * np.clip(side, 0, 1) * 0.55, linear('#ffe9b8'))
    c.shade(line * np.clip(-side, 0, 1) * 0.6)


def groove(c, px, py, r):
    """A fine ring cut into the gold: its far wall is lit, its near one dark."""
    d = np.hypot(px, py) - r
    side = (px * 0.6 + py * 0.8) / r
    c.shade(smooth(0.75, 0.1, np.abs(d)) * (0.34 - 0.16 * side))
    c.glow(smooth(0.7, 0.0, np.abs(d - 0.8)) * np.clip(side, 0, 1) * 0.22, linear('#ffe9b8'))
    c.glow(smooth(0.7, 0.0, np.abs(d + 0.8)) * np.clip(-side, 0, 1) * 0.10, linear('#ffe9b8'))


def sign(c, d, pressed, sun):
    """Symbols: inlaid ivory on the caps, cut into the gold of the sun."""
    gy, gx = np.gradient(d)
    towards = (gx * -0.6 + gy * -0.8) / np.maximum(np.hypot(gx, gy), 1e-6)
    rim = smooth(-0.9, -0.1, d) * cover(d)
    if sun:
        c.glow(smooth(0.9, 0.0, d) * (1 - cover(d)) * np.clip(-towards, 0, 1) * 0.5,
               linear('#fff2cc'))
        c.paint(cover(d), INK * (0.8 if pressed else 1))
        c.shade(rim * np.clip(towards, 0, 1) * 0.7)
        return
    c.shade(smooth(1.1, 0.0, d) * (1 - cover(d)) * 0.5)
    c.paint(cover(d), IVORY * (0.78 if pressed else 1))
    c.shade(rim * np.clip(-towards, 0, 1) * 0.18)
