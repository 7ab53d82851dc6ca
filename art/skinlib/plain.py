"""The plain skin: the smallest complete example for makers of skins.

Flat figures and few numbers on purpose; docs/skins.md goes through it line
by line. All pictures are GIFs, as a paint program would save them. Everything
keeps to a margin: five pixels from a panel's edge to what stands in it.
"""
import numpy as np
from PIL import Image, ImageDraw

from .edge import outlined
from .output import save_gif, write_text
from .skinfile import FRAME, TWIPS, regions as numbered

SIZE = (288, 80)
GROUND, PANEL, LINE = '#2e3440', '#000000', '#4b5567'
OUTLINE = ('#39404e', '#565e6d')
FACE, SIGN = '#434c5e', '#f2e9c9'
ON, ON_SIGN = '#e5b53a', '#2b2410'
FULL, FAINT, MUTE = '#ffe14d', '#75692f', '#e0322a'
FOLDER = 'plain'
FINE = 8
SCOPE, TITLE, STATUS = (215, 16, 44, 16), (91, 38, 165, 11), (91, 49, 70, 14)
STEP_ROWS = [47 - 7 * i for i in range(7)]
REGIONS = [('rgn1', dict(enabled=True, name='body', type=3, x1=27, y1=5, x2=287, y2=69,
                         x3=20, y3=20)),
           ('rgn2', dict(enabled=True, name='wheel', type=2, x1=-1, y1=-3, x2=79, y2=77,
                         combinemode=2, destrgn=1, srcrgn1=1, srcrgn2=2))]


class Drawing:
    """A picture that is drawn larger and made small at the end, so that its figures are smooth."""

    def __init__(self, size, colour):
        self.image = Image.new('RGB', (size[0] * FINE, size[1] * FINE), colour)
        self.draw = ImageDraw.Draw(self.image)

    def box(self, left, top, right, bottom, colour, corner=0):
        """A rectangle; right and bottom are the first pixels that don't belong to it."""
        self.draw.rounded_rectangle((left * FINE, top * FINE, right * FINE - 1, bottom * FINE - 1),
                                    corner * FINE, colour)

    def figure(self, points, colour):
        self.draw.polygon([(x * FINE, y * FINE) for x, y in points], colour)

    def done(self):
        return self.image.reduce(FINE)


def background():
    p = Drawing(SIZE, GROUND)
    # A light line inside of the outline, so that the case ends clearly on a dark desktop, too.
    for inset, colour in ((0, OUTLINE[0]), (1.25, LINE), (2.25, GROUND)):
        p.box(28 + inset, 8 + inset, 288 - inset, 72 - inset, colour, 10 - inset)
        p.box(inset, inset, 80 - inset, 80 - inset, colour, 40 - inset)
    left, top, width, height = SCOPE
    for x1, y1, x2, y2 in ((86, 37, 261, 67),
                           (left - 2, top - 2, left + width + 2, top + height + 2)):
        p.box(x1 - 1, y1 - 1, x2 + 1, y2 + 1, LINE, 4)
        p.box(x1, y1, x2, y2, PANEL, 3)
    # The spectrum at rest: a foot for each of its bars.
    for x in range(left, left + width, 4):
        p.box(x, top + height - 1, x + 3, top + height, FAINT)
    sections = {'settings': {'shapecount': len(REGIONS)}}
    sections.update((name, {**keys, 'enabled': 'True'}) for name, keys in REGIONS)
    return Image.fromarray(outlined(np.asarray(p.done()), numbered(sections), *OUTLINE))


def sign(p, name, x, y, r, colour):
    """The symbol of a button around x, y."""
    if name == 'play':
        p.figure([(x - 0.7 * r, y - r), (x + r, y), (x - 0.7 * r, y + r)], colour)
    elif name == 'stop':
        p.box(x - r + 1, y - r + 1, x + r - 1, y + r - 1, colour)
    elif name == 'pause':
        p.box(x - r, y - r, x - r + 3, y + r, colour)
        p.box(x + r - 3, y - r, x + r, y + r, colour)
    elif name in ('forward', 'backward'):
        way = 1 if name == 'forward' else -1
        p.figure([(x - r * way, y - r), (x + (r - 2) * way, y), (x - r * way, y + r)], colour)
        near, far = sorted((x + (r - 2) * way, x + r * way))
        p.box(near, y - r, far, y + r, colour)
    elif name == 'eject':
        p.figure([(x - r - 1, y + 1), (x, y - r), (x + r + 1, y + 1)], colour)
        p.box(x - r - 1, y + r - 2, x + r + 1, y + r, colour)
    elif name == 'playlist':
        for row in (-r, -1, r - 2):
            p.box(x - r - 1, y + row, x + r + 1, y + row + 2, colour)


