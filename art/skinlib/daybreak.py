"""Where everything stands in the two skins of the standard look, Daybreak.

Both are one object and keep the top left corner: the arch with its thirteen
lights stays where it is when the window turns from one into the other.
All numbers are pixels of the client area.
"""
import math
from types import SimpleNamespace as Skin

AXIS = 156
ARCH = 307          # the height of the centre of the arch; its radius is 306
LIGHT_SIZE = 9


def lights():
    """Left and top of the thirteen lights, along an arc under the arch."""
    found = []
    for i in range(13):
        a = math.radians((i - 6) * 4.06)
        x, y = AXIS + 290 * math.sin(a), ARCH - 290 * math.cos(a)
        found.append((round(x - LIGHT_SIZE / 2), round(y - LIGHT_SIZE / 2)))
    return found


def rgn(kind, left, top, right, bottom, corner=(0, 0), **combine):
    """One region from pixels of the client area."""
    keys = dict(type=kind, x1=left - 1, y1=top - 3, x2=right - 1, y2=bottom - 3,
                x3=corner[0], y3=corner[1])
    return {**keys, **combine}


def join(mode, source, with_, dest=1):
    return dict(destrgn=dest, srcrgn1=source, srcrgn2=with_, combinemode=mode)


AND, OR, XOR, DIFF = 1, 2, 3, 4
RECT, ELLIPSE, ROUND = 1, 2, 3

STANDARD = Skin(
    name='Daybreak', file='velora.vs4', companion='velora_small.vs4', folder='standard',
    lights='lights.ini', width=312, height=153,
    regions=[
        ('arch', rgn(ELLIPSE, AXIS - 306, 1, AXIS + 306, 613)),
        ('dome', rgn(RECT, 32, 0, 280, 100, **join(AND, 1, 2))),
        ('shoulders', rgn(ROUND, 10, 28, 302, 112, (26, 26), **join(OR, 1, 3))),
        ('foot', rgn(RECT, 0, 96, 312, 124, **join(OR, 1, 4))),
        ('cove left', rgn(ELLIPSE, -10, 86, 10, 106, **join(DIFF, 1, 5))),
        ('cove right', rgn(ELLIPSE, 302, 86, 322, 106, **join(DIFF, 1, 6))),
        ('plinth', rgn(ROUND, 0, 106, 312, 153, (16, 16), **join(OR, 1, 7))),
        ('feet', rgn(ELLIPSE, 40, 150, 272, 168, **join(DIFF, 1, 8))),
    ],
    sun=(AXIS, 76.5), sun_r=20, ray_reach=1.0, flames=36,
    caps={'playlist': (46.5, 82.5), 'pause': (78.5, 82.5), 'backward': (111.5, 82.5),
          'forward': (200.5, 82.5), 'eject': (233.5, 82.5)},
    cap_r=12, cap_size=4.6, sun_size=9.0,
    volume=dict(x=265.5, rows=[93.5 - 5 * i for i in range(7)], r=6.2,
                left=257, top=56, right=274, bottom=102),
    scope=(104, 112, 104, 16), title=(22, 129, 268, 12), status=(22, 112, 78, 14),
)

SMALL = Skin(
    name='Daybreak small', file='velora_small.vs4', companion='velora.vs4', folder='small',
    lights='lights.ini', width=312, height=100,
    regions=[
        ('arch', rgn(ELLIPSE, AXIS - 306, 1, AXIS + 306, 613)),
        ('bow', rgn(ELLIPSE, AXIS - 228, -357, AXIS + 228, 99, **join(AND, 1, 2))),
        ('ends', rgn(RECT, 8, 0, 304, 100, **join(AND, 1, 3))),
        ('knob left', rgn(ELLIPSE, 0, 38, 13, 51, **join(OR, 1, 4))),
        ('knob right', rgn(ELLIPSE, 299, 38, 312, 51, **join(OR, 1, 5))),
    ],
    sun=(AXIS, 43.5), sun_r=12.5, ray_reach=0.8, flames=23,
    caps={'playlist': (76.5, 51.5), 'pause': (100.5, 47.5), 'backward': (126.5, 45.5),
          'forward': (185.5, 45.5), 'eject': (211.5, 47.5)},
    cap_r=9, cap_size=3.6, sun_size=5.6,
    volume=dict(x=235.5, rows=[69.5 - 4 * i for i in range(7)], r=4.6,
                left=229, top=39, right=242, bottom=76),
    scope=(172, 76, 40, 9), title=(96, 62, 121, 12), status=(96, 74, 72, 14),
)
