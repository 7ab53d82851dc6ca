#!/usr/bin/python3
"""Looks through the skins for what a viewer would stumble over.

    check_skins.py [DIRECTORY]

Prints one line for each finding and ends with 1 if there was any. Needs
`./setup art`.
"""
import sys
from pathlib import Path

import numpy as np
from PIL import Image

sys.path.insert(0, str(Path(__file__).parent))
from skinlib import region, skinfile  # noqa: E402
from skinlib.skinfile import FRAME, TWIPS  # noqa: E402

HOME = Path(__file__).resolve().parent.parent / 'app' / 'VELORA_MAIN'
PICTURES, TEXTS, SCOPE, VOLUME, LIGHTS = (1, 3, 4, 5, 6, 7), (9, 12), 8, 11, 13
MARK = (288, 64, 5, 5)      # the black oval that no skin can move


class Skin:
    def __init__(self, path):
        self.path, self.found = path, []
        self.ini = skinfile.read(path)
        s = self.ini['settings']
        self.size = [int(s[k]) // TWIPS - f for k, f in zip(('width', 'height'), FRAME)]
        for key, f in zip(('width', 'height'), FRAME):
            self.expect(int(s[key]) % TWIPS == 0, f'{key} is no whole number of pixels')
        self.objects = {int(o['type']): o for o in skinfile.objects(self.ini)}
        self.mask = region.mask(skinfile.regions(self.ini), *self.size)

    def expect(self, good, words):
        if not good:
            self.found.append(f'{self.path.name}: {words}')

    def file(self, name):
        path = self.path.parent / name.replace('\\', '/')
        self.expect(name == name.lower(), f'{name} is not in lower case')
        self.expect(path.is_file(), f'{name} is missing')
        return path

    def number(self, o, *keys):
        return [int(o.get(k, 0)) for k in keys]

    def box(self, kind):
        o = self.objects[kind]
        if kind in (SCOPE, *TEXTS):
            return self.number(o, 'left', 'top', 'width', 'height')
        return [*self.number(o, 'left', 'top'), *Image.open(self.file(o['filename'])).size]

    def inside(self, box):
        x, y, w, h = box
        held = 0 <= x and 0 <= y and x + w <= self.size[0] and y + h <= self.size[1]
        return held and self.mask[y:y + h, x:x + w].all()


def check_files(skin):
    raw = skin.path.read_bytes()
    skin.expect(raw.count(b'\n') == raw.count(b'\r\n'), 'a line end is not CR LF')
    skin.expect(all(len(v) <= 254 for s in skin.ini.values() for v in s.values()),
                'a value is too long')
    skin.file(skin.ini['settings']['playlist'])
    back = Image.open(skin.file(skin.ini['settings']['graphic']))
    skin.expect(list(back.size) == skin.size, f'background is {back.size}, client area {skin.size}')
    for kind in (*PICTURES, 2):
        o = skin.objects[kind]
        sizes = {Image.open(skin.file(o[k])).size for k in ('filename', 'filename2')}
        skin.expect(len(sizes) == 1, f"{o['name']}: the two pictures differ in size")
    o = skin.objects[VOLUME]
    sizes = {Image.open(skin.file(f"{o['filename2'][:-4]}{i}.gif")).size for i in range(1, 8)}
    skin.expect(sizes == {Image.open(skin.file(o['filename'])).size},
                'the volume pictures differ in size')


def check_places(skin):
    kinds = (*PICTURES, *TEXTS, SCOPE, VOLUME)
    for kind in kinds:
        skin.expect(skin.inside(skin.box(kind)), f'object of type {kind} leaves the shape')
    for a in kinds:
        for b in kinds:
            skin.expect(a >= b or not overlap(skin.box(a), skin.box(b)),
                        f'types {a} and {b} overlap')
    rows = skinfile.read(skin.file(skin.objects[LIGHTS]['filename']))
    for i in range(1, 14):
        light = skin.number(rows[str(i)], 'left', 'top', 'width', 'height')
        skin.expect(skin.inside(light), f'light {i} leaves the shape')
        for kind in kinds:
            skin.expect(not overlap(light, skin.box(kind)), f'light {i} and type {kind} overlap')


def overlap(a, b):
    return all(a[i] < b[i] + b[i + 2] and b[i] < a[i] + a[i + 2] for i in (0, 1))


def check_volume(skin):
    o, height = skin.objects[VOLUME], skin.box(VOLUME)[3]
    rows = [int(o[f'y{i}']) for i in range(1, 8)]
    skin.expect(all(r % TWIPS == 0 and 0 <= r < height * TWIPS for r in rows),
                'a volume row is outside')
    gaps = {a - b for a, b in zip(rows, rows[1:])}
    skin.expect(len(gaps) == 1 and min(gaps) >= 4 * TWIPS, 'volume rows are uneven or too close')


def check_picture(skin):
    """No hole in the rim, and the one black oval is drawn into the design or outside."""
    back = np.asarray(Image.open(skin.file(skin.ini['settings']['graphic'])).convert('RGB'), int)
    skin.expect((back[skin.mask].sum(1) > 0).mean() > 0.999, 'the shape shows unpainted pixels')
    x, y, w, h = MARK
    oval = np.zeros_like(skin.mask)
    oval[y:y + h, x:x + w] = True
    seen = oval & skin.mask
    skin.expect(not seen.any() or back[y + 1:y + h - 1, x + 1:x + w - 1].max() < 40,
                'the black oval lies open')
    lonely = skin.mask.copy()
    for axis, by in ((0, 1), (0, -1), (1, 1), (1, -1)):
        lonely &= ~np.roll(skin.mask, by, axis)
    skin.expect(not lonely.any(), 'the shape has a stray pixel')


def main():
    home = Path(sys.argv[1]) if len(sys.argv) > 1 else HOME
    found = []
    for path in sorted(home.glob('*.vs4')):
        skin = Skin(path)
        for check in (check_files, check_places, check_volume, check_picture):
            check(skin)
        print(f'{path.name}: client area {skin.size[0]} x {skin.size[1]}, '
              f'{len(skin.found)} findings')
        found += skin.found
    print('\n'.join(dict.fromkeys(found)))
    sys.exit(bool(found))


if __name__ == '__main__':
    main()
