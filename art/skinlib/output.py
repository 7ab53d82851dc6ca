"""Writes a skin's pictures, its shape file and its skin file."""
from PIL import Image

from .skinfile import FRAME, TWIPS, text_of

TYPES = {'play': 1, 'stop': 2, 'forward': 3, 'backward': 4, 'eject': 5, 'playlist': 6, 'pause': 7}


def save_gif(image, path):
    """A GIF of the best 256 colours, without dithering."""
    few = image.quantize(256, method=Image.Quantize.MEDIANCUT, kmeans=3, dither=Image.Dither.NONE)
    few.save(path, optimize=False)


def write_text(path, sections, head=()):
    path.write_bytes(text_of(sections, head).encode('ascii'))


def settings(skin, graphic):
    return {'Name': skin.name, 'Author': 'The Velora authors', 'Type': 1,
            'Width': (skin.width + FRAME[0]) * TWIPS, 'Height': (skin.height + FRAME[1]) * TWIPS,
            'Graphic': graphic, 'Playlist': skin.companion,
            'ShapeCount': len(skin.regions)}


def thing(name, kind, place, **more):
    keys = dict(zip(('left', 'top', 'width', 'height'), place))
    return {'enabled': True, 'name': name, 'type': kind, **keys, **more}


def volume_object(skin):
    v, folder = skin.volume, skin.folder
    keys = thing('volume', 11, (v['left'], v['top']),
                 filename=f'{folder}\\volume.gif', filename2=f'{folder}\\volume.gif')
    for i, row in enumerate(v['rows'], 1):
        keys[f'x{i}'] = int(v['x'] - v['left']) * TWIPS
        keys[f'y{i}'] = int(row - v['top']) * TWIPS
    return keys


def write_skin(skin, home, pictures):
    """Writes all of a skin but its lights; `pictures` is what paints it."""
    folder = home / skin.folder
    folder.mkdir(parents=True, exist_ok=True)
    back, buttons, steps = pictures(skin)
    back.save(folder / 'background.png', optimize=True)
    objects = []
    for name, (place, pair) in buttons.items():
        files = [f'{name}.png', f'{name}_down.png']
        for picture, file in zip(pair, files):
            picture.save(folder / file, optimize=True)
        objects.append(thing(name, TYPES[name], place, filename=f'{skin.folder}\\{files[0]}',
                             filename2=f'{skin.folder}\\{files[1]}'))
    for step, picture in enumerate(steps):
        save_gif(picture, folder / f"volume{step or ''}.gif")
    objects += [volume_object(skin), thing('visualisation', 8, skin.scope),
                thing('title', 9, skin.title), thing('status', 12, skin.status),
                {'enabled': True, 'name': 'lights', 'type': 13, 'filename': skin.lights}]
    sections = [('Settings', {**settings(skin, f'{skin.folder}\\background.png'),
                              'ObjectCount': len(objects)})]
    for n, (name, keys) in enumerate(skin.regions, 1):
        used = {k: v for k, v in keys.items() if v or k in ('x1', 'y1')}
        sections.append((f'rgn{n}', {'enabled': True, 'name': name, **used}))
    sections += [(f'object{n}', keys) for n, keys in enumerate(objects, 1)]
    write_text(home / skin.file, sections)


def write_lights(path, places, size, shape):
    """The companions share one row: the lights are made once in a run."""
    rows = [(str(i), {'left': x, 'top': y, 'width': size[0], 'height': size[1], 'shape': shape,
                      'backcolor': 'vbRed', 'bordercolor': 'vbBlack'})
            for i, (x, y) in enumerate(places, 1)]
    write_text(path, rows)
