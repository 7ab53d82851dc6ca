"""The window's shape: the regions of a skin file, built and combined as Velora does.

Works on any fineness of samples, so that the drawing can follow the same
outline that the window is cut to.
"""
import numpy as np

# A region's coordinate (0, 0) is this pixel of the client area.
ORIGIN = (1, 3)


def element(section, x, y):
    """Which of the points lie in one rgn section, or None if it has no region."""
    x1, x2, y1, y2 = (section[k] for k in ('x1', 'x2', 'y1', 'y2'))
    x1, x2 = min(x1, x2) + ORIGIN[0], max(x1, x2) + ORIGIN[0]
    y1, y2 = min(y1, y2) + ORIGIN[1], max(y1, y2) + ORIGIN[1]
    box = (x >= x1) & (x < x2) & (y >= y1) & (y < y2)
    if section['type'] == 1:
        return box
    if section['type'] == 2:
        return in_ellipse(x, y, (x1 + x2) / 2, (y1 + y2) / 2, (x2 - x1) / 2, (y2 - y1) / 2)
    if section['type'] == 3:
        rx, ry = min(section['x3'], x2 - x1) / 2, min(section['y3'], y2 - y1) / 2
        if not rx or not ry:
            return box
        cx, cy = np.clip(x, x1 + rx, x2 - rx), np.clip(y, y1 + ry, y2 - ry)
        return box & (((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1)
    return None


def in_ellipse(x, y, cx, cy, rx, ry):
    return ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1


MODES = {1: np.logical_and, 2: np.logical_or, 3: np.logical_xor,
         4: lambda a, b: a & ~b, 5: lambda a, b: a.copy()}


def shape(sections, x, y):
    """The points of the window, from its rgn sections by number."""
    handles = {n: element(s, x, y) for n, s in sections.items() if s['enabled']}
    for n in sorted(handles):
        s = sections[n]
        mode, dest, a, b = (s[k] for k in ('combinemode', 'destrgn', 'srcrgn1', 'srcrgn2'))
        if mode and dest and a and b:
            if any(handles.get(k) is None for k in (dest, a, b)):
                continue
            handles[dest] = MODES[mode](handles[a], handles[b])
    return handles.get(1)


def mask(sections, width, height, scale=1):
    """The shape on a client area, with `scale` samples to the pixel."""
    y, x = np.mgrid[0:height * scale, 0:width * scale]
    return shape(sections, (x + 0.5) / scale, (y + 0.5) / scale)
