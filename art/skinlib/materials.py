"""Gold, enamel over engraving, onyx and pearl, all lit from the top left."""
import numpy as np

from .canvas import linear, smooth

LIGHT = np.array([-0.50, -0.64, 0.58], np.float32)
LIGHT /= np.linalg.norm(LIGHT)

# Light that gold gives back, from the room behind the light to the light itself.
GOLD = [(-1.0, '#1c0f08'), (-0.45, '#3d230f'), (-0.10, '#6e451d'), (0.12, '#8a5b26'),
        (0.30, '#b98a42'), (0.52, '#dcb468'), (0.74, '#f3d795'), (0.90, '#fff0c8'),
        (1.0, '#fffdf2')]
# The same of copper, which the sun is made of before it rises.
COPPER = [(-1.0, '#150807'), (-0.45, '#32110e'), (-0.10, '#5a1f17'), (0.12, '#78301d'),
          (0.30, '#9c4427'), (0.52, '#c0603a'), (0.74, '#de8c60'), (0.90, '#f7bf98'),
          (1.0, '#ffeada')]


def ramp(stops, t):
    at = [s[0] for s in stops]
    colours = np.array([linear(s[1]) for s in stops])
    return np.stack([np.interp(t, at, colours[:, i]) for i in range(3)], -1).astype(np.float32)


def mirrored(nx, ny, nz):
    """How far a surface throws the viewer's glance towards the light."""
    return (2 * nz * nx) * LIGHT[0] + (2 * nz * ny) * LIGHT[1] + (2 * nz * nz - 1) * LIGHT[2]


def gold(nx, ny, nz, polish=1.0, metal=GOLD):
    t = mirrored(nx, ny, nz)
    # The edge of the table that the thing lies on: a darker line in the mirror.
    line = np.exp(-((2 * nz * ny - 0.42) / 0.16) ** 2) * 0.30 * polish
    return ramp(metal, np.clip(t, -1, 1) - line)


def bead(distance, width, gx, gy):
    """Normals of a half-round wire; distance runs over it from 0 to width."""
    u = np.clip(distance / width * 2 - 1, -0.98, 0.98)
    return u * gx, u * gy, np.sqrt(1 - u * u)


def dome(x, y, r, height):
    """Normals of a round cushion; height 1 is a half ball, below 0 a bowl."""
    k = height / r
    nx, ny = np.clip(x * k, -0.99, 0.99), np.clip(y * k, -0.99, 0.99)
    nz = np.sqrt(np.maximum(1 - nx * nx - ny * ny, 0.02))
    return nx, ny, nz


def lit(nx, ny, nz):
    return np.clip(nx * LIGHT[0] + ny * LIGHT[1] + nz * LIGHT[2], 0, 1)


def enamel(colour, height, scale, strength):
    """Clear enamel over engraved metal: height 0 to 1, samples `scale` pixels apart."""
    gy, gx = np.gradient(height, scale)
    nx, ny = -gx * strength, -gy * strength
    nz = 1 / np.sqrt(1 + nx * nx + ny * ny)
    t = mirrored(nx * nz, ny * nz, nz)
    gleam = smooth(-0.1, 1.0, t)
    deep = 0.50 + 0.50 * height
    return colour * (deep * (0.30 + 1.05 * gleam))[..., None]
