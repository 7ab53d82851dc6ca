"""Signed distances in pixels (negative inside) to the figures that we draw."""
import numpy as np

from .canvas import SCALE


def disc(c, x, y, r):
    return np.hypot(c.x - x, c.y - y) - r


def slab(c, left, top, right, bottom, corner=0.0):
    """A rectangle with round corners."""
    dx = np.abs(c.x - (left + right) / 2) - (right - left) / 2 + corner
    dy = np.abs(c.y - (top + bottom) / 2) - (bottom - top) / 2 + corner
    out = np.hypot(np.maximum(dx, 0), np.maximum(dy, 0))
    return out + np.minimum(np.maximum(dx, dy), 0) - corner


def stroke(c, points, width):
    """A line through the points, with round ends."""
    best = None
    for (ax, ay), (bx, by) in zip(points, points[1:]):
        ux, uy = bx - ax, by - ay
        t = np.clip(((c.x - ax) * ux + (c.y - ay) * uy) / max(ux * ux + uy * uy, 1e-9), 0, 1)
        d = np.hypot(c.x - ax - t * ux, c.y - ay - t * uy)
        best = d if best is None else np.minimum(best, d)
    return best - width / 2


def polygon(c, points, corner=0.0):
    """A convex polygon, its points clockwise on the screen."""
    best = None
    for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
        ux, uy = bx - ax, by - ay
        d = ((c.x - ax) * uy - (c.y - ay) * ux) / np.hypot(ux, uy)
        best = d if best is None else np.maximum(best, d)
    return best - corner


def slope(distance):
    """Unit vectors that point the way in which a distance grows."""
    gy, gx = np.gradient(distance)
    length = np.maximum(np.hypot(gx, gy), 1e-6)
    return gx / length, gy / length


def depth_inside(inside, step):
    """Distance of every sample to the nearest one outside, by jump flooding.

    `step` is the size of a sample in pixels; deeper than 40 pixels is not told.
    """
    pad = 1
    inside = np.pad(inside, pad)
    far = np.int32(1 << 14)
    ys, xs = np.mgrid[0:inside.shape[0], 0:inside.shape[1]].astype(np.int32)
    by, bx = np.where(inside, far, ys), np.where(inside, far, xs)
    jump = 1 << int(np.ceil(np.log2(40 / step)))
    while jump:
        for dy in (-jump, 0, jump):
            for dx in (-jump, 0, jump):
                ny, nx = shifted(by, dy, dx, far), shifted(bx, dy, dx, far)
                nearer = (ny - ys) ** 2 + (nx - xs) ** 2 < (by - ys) ** 2 + (bx - xs) ** 2
                by, bx = np.where(nearer, ny, by), np.where(nearer, nx, bx)
        jump //= 2
    d = np.hypot(by - ys, bx - xs).astype(np.float32)[pad:-pad, pad:-pad]
    return np.minimum(np.maximum(d - 0.5, 0) * step, 60)


def shifted(a, dy, dx, fill):
    out = np.full_like(a, fill)
    h, w = a.shape
    out[max(dy, 0):h + min(dy, 0), max(dx, 0):w + min(dx, 0)] = \
        a[max(-dy, 0):h + min(-dy, 0), max(-dx, 0):w + min(-dx, 0)]
    return out


def soften(a, radius):
    """A blur of about `radius` pixels (three running means)."""
    n = max(int(radius * SCALE), 1)
    for axis in (0, 1):
        for _ in range(3):
            wide = [(0, 0)] * a.ndim
            wide[axis] = (n + 1, n)
            sums = np.cumsum(np.pad(a, wide, mode='edge'), axis=axis, dtype=np.float64)
            first, last = [slice(None)] * a.ndim, [slice(None)] * a.ndim
            first[axis], last[axis] = slice(0, a.shape[axis]), slice(2 * n + 1, None)
            a = ((sums[tuple(last)] - sums[tuple(first)]) / (2 * n + 1)).astype(np.float32)
    return a
