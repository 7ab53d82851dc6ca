#!/usr/bin/python3
"""Shows a skin as Velora would show it, as pictures in a directory.

    preview_skin.py SKIN.vs4 DIRECTORY

Each picture has a light and a dark desktop; the states are at rest, playing,
and playing with every button pressed. Needs `./setup art`.
"""
import sys
from pathlib import Path

import numpy as np
from PIL import Image, ImageDraw, ImageFont

sys.path.insert(0, str(Path(__file__).parent))
from skinlib import region, skinfile  # noqa: E402
from skinlib.skinfile import FRAME, TWIPS  # noqa: E402

TAHOMA = '/usr/share/wine/fonts/tahoma.ttf'
TEXT = (255, 255, 128)
COLOURS = {'vbblue': (0, 0, 255), 'vbblack': (0, 0, 0), 'vbcyan': (0, 255, 255),
           'vbgreen': (0, 255, 0), 'vbmagenta': (255, 0, 255), 'vbred': (255, 0, 0),
           'vbwhite': (255, 255, 255), 'vbyellow': (255, 255, 0)}
TITLE = (' ..:: velora is currently playing ::.. '
         'Morning Song by The Lighthouse Keepers ::..           ')
BARS = [5, 8, 11, 9, 12, 14, 13, 15, 12, 13, 10, 11, 8, 9, 7, 8, 5, 6, 4, 3, 4, 2, 2, 1]


class Preview:
    def __init__(self, path, scale):
        self.home, self.scale = path.parent, scale
        self.ini = skinfile.read(path)
        s = self.ini['settings']
        self.size = [int(s[k]) // TWIPS - f for k, f in zip(('width', 'height'), FRAME)]
        self.objects = {int(o.get('type', 0)): o for o in skinfile.objects(self.ini)}
        self.out = Image.new('RGB', [n * scale for n in self.size])
        self.picture(s['graphic'], 0, 0)

    def picture(self, name, x, y):
        image = Image.open(self.home / name.replace('\\', '/')).convert('RGBA')
        image = image.resize([n * self.scale for n in image.size], Image.NEAREST)
        self.out.paste(image, (x * self.scale, y * self.scale), image)

    def place(self, o, keys='left top width height'):
        return [int(o.get(k, 0)) for k in keys.split()]

    def lights(self, passed, touched=True):
        rows = skinfile.read(self.home / self.objects[13]['filename'].replace('\\', '/'))
        self.shape((288, 64, 5, 5), 2, (0, 0, 0), (0, 0, 0))
        for i in range(1, 14):
            row = rows[str(i)]
            fill = (255, 255, 0) if i <= passed else (255, 0, 0)
            if not touched:
                fill = COLOURS[row['backcolor'].lower()]
            self.shape(self.place(row), int(row.get('shape', 2)), fill,
                       COLOURS[row['bordercolor'].lower()])

    def shape(self, place, form, fill, border):
        x, y, w, h = place
        k, s = 8 * self.scale, self.scale
        image = Image.new('RGBA', (w * k, h * k))
        draw = ImageDraw.Draw(image)
        for inset, colour in ((0, border), (k, fill)):
            box = (inset, inset, w * k - inset - 1, h * k - inset - 1)
            if form in (2, 3):
                draw.ellipse(box, fill=colour)
            elif form in (4, 5):
                draw.rounded_rectangle(box, min(w, h) * k // 8 - inset // 2, fill=colour)
            else:
                draw.rectangle(box, fill=colour)
        image = premultiplied(image, (w * s, h * s))
        self.out.paste(image, (x * s, y * s), image)

    def text(self, kind, words, size, baseline):
        if kind not in self.objects:
            return
        x, y, w, h = (n * self.scale for n in self.place(self.objects[kind]))
        part = self.out.crop((x, y, x + w, y + h))
        font = ImageFont.truetype(TAHOMA, size * self.scale)
        ImageDraw.Draw(part).text((0, baseline * self.scale), words, TEXT, font, anchor='ls')
        self.out.paste(part, (x, y))

    def scope(self):
        x, y, w, h = (n * self.scale for n in self.place(self.objects[8]))
        draw = ImageDraw.Draw(self.out)
        draw.rectangle((x, y, x + w - 1, y + h - 1), fill=(0, 0, 0))
        step, count = 4 * self.scale, w // (4 * self.scale)
        for i in range(count):
            top = y + h - 1 - BARS[i * len(BARS) // count] * (h - 2) // 16
            left, right = x + i * step, x + (i + 1) * step - self.scale - 1
            draw.rectangle((left, top + self.scale, right, y + h - 1), fill=(255, 255, 0))
            draw.rectangle((left, top - self.scale, right, top - 1), fill=(255, 255, 255))

    def show(self, playing, pressed, step, clock):
        self.text(9, TITLE if playing else '', 9, 7)
        self.text(12, f'Playing {clock}%' if playing else 'Ready', 11, 9)
        self.lights(round(clock * 13 / 100), playing)
        for kind in (1, 3, 4, 5, 6, 7):
            if kind not in self.objects:
                continue
            o = self.objects[kind]
            source = self.objects[2] if kind == 1 and playing else o
            self.picture(source['filename2' if pressed else 'filename'], *self.place(o, 'left top'))
        o = self.objects[11]
        name = f"{o['filename2'][:-4]}{step}.gif" if step else o['filename']
        self.picture(name, *self.place(o, 'left top'))
        if playing:
            self.scope()

    def on(self, desk):
        mask = region.mask(skinfile.regions(self.ini), *self.size)
        mask = Image.fromarray(mask.astype(np.uint8) * 255).resize(self.out.size, Image.NEAREST)
        edge = 10 * self.scale
        sheet = Image.new('RGB', [n + 2 * edge for n in self.out.size], desk)
        sheet.paste(self.out, (edge, edge), mask)
        return sheet


def premultiplied(image, size):
    a = np.asarray(image, np.float32)
    a = a * np.concatenate([np.repeat(a[..., 3:], 3, 2) / 255, np.ones_like(a[..., 3:])], 2)
    h, w = size[1], size[0]
    a = a.reshape(h, a.shape[0] // h, w, a.shape[1] // w, 4).mean(axis=(1, 3))
    a[..., :3] = a[..., :3] * 255 / np.maximum(a[..., 3:], 1)
    return Image.fromarray(a.clip(0, 255).astype(np.uint8), 'RGBA')


def sheet(path, scale):
    """All states on both desktops."""
    parts = []
    for state in ((False, False, 0, 0), (True, False, 5, 43), (True, True, 7, 88)):
        p = Preview(path, scale)
        p.show(*state)
        parts.append([p.on(desk) for desk in ((232, 234, 238), (28, 30, 34))])
    w, h = parts[0][0].size
    whole = Image.new('RGB', (w * 2, h * len(parts)))
    for j, row in enumerate(parts):
        for i, part in enumerate(row):
            whole.paste(part, (i * w, j * h))
    return whole


def main():
    path, out = Path(sys.argv[1]), Path(sys.argv[2])
    out.mkdir(parents=True, exist_ok=True)
    for scale in (1, 2):
        sheet(path, scale).save(out / f'{path.stem}_{scale}x.png')
    p = Preview(path, 4)
    p.show(True, False, 5, 43)
    p.on((28, 30, 34)).save(out / f'{path.stem}_4x.png')


if __name__ == '__main__':
    main()
