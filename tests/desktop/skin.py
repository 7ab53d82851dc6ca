#!/usr/bin/python3
# What a skin file tells of places and pictures, so that none of them is written twice.
# Prints left, top, width and height of a control: skin.py SKIN NAME
import collections
import configparser
import pathlib
import sys

from PIL import Image

Rect = collections.namedtuple("Rect", "left top width height")


class Skin:
    def __init__(self, path):
        self.path = pathlib.Path(path)
        self.ini = configparser.ConfigParser(interpolation=None, strict=False)
        self.ini.read(path, encoding="latin-1")
        self.objects = {keys["name"]: keys for section, keys in self.ini.items()
                        if section.startswith("object")}
        self.background = Image.open(self.file(self.ini["Settings"]["Graphic"])).convert("RGBA")

    def file(self, name):
        return self.path.parent / name.replace("\\", "/")

    def picture(self, name, key="filename"):
        return Image.open(self.file(self.objects[name][key])).convert("RGBA")

    def place(self, name):
        # Of a control, in pixels of the window.
        keys = self.objects[name]
        size = (keys["width"], keys["height"]) if "width" in keys else self.picture(name).size
        return Rect(*map(int, (keys["left"], keys["top"], *size)))

    def middle(self, name):
        left, top, width, height = self.place(name)
        return left + width // 2, top + height // 2

    def step_place(self, volume_step):
        # Where the volume stands for a step, 1 to 7. With the button held, it follows the pointer.
        return (self.middle("volume")[0],
                self.place("volume").top + int(self.objects["volume"][f"y{volume_step}"]) // 15)

    def shown(self, name, key, place):
        # How that picture of a control looks at a place on the background.
        whole, piece = self.background.copy(), self.picture(name, key)
        whole.alpha_composite(piece, place[:2])
        left, top, width, height = place
        return whole.crop((left, top, left + width, top + height))


if __name__ == "__main__":
    print(*Skin(sys.argv[1]).place(sys.argv[2]))
