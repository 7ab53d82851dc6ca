"""The last pixels of a window's shape, which the desktop meets without a blend.

A window is cut out pixel by pixel, so its edge has stairs. They can't be
blended with a desktop that the picture doesn't know; but a pixel that the
true outline only half fills can take a middle tone. On a light desktop that
takes the edge off the stair, and on a dark one it is dim enough to be part
of the edge.
"""
import numpy as np

from .canvas import encode, linear
from .region import mask

FINE = 8
BEYOND = 3


def outlined(pixels, regions, full, half):
    """The picture with every pixel along the shape's edge in the tone of an outline.

    `full` is the colour of a pixel that lies wholly inside, `half` that of one which
    the outline halves. That one goes on for BEYOND pixels outside, since an enlarged
    picture is blended with what lies there; farther out all becomes black.
    """
    height, width = pixels.shape[:2]
    fine = mask(regions, width, height, FINE).reshape(height, FINE, width, FINE)
    filled = fine.mean(axis=(1, 3), dtype=np.float32)[..., None]
    shape = mask(regions, width, height)
    # Beyond the picture's own border there is nothing, either.
    edge = shape & grown(np.pad(~shape, 1, constant_values=True))[1:-1, 1:-1]
    share = np.clip(2 * filled - 1, 0, 1)
    tone = encode(linear(half) * (1 - share) + linear(full) * share)
    out = np.where(edge[..., None], tone, pixels)
    near = shape
    for _ in range(BEYOND):
        near = grown(near)
    out[near & ~shape] = encode(linear(half))
    out[~near] = 0
    return out


def grown(some):
    """Some pixels and their neighbours to the four sides."""
    wide = np.pad(some, 1)
    sides = wide[:-2, 1:-1] | wide[2:, 1:-1] | wide[1:-1, :-2] | wide[1:-1, 2:]
    return some | sides
