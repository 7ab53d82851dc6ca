"""Where everything stands in the two skins of the quiet look, Pebble.

A flat stone with a hole, and a face of black glass in it. Both cases have the
same head: hole, title, status and lights stand at the same pixels, so they
stay where they are when the window turns from one into the other. All numbers
are pixels of the client area.
"""
from types import SimpleNamespace as Skin

from .daybreak import DIFF, ELLIPSE, OR, RECT, ROUND, join, rgn

WIDTH = 400
RIM, GAP = 7, 6         # of stone around the glass, and of glass around the keys
FACE_LEFT = 46          # the column of stone to the left of it has hole and volume
INNER_LEFT = 58
CORNER = 23             # of the stone, and the middle of the column
HOLE = (CORNER, CORNER, 8)
LIGHT = (14, 6)


def lights():
    """Left and top of the thirteen lights: one bar, behind the status."""
    return [(140 + 16 * i, 26) for i in range(13)]


def stone(height):
    """The regions of a case: small corners to the left, and an end that is half a circle."""
    x, y, r = HOLE
    middle = WIDTH - height // 2
    return [
        ('left end', rgn(ROUND, 0, 0, middle, height, (2 * CORNER, 2 * CORNER))),
        ('middle', rgn(RECT, 2 * CORNER, 0, middle, height, **join(OR, 1, 2))),
        ('right end', rgn(ELLIPSE, WIDTH - height, 0, WIDTH, height, **join(OR, 1, 3))),
        ('hole', rgn(ELLIPSE, x - r, y - r, x + r, y + r, **join(DIFF, 1, 4))),
    ]


def keys(names, left, top, width, height, gap):
    """A row of keys: {name: (left, top, right, bottom)}."""
    return {name: (left + i * (width + gap), top, left + i * (width + gap) + width, top + height)
            for i, name in enumerate(names)}


ORDER = ('backward', 'pause', 'forward', 'eject', 'playlist')
HEAD = dict(title=(INNER_LEFT + 2, 10, 288, 12), status=(INNER_LEFT + 2, 22, 74, 14))

STANDARD = Skin(
    name='Pebble', file='pebble.vs4', companion='pebble_small.vs4', folder='pebble',
    lights='pebble\\lights.ini', width=WIDTH, height=152, regions=stone(152), **HEAD,
    play=(INNER_LEFT, 43, 388, 93), play_sign=(324, 68),
    keys=keys(ORDER, INNER_LEFT, 101, 58, 38, 4),
    sign=dict(high=9, wide=11, bar=4, leg=5, base=2, play=15, stop=10),
    scope=(64, 49, 192, 38), badge=(228, 249, 54, 80),
    volume=dict(x=CORNER, rows=[116 - 8 * i for i in range(7)], reach=11, thick=5,
                left=10, top=60, right=36, bottom=130),
)

SMALL = Skin(
    name='Pebble small', file='pebble_small.vs4', companion='pebble.vs4', folder='pebble_small',
    lights='pebble\\lights.ini', width=WIDTH, height=86, regions=stone(86), **HEAD,
    play=(220, 43, 388, 73), play_sign=(334, 58),
    keys=keys(ORDER, INNER_LEFT, 43, 28, 30, 4),
    sign=dict(high=6, wide=7, bar=3, leg=3, base=1, play=10, stop=7),
    scope=(226, 49, 60, 18), badge=(268, 280, 50, 63),
    volume=dict(x=CORNER, rows=[69 - 5 * i for i in range(7)], reach=11, thick=3,
                left=10, top=34, right=36, bottom=80),
)
