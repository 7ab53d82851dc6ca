#!/usr/bin/python3
"""Draws the skins that Velora comes with, and writes their files, all anew.

Needs `./setup art`. The same files come out each time, but for a shade in a
few pixels where a processor rounds in its own way.
"""
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent))
from skinlib import daybreak, flat, output, painter, pebble, plain  # noqa: E402

HOME = Path(__file__).resolve().parent.parent / 'app' / 'VELORA_MAIN'
RECTANGLE, CIRCLE = 0, 3        # forms of a light


def main():
    home = Path(sys.argv[1]) if len(sys.argv) > 1 else HOME
    home.mkdir(parents=True, exist_ok=True)
    round_lights = (daybreak.LIGHT_SIZE, daybreak.LIGHT_SIZE)
    for skin in (daybreak.STANDARD, daybreak.SMALL):
        output.write_skin(skin, home, painter.pictures)
    output.write_lights(home / 'lights.ini', daybreak.lights(), round_lights, CIRCLE)
    for skin in (pebble.STANDARD, pebble.SMALL):
        output.write_skin(skin, home, flat.pictures)
    output.write_lights(home / 'pebble' / 'lights.ini', pebble.lights(), pebble.LIGHT, RECTANGLE)
    plain.write_plain(home)


if __name__ == '__main__':
    main()
