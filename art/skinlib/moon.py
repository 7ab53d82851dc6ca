"""The volume: a moon that rises in its slot, and waxes as it rises."""
import numpy as np

from .canvas import cover, linear, smooth
from .geometry import disc, slab, stroke
from .materials import bead, dome, gold, lit

PEARL = linear('#f6ecd4')
DARKSIDE = linear('#101a38')
LAMP = linear('#ffe96a')
UNLIT = linear('#59607c')
DIM = linear('#b39a62')


def slot(c, box, corner):
    """The sunk slot that the moon runs in, with a wire of gold around it."""
    left, top, right, bottom = box
    d = slab(c, left, top, right, bottom, corner)
    gy, gx = np.gradient(d)
    length = np.maximum(np.hypot(gx, gy), 1e-6)
    below = slab(c, left + 1, top + 1.2, right + 1, bottom + 1.2, corner + 1)
    c.shade(0.5 * smooth(2.4, 0.0, below - 1.2))
    c.paint(cover(d - 1.5), gold(*bead(d, 1.5, gx / length, gy / length)))
    c.paint(cover(d), linear('#060a18'))
    shadow = slab(c, left + 1.6, top + 2.2, right + 2, bottom + 2, corner)
    c.paint(cover(d) * smooth(-1.2, 1.2, shadow) * 0.85, linear('#010206'))


def trail(c, x, rows, step):
    """A mark at each step's row; those that the moon has passed shine."""
    for i, row in enumerate(rows, 1):
        d = disc(c, x, row, 0.9)
        passed = i < step
        c.glow(smooth(2.4, 0, d) * (0.20 if passed else 0), LAMP)
        c.paint(cover(d), LAMP if passed else UNLIT)


def night_sky(c, x, rows, r):
    """The slot before the first change: no moon yet, and every mark as faint as the next.

    Nothing here tells a loudness. An arrow head shows where the hand begins, and which way.
    """
    d = slab(c, x - r, rows[-1] - r, x + r, rows[0] + r, r)
    c.glow(smooth(0, -r, d) * 0.5, linear('#2c3f7c'))
    for row in rows[1:]:
        d = disc(c, x, row, 0.9)
        c.glow(smooth(2.6, 0, d) * 0.07, LAMP)
        c.paint(cover(d), DIM)
    tip, reach = rows[0] - 0.26 * r, 0.44 * r
    d = stroke(c, [(x - reach, tip + reach), (x, tip), (x + reach, tip + reach)], 1.3)
    c.paint(cover(d), DIM)


def moon(c, x, y, r, phase):
    """phase 0 is the new moon, 1 the full one."""
    d = disc(c, x, y, r)
    c.paint(smooth(2.4, -0.6, disc(c, x + 1.2, y + 1.6, r)) * 0.8, linear('#000104'))
    px, py = c.x - x, c.y - y
    n = dome(px, py, r, 0.75)
    gx, gy = px / np.maximum(d + r, 1e-3), py / np.maximum(d + r, 1e-3)
    c.paint(cover(d), gold(*bead(d + 1.1, 1.1, gx, gy)))
    inner = disc(c, x, y, r - 1.0)
    shine = (0.35 + 0.75 * lit(*n))[..., None]
    c.paint(cover(inner), DARKSIDE * shine * 1.2)
    # The line between day and night is half an ellipse; the moon fills from the right.
    across = np.sqrt(np.maximum((r - 1.0) ** 2 - py * py, 0))
    bright = cover(across * (1 - 2 * phase) - px) if phase > 0 else 0 * d
    seas = 0.14 * smooth(0.5, -0.5, disc(c, x + 0.25 * r, y - 0.2 * r, 0.24 * r)) \
        + 0.12 * smooth(0.5, -0.5, disc(c, x - 0.2 * r, y + 0.3 * r, 0.20 * r))
    c.paint(cover(inner) * bright, PEARL * shine * (1 - seas)[..., None] * 1.12)
