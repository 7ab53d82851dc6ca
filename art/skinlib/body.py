"""The case: rims, engraved sky and sea under enamel, wells, bezels, pins."""
import numpy as np

from . import symbols
from .canvas import SCALE, cover, linear, smooth
from .geometry import depth_inside, disc, slab, slope, soften, stroke
from .materials import bead, dome, enamel, gold, ramp
from .region import shape

OUTLINE = linear('#150b06')
# Colour of the sky by the distance from the sun in pixels.
DAWN = [(16, '#ffbe78'), (32, '#e88a5c'), (50, '#b25060'), (74, '#6b3570'),
        (100, '#37306f'), (128, '#1c2b66'), (165, '#0d1a45')]
DEEP = [(0, '#1f5f7a'), (60, '#17446a'), (150, '#0c2048')]


def outline_depth(c, regions):
    """How deep every sample lies inside the window's own outline."""
    step = 2
    inside = shape(regions, c.x[::step, ::step], c.y[::step, ::step])
    d = depth_inside(inside, step / SCALE)
    return soften(np.repeat(np.repeat(d, step, 0), step, 1), 0.3)


def sky(c, x, y, dawn, reach=1.0):
    """Rays engraved from the sun, crossed by waves, under a dawn of enamel."""
    r = np.hypot(c.x - x, c.y - y)
    angle = np.arctan2(c.y - y, c.x - x)
    wave = 0.09 * np.sin(2 * np.pi * r / 13.0)
    fine = 0.5 + 0.5 * np.cos(angle * 72 + 2 * np.pi * wave)
    finer = 0.5 + 0.5 * np.cos(angle * 144 + 4 * np.pi * wave)
    far = smooth(80, 100, r)
    height = fine * (1 - far) + finer * far
    turn = np.cos(angle - np.arctan2(-0.64, -0.50))
    gloss = 0.80 + 0.30 * turn ** 2 + 0.08 * turn
    broad = 1 + 0.22 * np.cos(angle * 24)
    return enamel(ramp(dawn, r / reach), height, 1 / SCALE, 0.36) * (gloss * broad)[..., None] * 1.3


def sea(c, x, y):
    """Long waves, brightest under the sun."""
    away = np.hypot((c.x - x) * 0.8, (c.y - y) * 0.4)
    bend = 1.1 * np.sin(c.x / 9.0) + 0.8 * np.sin(c.x / 23.0 + 1.0)
    height = 0.5 + 0.5 * np.cos((c.y + bend) * 2 * np.pi / 3.6)
    return enamel(ramp(DEEP, away), height, 1 / SCALE, 0.5) * 1.5


def rim(c, d, width, start=0.9):
    """The polished edge of the case: a dark line, then a half-round of gold."""
    gx, gy = slope(d)
    c.shade(smooth(width + start + 4.5, width + start, d) * shadow_side(gx, gy))
    # The enamel swells a little: a window's light along the near edge, a glimmer at the far one.
    towards = gx * 0.55 + gy * 0.83
    c.glow(np.exp(-((d - width - start - 5.5) / 2.4) ** 2) * np.clip(towards - 0.15, 0, 1) * 0.075,
           linear('#dfe6ff'))
    c.glow(np.exp(-((d - width - start - 1.2) / 0.8) ** 2) * np.clip(-towards, 0, 1) * 0.10,
           linear('#ffd9b0'))
    n = bead(np.clip(d - start, 0, width), width, gx, gy)
    c.paint(cover(d - start - width), gold(*n))
    c.paint(cover(d - start), OUTLINE)


def shadow_side(gx, gy):
    """A raised edge throws its shadow only where it stands towards the light."""
    return 0.20 + 0.50 * np.clip(gx * 0.6 + gy * 0.8, 0, 1)


def bar(c, top, bottom, left, right):
    """A gold moulding across the case."""
    d = slab(c, left, top, right, bottom)
    c.shade(smooth(3.5, 0, c.y - bottom) * (c.y > bottom) * (c.x > left) * (c.x < right) * 0.55)
    u = np.clip((c.y - top) / (bottom - top) * 2 - 1, -0.97, 0.97)
    c.paint(cover(d), gold(0 * u, u, np.sqrt(1 - u * u)))
    c.paint(cover(d) * smooth(0.5, 0, np.minimum(c.y - top, bottom - c.y)), OUTLINE)


