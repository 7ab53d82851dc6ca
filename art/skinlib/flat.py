"""Paints one skin of the Pebble look: flat stone, black glass, and large signs on it."""
import numpy as np
from PIL import Image

from .canvas import Canvas, cover, linear, smooth
from .edge import outlined
from .geometry import disc, polygon, slab, slope, stroke
from .painter import STEPS, regions_of
from .pebble import CORNER, FACE_LEFT, GAP, HOLE, RIM

STONE, LIT, SHADED = linear('#d8d3c9'), linear('#f4f1ea'), linear('#b3ada2')
GLASS = linear('#000000')
KEY, KEY_DOWN = linear('#2a2c30'), linear('#131416')
SIGN, SIGN_DOWN = linear('#f6f4ef'), linear('#ff7a5a')
CORAL, CORAL_DOWN = linear('#e05a3e'), linear('#a03c28')
INK, PALE, HALF = linear('#2f2d2a'), linear('#bab4a8'), linear('#8d877c')
DOT, BADGE = linear('#6a6852'), linear('#ffff80')
OUTLINE = ('#5f5a52', '#736d64')
FAR = 10000


def case(c, skin, left, inset, corner):
    """The stone's outline drawn in by `inset`, with its left end at `left`."""
    r = skin.height / 2
    body = slab(c, left, inset, FAR, skin.height - inset, corner)
    return np.where(c.x < skin.width - r, body, disc(c, skin.width - r, r, r - inset))


def meet(a, b, corner):
    """What two figures have in common, rounded where their edges cross, at whatever angle."""
    (ax, ay), (bx, by) = slope(a), slope(b)
    k = np.clip(ax * bx + ay * by, -0.99, 0.99)
    a, b = a + corner, b + corner
    beyond = (np.maximum(a, b) > 0) & (a > k * b) & (b > k * a)
    far = np.sqrt(np.maximum(a * a + b * b - 2 * k * a * b, 0) / (1 - k * k))
    return np.where(beyond, far, np.maximum(a, b)) - corner


def ground(skin):
    """The stone and the glass, and what is seen of the spectrum's seat while it rests."""
    c = Canvas(skin.width, skin.height)
    c.rgb[:] = STONE
    d = case(c, skin, 0, 0, CORNER)
    hole = -disc(c, *HOLE)
    for edge in (d, hole):
        gy, gx = np.gradient(edge)
        towards = np.clip((gx * -0.5 + gy * -0.85) / np.maximum(np.hypot(gx, gy), 1e-6), -1, 1)
        line = smooth(-3.2, -2.2, edge)
        c.paint(line * np.clip(towards, 0, 1) * 0.9, LIT)
        c.paint(line * np.clip(-towards, 0, 1) * 0.7, SHADED)
        c.paint(smooth(-1.9, -0.9, edge), linear(OUTLINE[0]))
    c.paint(cover(case(c, skin, FACE_LEFT, RIM, 12)), GLASS)
    left, top, width, height = skin.scope
    for x in range(left, left + width, 4):
        c.paint(cover(slab(c, x, top + height - 2, x + 3, top + height)), DOT)
    c.paint(badge(c, skin) > 0, GLASS)
    c.paint(badge(c, skin), BADGE)
    return c


def badge(c, skin):
    """Two bars in the spectrum's seat. They are seen while a track is held: when nothing plays
    the play picture covers them, and the spectrum does while it moves."""
    left, right, top, bottom = skin.badge
    third = (right - left) / 3
    return cover(np.minimum(slab(c, left, top, left + third, bottom),
                            slab(c, right - third, top, right, bottom)))


def sign(c, name, x, y, high, wide, bar, leg, base, play, stop):
    """A sign around x, y. All of its edges lie between two pixels, so that they are sharp."""
    def box(left, top, right, bottom):
        return slab(c, x + left, y + top, x + right, y + bottom)

    def arrow(back, tip, high):
        points = [(x + back, y - high), (x + tip, y), (x + back, y + high)]
        return polygon(c, points if tip > back else points[::-1])

    if name == 'play':
        return arrow(4 - play, play - 1, play)
    if name == 'stop':
        return box(-stop, -stop, stop, stop)
    if name == 'pause':
        return np.minimum(box(-2 - leg, -high, -2, high), box(2, -high, 2 + leg, high))
    if name == 'forward':
        return np.minimum(arrow(-high, high - bar, high), box(high - bar, -high, high, high))
    if name == 'backward':
        return np.minimum(arrow(high, bar - high, high), box(-high, -high, bar - high, high))
    if name == 'eject':
        roof = polygon(c, [(x - wide, y + base), (x, y - high), (x + wide, y + base)])
        return np.minimum(roof, box(-wide, high - bar, wide, high))
    thick = bar // 2
    rows = (1 - high, 0, high - 1) if bar % 2 else (thick - high, 0, high - thick)
    dots = [box(a, row - thick, b, row + thick) for row in rows
            for a, b in ((-wide, 2 * thick - wide), (2 * thick + 3 - wide, wide))]
    return np.minimum.reduce(dots)