def button(name, size, r, pressed):
    p = Drawing(size, GROUND)
    face, ink = (ON, ON_SIGN) if name == 'stop' else (FACE, SIGN)
    down = 1 if pressed else 0
    if pressed:
        face = {FACE: '#20252f', ON: '#9a751c'}[face]
    p.box(0, 0, *size, '#191c24' if pressed else LINE, 5)
    p.box(1, 1 + down, size[0] - 1, size[1] - 1 + down, face, 4)
    sign(p, name, size[0] // 2, size[1] // 2 + down, r, ink)
    return p.done()


def volume(step):
    """Before the first change (step 0) all marks are faint: nothing is said of the loudness."""
    p = Drawing((16, 52), GROUND)
    for i, row in enumerate(STEP_ROWS, 1):
        colour = PANEL
        if step == 0:
            colour = FAINT
        elif i <= step:
            colour = MUTE if step == 1 else FULL
        p.box(1, row - 2, 15, row + 3, LINE if colour == PANEL else colour, 1)
        if colour == PANEL:
            p.box(2, row - 1, 14, row + 2, PANEL)
    return p.done()


BUTTONS = [('play', 1, (21, 21)), ('stop', 2, (21, 21)), ('pause', 7, (135, 14)),
           ('backward', 4, (85, 14)), ('forward', 3, (110, 14)), ('eject', 5, (160, 14)),
           ('playlist', 6, (185, 14))]


def skin_text():
    settings = {'Name': 'Plain', 'Author': 'The Velora authors', 'Type': 1,
                'Width': (SIZE[0] + FRAME[0]) * TWIPS, 'Height': (SIZE[1] + FRAME[1]) * TWIPS,
                'Graphic': f'{FOLDER}\\background.gif', 'Playlist': 'plain.vs4',
                'ShapeCount': len(REGIONS), 'ObjectCount': len(BUTTONS) + 5}
    things = [dict(name=name, type=kind, left=x, top=y, filename=f'{FOLDER}\\{name}.gif',
                   filename2=f'{FOLDER}\\{name}_down.gif') for name, kind, (x, y) in BUTTONS]
    steps = {f'y{i}': row * TWIPS for i, row in enumerate(STEP_ROWS, 1)}
    sides = ('left', 'top', 'width', 'height')
    things += [dict(name='visualisation', type=8, **dict(zip(sides, SCOPE))),
               dict(name='title', type=9, **dict(zip(sides, TITLE))),
               dict(name='volume', type=11, left=266, top=14, filename=f'{FOLDER}\\volume.gif',
                    filename2=f'{FOLDER}\\volume.gif', **steps),
               dict(name='status', type=12, **dict(zip(sides, STATUS))),
               dict(name='lights', type=13, filename=f'{FOLDER}\\lights.ini')]
    objects = [(f'object{n}', dict(enabled=True, **keys)) for n, keys in enumerate(things, 1)]
    return [('Settings', settings), *REGIONS, *objects]


def write_plain(home):
    folder = home / FOLDER
    folder.mkdir(parents=True, exist_ok=True)
    save_gif(background(), folder / 'background.gif')
    for name, _, _ in BUTTONS:
        size, r = ((38, 38), 9) if name in ('play', 'stop') else ((22, 20), 5)
        for pressed, end in ((False, ''), (True, '_down')):
            save_gif(button(name, size, r, pressed), folder / f'{name}{end}.gif')
    for step in range(8):
        save_gif(volume(step), folder / f"volume{step or ''}.gif")
    rows = [(str(i), dict(left=158 + 7 * i, top=52, width=6, height=8, shape=0,
                          backcolor='vbRed', bordercolor='vbBlack')) for i in range(1, 14)]
    write_text(folder / 'lights.ini', rows)
    write_text(home / 'plain.vs4', skin_text())