def well(c, d, wire=1.6):
    """A window of onyx let into the case, framed by a gold wire."""
    gx, gy = slope(d)
    c.glow(smooth(2.2, 0.2, d - wire) * np.clip(gx * 0.6 + gy * 0.8, 0, 1) * (d > wire) * 0.10,
           linear('#bcd0ff'))
    c.shade(smooth(2.4, 0, d - wire) * (d > wire) * 0.45)
    c.paint(cover(d - wire), gold(*bead(np.clip(d, 0, wire), wire, gx, gy)))
    c.paint(cover(d), linear('#010207'))
    far = np.clip(gx * 0.6 + gy * 0.8, 0, 1)
    c.glow(cover(d) * smooth(-1.4, -0.3, d) * far * 0.06, linear('#9fb6ff'))


def seat(c, x, y, r):
    """The setting of one light: a gold collet with a dark seat."""
    d = disc(c, x, y, r)
    c.shade(0.65 * smooth(2.8, 0, disc(c, x + 1.0, y + 1.3, r + 1.4)))
    gx, gy = (c.x - x) / np.maximum(d + r, 1e-3), (c.y - y) / np.maximum(d + r, 1e-3)
    c.paint(cover(d - 1.7), gold(*bead(np.clip(d, 0, 1.7), 1.7, gx, gy)))
    c.paint(cover(d), linear('#020207'))


def pin(c, x, y):
    """A small hollow rivet; its bore is as big as the one black oval."""
    seat(c.around(x, y, 8), x, y, 2.6)


def corona(c, x, y, inner, outer, count=16):
    """Flames of gold around the sun, long and short in turn, each with two facets."""
    dx, dy = c.x - x, c.y - y
    r, angle = np.hypot(dx, dy), np.arctan2(dy, dx) + np.pi / 2
    c.shade(0.35 * smooth(outer, inner, r))
    turn = angle * count / (2 * np.pi)
    number = np.round(turn)
    tip = inner + (outer - inner) * np.where(number % 2 == 0, 1.0, 0.6)
    across = np.abs(turn - number) * 2 * np.pi / count * r
    half = (np.pi * inner / count) * np.clip((tip - r) / (tip - inner), 0, 1.2)
    d = np.maximum((across - half) * 0.9, r - tip)
    c.shade(soften(cover(np.roll(d, (SCALE, SCALE), (0, 1))), 0.5) * 0.55)
    middle, side = number * 2 * np.pi / count - np.pi / 2, np.sign(turn - number)
    nx, ny = -np.sin(middle) * side * 0.5, np.cos(middle) * side * 0.5
    bright = smooth(-0.45, 0.45, nx * -0.6 + ny * -0.8)
    c.paint(cover(d), ramp([(0, '#8a5a24'), (0.5, '#d9a95a'), (1, '#fff0c4')], bright))


def name_plate(c, x, y, size, gap):
    """The name in thin gold capitals."""
    t = smooth(-size / 2, size / 2, c.y - y)[..., None]
    colour = linear('#ffe9ae') * (1 - t) + linear('#b98a42') * t
    c.paint(cover(symbols.word(c, 'VELORA', x, y, size, gap, 1.05)), colour)


def scope_seat(c, left, top, width, height):
    """A window in the onyx, black to the ground, that the spectrum fills to its edges."""
    d = slab(c, left - 1, top - 1, left + width + 1, top + height + 1, 1.5)
    c.paint(cover(d - 1) * (1 - cover(d)), linear('#6b4c22'))
    c.paint(cover(d), linear('#000000'))


def glitter(c, x, top, halves=(46, 30, 37, 21, 27, 14, 18, 8)):
    """The sun's way on the water: strokes of gold that shorten as they come nearer."""
    for n, half in enumerate(halves):
        d = stroke(c, [(x - half, top + 2 * n + 0.5), (x + half, top + 2 * n + 0.5)], 0.9)
        fade = (1 - smooth(0.25 * half, 1.05 * half, np.abs(c.x - x))) * (0.95 - 0.085 * n)
        c.paint(smooth(0.3, -0.1, d) * fade, linear('#ffc163'))


def ball(c, x, y, r):
    """A finial of solid gold."""
    d = disc(c, x, y, r)
    c.paint(cover(d - 0.9), OUTLINE)
    c.paint(cover(d), gold(*dome(c.x - x, c.y - y, r, 0.85)))
