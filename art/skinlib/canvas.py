"""A canvas of many samples to the pixel, in linear light.

Everything is painted at SCALE samples to the pixel and averaged down at the
end, so that edges and fine engraving come out as a lens would see them.
"""
import numpy as np
from PIL import Image

SCALE = 8


def linear(colour):
    """Linear light from a colour written as #rrggbb."""
    c = np.array([int(colour[i:i + 2], 16) for i in (1, 3, 5)], np.float32) / 255
    return np.where(c <= 0.04045, c / 12.92, ((c + 0.055) / 1.055) ** 2.4).astype(np.float32)


def encode(light):
    """Bytes of the screen from linear light."""
    c = np.clip(light, 0, 1)
    c = np.where(c <= 0.0031308, c * 12.92, 1.055 * c ** (1 / 2.4) - 0.055)
    return np.floor(c * 255 + 0.5).astype(np.uint8)


def smooth(edge0, edge1, x):
    t = np.clip((x - edge0) / (edge1 - edge0), 0, 1)
    return t * t * (3 - 2 * t)


def cover(distance):
    """How much of a sample lies inside, from its signed distance in pixels."""
    return np.clip(0.5 - distance * SCALE, 0, 1)


class Canvas:
    """Samples with their places (x, y in pixels) and their light (rgb)."""

    def __init__(self, width, height, x=None, y=None, rgb=None):
        self.width, self.height = width, height
        if rgb is None:
            rgb = np.zeros((height * SCALE, width * SCALE, 3), np.float32)
            y, x = np.mgrid[0:height * SCALE, 0:width * SCALE].astype(np.float32)
            x, y = (x + 0.5) / SCALE, (y + 0.5) / SCALE
        self.x, self.y, self.rgb = x, y, rgb

    def view(self, left, top, right, bottom):
        """The part inside a rectangle of pixels; painting there paints here."""
        left, top = max(int(left), 0), max(int(top), 0)
        right, bottom = min(int(right), self.width), min(int(bottom), self.height)
        part = np.s_[top * SCALE:bottom * SCALE, left * SCALE:right * SCALE]
        return Canvas(right - left, bottom - top, self.x[part], self.y[part], self.rgb[part])

    def around(self, x, y, reach):
        return self.view(x - reach, y - reach, x + reach + 1, y + reach + 1)

    def copy(self):
        return Canvas(self.width, self.height, self.x, self.y, self.rgb.copy())

    def paint(self, amount, colour):
        amount = np.asarray(amount, np.float32)[..., None]
        self.rgb += (colour - self.rgb) * amount

    def shade(self, amount):
        """Takes a share of the light away."""
        self.rgb *= 1 - np.asarray(amount, np.float32)[..., None]

    def glow(self, amount, colour):
        self.rgb += np.asarray(amount, np.float32)[..., None] * colour

    def pixels(self):
        """The picture at one sample to the pixel, as bytes."""
        blocks = self.rgb.reshape(self.height, SCALE, self.width, SCALE, 3)
        # Clipping first keeps one glaring sample from whitening its pixel.
        return encode(np.clip(blocks, 0, 1.35).mean(axis=(1, 3)))

    def image(self):
        return Image.fromarray(self.pixels(), 'RGB')
