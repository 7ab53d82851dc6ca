"""The signs on the buttons and the name plate, as signed distances."""
import numpy as np

from .geometry import polygon, slab, stroke


def triangle(c, x, y, r, way):
    """An arrow head that points right (way 1) or left (-1)."""
    points = [(x - 0.55 * r * way, y - 0.92 * r), (x + 1.0 * r * way, y),
              (x - 0.55 * r * way, y + 0.92 * r)]
    return polygon(c, points if way > 0 else points[::-1], 0.08 * r)


def play(c, x, y, r):
    return triangle(c, x, y, r, 1)


def stop(c, x, y, r):
    return slab(c, x - 0.72 * r, y - 0.72 * r, x + 0.72 * r, y + 0.72 * r, 0.1 * r)


def pause(c, x, y, r):
    return np.minimum(*(slab(c, x + a * r, y - 0.85 * r, x + (a + 0.5) * r, y + 0.85 * r, 0.08 * r)
                        for a in (-0.72, 0.22)))


def skip(c, x, y, r, way):
    """An arrow head against a bar: the next track or the one before."""
    head = triangle(c, x - 0.26 * r * way, y, 0.92 * r, way)
    near, far = sorted((x + 0.66 * r * way, x + 1.04 * r * way))
    return np.minimum(head, slab(c, near, y - 0.85 * r, far, y + 0.85 * r, 0.06 * r))


def forward(c, x, y, r):
    return skip(c, x, y, r, 1)


def backward(c, x, y, r):
    return skip(c, x, y, r, -1)


def eject(c, x, y, r):
    head = polygon(c, [(x - r, y + 0.12 * r), (x, y - 0.92 * r), (x + r, y + 0.12 * r)], 0.06 * r)
    return np.minimum(head, slab(c, x - r, y + 0.42 * r, x + r, y + 0.84 * r, 0.06 * r))


def playlist(c, x, y, r):
    rows = [slab(c, x + a * r, y + (b - 0.17) * r, x + e * r, y + (b + 0.17) * r, 0.05 * r)
            for b in (-0.68, 0.0, 0.68) for a, e in ((-0.98, -0.62), (-0.36, 0.98))]
    return np.minimum.reduce(rows)


LETTERS = {
    'V': ([(0, 0), (2.6, 7), (5.2, 0)],),
    'E': ([(4, 0), (0, 0), (0, 7), (4, 7)], [(0, 3.4), (3.3, 3.4)]),
    'L': ([(0, 0), (0, 7), (4, 7)],),
    'O': ([(3.5 + 3.5 * np.cos(a), 3.5 + 3.5 * np.sin(a)) for a in np.linspace(0, 2 * np.pi, 25)],),
    'R': ([(0, 7), (0, 0), (2.4, 0), (3.7, 0.6), (4.1, 1.9), (3.7, 3.2), (2.4, 3.8), (0, 3.8)],
          [(2.2, 3.8), (4.2, 7)]),
    'A': ([(0, 7), (2.6, 0), (5.2, 7)], [(1.1, 4.7), (4.1, 4.7)]),
}


def word(c, text, x, y, size, gap, width):
    """A word in thin capitals, `size` pixels high; x, y is its middle."""
    unit = size / 7
    widths = [max(p[0] for line in LETTERS[ch] for p in line) for ch in text]
    left = x - (sum(widths) * unit + gap * (len(text) - 1)) / 2
    best = None
    for ch, w in zip(text, widths):
        for line in LETTERS[ch]:
            d = stroke(c, [(left + px * unit, y + (py - 3.5) * unit) for px, py in line], width)
            best = d if best is None else np.minimum(best, d)
        left += w * unit + gap
    return best