def key(c, d, colour, pressed):
    """A key of glass: flat, and pressed a shade deeper, under the shadow of its upper edge."""
    c.paint(cover(d), colour)
    if pressed:
        gy, gx = np.gradient(d)
        c.shade(cover(d) * smooth(-3.5, 0, d) * np.clip(-gy * 8, 0, 1) * 0.75)


def key_shape(skin, c, box, corner):
    """A key with round corners that keeps to the round end of the glass."""
    end = case(c, skin, -FAR, RIM + GAP, 0)
    return meet(slab(c, *box, corner), end, corner).astype(np.float32)


def small_key(skin, c, name, box):
    pictures = []
    for pressed in (False, True):
        part = c.view(*box).copy()
        d = key_shape(skin, part, box, 7)
        key(part, d, KEY_DOWN if pressed else KEY, pressed)
        # In the middle of what there is of the key, which the round end may have cut.
        x, y = round(float(part.x[d < 0].mean())), (box[1] + box[3]) // 2 + pressed
        part.paint(cover(sign(part, name, x, y, **skin.sign)), SIGN_DOWN if pressed else SIGN)
        pictures.append(part.image())
    return box[:2], pictures


def play_key(skin, c, name):
    """The key with the spectrum in it: its pictures let the spectrum's place through."""
    left, top, right, bottom = skin.play
    d = key_shape(skin, c, (left, top, FAR, bottom), 8)
    sx, sy, sw, sh = skin.scope
    window = slab(c, sx - 3, sy - 3, sx + sw + 3, sy + sh + 3, 4)
    on, pictures = name == 'stop', []
    for pressed in (False, True):
        part = c.copy()
        face = (CORAL_DOWN if pressed else CORAL) if on else (KEY_DOWN if pressed else KEY)
        key(part, d, face, pressed)
        part.paint(cover(window), GLASS)
        x, y = skin.play_sign
        part.paint(cover(sign(part, name, x, y + pressed, **skin.sign)),
                   SIGN_DOWN if pressed and not on else SIGN)
        pixels = part.pixels()
        seen = np.full((skin.height, skin.width, 1), 255, np.uint8)
        seen[sy:sy + sh, sx:sx + sw] = 0
        if not on:
            a, b, e, f = skin.badge
            seen[e:f, a:b] = 255
        whole = Image.fromarray(np.concatenate([pixels, seen], 2), 'RGBA')
        pictures.append(whole.crop((left, top, right, bottom)))
    return (left, top), pictures


def volume(c, v):
    """Bars that widen upwards. Before the first change (step 0) they tell nothing: all alike, and
    an arrow shows where the hand begins."""
    pictures = []
    for step in range(STEPS + 1):
        part = c.view(v['left'], v['top'], v['right'], v['bottom']).copy()
        x, half = v['x'], v['thick'] / 2
        for i, row in enumerate(v['rows'], 1):
            y, reach = row + 0.5, v['reach'] * (0.34 + 0.11 * (i - 1))
            tone = HALF if not step else INK if i <= step else PALE
            part.paint(cover(slab(part, x - reach, y - half, x + reach, y + half, half)), tone)
        if step:
            y, half = v['rows'][step - 1] + 0.5, half + 1.5
            reach = v['reach'] + 1
            d = slab(part, x - reach, y - half, x + reach, y + half, half)
            part.paint(cover(d - 1.2), STONE)
            part.paint(cover(d), CORAL)
            if step == 1:
                part.paint(cover(d + 1.6), STONE)
        else:
            y = v['rows'][0] + v['thick'] + 3
            part.paint(cover(stroke(part, [(x - 4, y + 3), (x, y - 0.5), (x + 4, y + 3)], 1.8)),
                       CORAL)
        pictures.append(part.image())
    return pictures


def pictures(skin):
    """The background, {name: (place, [at rest, pressed])} of the buttons, and the volume."""
    c = ground(skin)
    buttons = {name: play_key(skin, c, name) for name in ('play', 'stop')}
    for name, box in skin.keys.items():
        buttons[name] = small_key(skin, c, name, box)
    back = Image.fromarray(outlined(c.pixels(), regions_of(skin), *OUTLINE))
    return back, buttons, volume(c, skin.volume)
