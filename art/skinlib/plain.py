"""The plain skin: the smallest complete example for makers of skins.

Flat figures and few numbers on purpose; docs/skins.md goes through it line
by line. All pictures are GIFs, as a paint program would save them.
"""
from PIL import Image, ImageDraw

from .output import write_text
from .skinfile import FRAME, TWIPS

SIZE = (270, 70)
GROUND, PANEL, EDGE = '#2e3440', '#1d2129', '#5b6578'
FACE, SIGN = '#434c5e', '#f2e9c9'
FOLDER = 'plain'
STEP_ROWS = [38 - 6 * i for i in range(7)]


def flat(size, colour):
    image = Image.new('RGB', size, colour)
    return image, ImageDraw.Draw(image)


def background():
    image, draw = flat(SIZE, GROUND)
    draw.rounded_rectangle((24, 10, 269, 59), 8, GROUND, EDGE)
    draw.ellipse((0, 0, 69, 69), GROUND, EDGE)
    draw.rectangle((70, 11, 73, 58), GROUND)
    draw.rectangle((189, 14, 234, 33), PANEL)
    draw.rectangle((76, 36, 234, 56), PANEL)
    return image


def signs(draw, name, x, y, r):
    """The symbol of a button around x, y."""
    right = [(x - r + 1, y - r), (x + r - 1, y), (x - r + 1, y + r)]
    left = [(x + r - 1, y - r), (x - r + 1, y), (x + r - 1, y + r)]
    box = (x - r, y - r, x + r, y + r)
    if name == 'play':
        draw.polygon(right, SIGN)
    elif name == 'stop':
        draw.rectangle(box, SIGN)
    elif name == 'pause':
        draw.rectangle((x - r, y - r, x - r + 2, y + r), SIGN)
        draw.rectangle((x + r - 2, y - r, x + r, y + r), SIGN)
    elif name == 'forward':
        draw.polygon(right, SIGN)
        draw.rectangle((x + r - 1, y - r, x + r, y + r), SIGN)
    elif name == 'backward':
        draw.polygon(left, SIGN)
        draw.rectangle((x - r, y - r, x - r + 1, y + r), SIGN)
    elif name == 'eject':
        draw.polygon([(x - r, y + 1), (x, y - r), (x + r, y + 1)], SIGN)
        draw.rectangle((x - r, y + r - 1, x + r, y + r), SIGN)
    elif name == 'playlist':
        for row in (-r, -1, r - 2):
            draw.rectangle((x - r, y + row, x + r, y + row + 1), SIGN)


def button(name, size, r, pressed):
    image, draw = flat(size, GROUND)
    draw.rounded_rectangle((0, 0, size[0] - 1, size[1] - 1), 4, PANEL if pressed else FACE, EDGE)
    down = 1 if pressed else 0
    signs(draw, name, size[0] // 2 + down, size[1] // 2 + down, r)
    return image


def volume(step):
    image, draw = flat((16, 42), GROUND)
    for i, row in enumerate(STEP_ROWS, 1):
        lit = '#ffe14d' if i <= step and step > 1 else '#e0322a' if i == step else PANEL
        draw.rectangle((1, row - 2, 14, row + 1), lit)
    return image


BUTTONS = [('play', 1, (19, 19)), ('stop', 2, (19, 19)), ('pause', 7, (122, 14)),
           ('backward', 4, (78, 14)), ('forward', 3, (100, 14)), ('eject', 5, (144, 14)),
           ('playlist', 6, (166, 14))]


def skin_text():
    settings = {'Name': 'Plain', 'Author': 'The Velora authors', 'Type': 1,
                'Width': (SIZE[0] + FRAME[0]) * TWIPS, 'Height': (SIZE[1] + FRAME[1]) * TWIPS,
                'Graphic': f'{FOLDER}\\background.gif', 'Playlist': 'plain.vs4',
                'ShapeCount': 2, 'ObjectCount': len(BUTTONS) + 5}
    regions = [('rgn1', dict(enabled=True, name='body', type=3, x1=23, y1=7, x2=269, y2=57,
                             x3=16, y3=16)),
               ('rgn2', dict(enabled=True, name='wheel', type=2, x1=-1, y1=-3, x2=69, y2=67,
                             combinemode=2, destrgn=1, srcrgn1=1, srcrgn2=2))]
    things = [dict(name=name, type=kind, left=x, top=y, filename=f'{FOLDER}\\{name}.gif',
                   filename2=f'{FOLDER}\\{name}_down.gif') for name, kind, (x, y) in BUTTONS]
    steps = {f'y{i}': row * TWIPS for i, row in enumerate(STEP_ROWS, 1)}
    things += [dict(name='visualisation', type=8, left=190, top=15, width=44, height=18),
               dict(name='title', type=9, left=77, top=34, width=156, height=11),
               dict(name='volume', type=11, left=242, top=14, filename=f'{FOLDER}\\volume.gif',
                    filename2=f'{FOLDER}\\volume.gif', **steps),
               dict(name='status', type=12, left=77, top=45, width=66, height=13),
               dict(name='lights', type=13, filename=f'{FOLDER}\\lights.ini')]
    objects = [(f'object{n}', dict(enabled=True, **keys)) for n, keys in enumerate(things, 1)]
    return [('Settings', settings), *regions, *objects]


def write_plain(home):
    folder = home / FOLDER
    folder.mkdir(parents=True, exist_ok=True)
    background().save(folder / 'background.gif')
    for name, _, _ in BUTTONS:
        size, r = ((32, 32), 7) if name in ('play', 'stop') else ((20, 19), 4)
        for pressed, end in ((False, ''), (True, '_down')):
            button(name, size, r, pressed).save(folder / f'{name}{end}.gif')
    for step in range(8):
        volume(step).save(folder / f"volume{step or ''}.gif")
    rows = [(str(i), dict(left=136 + 7 * i, top=48, width=6, height=7, shape=0,
                          backcolor='vbRed', bordercolor='vbBlack')) for i in range(1, 14)]
    write_text(folder / 'lights.ini', rows)
    write_text(home / 'plain.vs4', skin_text())
