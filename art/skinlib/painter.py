"""Paints one skin of the Daybreak look and writes its pictures."""
import numpy as np
from PIL import Image

from . import body, caps, moon, symbols
from .canvas import Canvas
from .daybreak import LIGHT_SIZE, lights
from .edge import outlined
from .geometry import slab
from .skinfile import regions as numbered

STEPS = 7
EDGE = ('#4a321c', '#7a6044')


def regions_of(skin):
    """The skin's regions as region.shape wants them."""
    sections = {'settings': {'shapecount': len(skin.regions)}}
    for n, (_, keys) in enumerate(skin.regions, 1):
        sections[f'rgn{n}'] = {'enabled': 'True', **keys}
    return numbered(sections)


def ground(skin):
    """The case with everything that never moves."""
    c = Canvas(skin.width, skin.height)
    d = body.outline_depth(c, regions_of(skin))
    x, y = skin.sun
    c.rgb[:] = body.sky(c, x, y, body.DAWN, skin.ray_reach)
    body.corona(c.around(x, y, skin.flames + 3), x, y, skin.sun_r + 1, skin.flames)
    (standard_ground if skin.folder == 'standard' else small_ground)(c, skin, d)
    for left, top in lights():
        cx, cy = left + LIGHT_SIZE / 2, top + LIGHT_SIZE / 2
        body.seat(c.around(cx, cy, 11), cx, cy, LIGHT_SIZE / 2 - 0.1)
    fittings(c, skin)
    return c


def standard_ground(c, skin, d):
    low = c.view(0, 103, c.width, c.height)
    low.rgb[:] = body.sea(low, *skin.sun)
    body.rim(c, d, 3.0)
    body.bar(c.view(0, 98, c.width, 112), 103, 107, 0, c.width)
    window = c.view(8, 106, c.width - 8, c.height)
    body.well(window, slab(window, 15, 110, 297, 143, 4))
    left, top, width, height = skin.scope
    body.glitter(c.view(left, top, left + width, top + height), left + width / 2, top + 1)
    body.name_plate(c.view(214, 110, 296, 130), 255, 120, 7, 4.2)
    for px in (21.5, 290.5):
        body.pin(c, px, 66.5)


def small_ground(c, skin, d):
    inside = np.hypot(c.x - 156, c.y + 129) - 226
    body.well(c, np.maximum(inside, slab(c, 91, 62, 221, 120, 5)))
    body.rim(c, d, 3.0)
    left, top, width, height = skin.scope
    part = c.view(left - 3, top - 3, left + width + 3, top + height + 3)
    body.scope_seat(part, left, top, width, height)
    body.glitter(c.view(left, top, left + width, top + height), left + width / 2, top + 1,
                 (19, 12, 15, 8, 5))
    for x in (6.5, 305.5):
        body.ball(c.around(x, 44.5, 8), x, 44.5, 5.4)


def fittings(c, skin):
    x, y = skin.sun
    part = c.around(x, y, skin.sun_r * 1.8)
    caps.bore(part, x, y, skin.sun_r, 2.0)
    for cx, cy in skin.caps.values():
        caps.bore(c.around(cx, cy, skin.cap_r + 6), cx, cy, skin.cap_r, 1.8)
    v = skin.volume
    part = c.view(v['left'] - 4, v['top'] - 4, v['right'] + 5, v['bottom'] + 5)
    r = v['r'] + 1.6
    moon.slot(part, (v['x'] - r, v['rows'][-1] - r, v['x'] + r, v['rows'][0] + r), r)


def button(c, x, y, r, symbol, size, face=caps.NIGHT_CAP):
    """Both pictures of a button, cut from the ground, with their place."""
    left, top = int(x - r - 2), int(y - r - 2)
    right, bottom = int(np.ceil(x + r + 2)), int(np.ceil(y + r + 2))
    pictures = []
    for pressed in (False, True):
        part = c.view(left, top, right, bottom).copy()
        caps.cap(part, x, y, r, symbol, size, pressed, face)
        pictures.append(part.image())
    return (left, top), pictures


def volume(c, v):
    """The picture before the first change, then the seven steps."""
    pictures = []
    for step in range(STEPS + 1):
        part = c.view(v['left'], v['top'], v['right'], v['bottom']).copy()
        if step:
            moon.trail(part, v['x'], v['rows'], step)
            moon.moon(part, v['x'], v['rows'][step - 1], v['r'], (step - 1) / 6)
        else:
            moon.night_sky(part, v['x'], v['rows'], v['r'])
        pictures.append(part.image())
    return pictures


def pictures(skin):
    """{name: (place, [at rest, pressed])} of the buttons, and the rest by name."""
    c = ground(skin)
    x, y = skin.sun
    buttons = {'play': button(c, x, y, skin.sun_r, symbols.play, skin.sun_size, caps.EMBER),
               'stop': button(c, x, y, skin.sun_r, symbols.stop, skin.sun_size * 0.86, caps.SUN)}
    for name, (cx, cy) in skin.caps.items():
        buttons[name] = button(c, cx, cy, skin.cap_r, getattr(symbols, name), skin.cap_size)
    back = outlined(c.pixels(), regions_of(skin), *EDGE)
    return Image.fromarray(back), buttons, volume(c, skin.volume)
