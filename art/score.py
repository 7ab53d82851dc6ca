"""The demo tune as data, so that composing stays apart from synthesis.

Times are in beats from the start of a bar, pitches are MIDI numbers.
"""

TITLE = "Pebble Light"
ARTIST = "Velora"
TEMPO = 92.0
BEATS = 4

# Chord name: (bass note, voicing of the electric piano from low to high).
CHORDS = {
    "Fmaj9": (41, (57, 60, 64, 67)),
    "Dm9": (38, (53, 57, 60, 64)),
    "Gm9": (43, (53, 57, 58, 62)),
    "C9sus": (36, (53, 58, 62, 67)),
    "C9": (36, (52, 58, 62, 67)),
    "Am7": (45, (55, 60, 64, 67)),
    "D7b9": (38, (54, 60, 63, 69)),
    "Bbmaj9": (46, (57, 60, 62, 65)),
    "Bbm6": (46, (55, 58, 61, 65)),
    "Bbm6/F": (41, (55, 58, 61, 65)),
    "Fend": (41, (52, 57, 60, 67)),
}

# One entry a bar: the chords with the beat on which each begins.
BARS = [
    # Opening: the piano alone.
    [("Fmaj9", 0)],
    [("Bbmaj9", 0), ("C9sus", 2)],
    # First strain.
    [("Fmaj9", 0)],
    [("Dm9", 0)],
    [("Gm9", 0)],
    [("C9sus", 0), ("C9", 2)],
    # First strain again, wandering off at the end.
    [("Fmaj9", 0)],
    [("Am7", 0), ("D7b9", 2)],
    [("Gm9", 0)],
    [("Bbm6", 0), ("C9", 2)],
    # Second strain, higher and with bells.
    [("Bbmaj9", 0)],
    [("Bbm6", 0)],
    [("Am7", 0)],
    [("Dm9", 0)],
    # Way home and ending.
    [("Gm9", 0)],
    [("C9sus", 0), ("C9", 2)],
    [("Bbm6/F", 0)],
    [("Fend", 0)],
]

# Bar: (beat, length in beats, pitch) of the lead.
MELODY = {
    1: [(3.0, 0.5, 69), (3.5, 0.5, 72)],
    2: [(0, 1.5, 76), (1.5, 0.5, 74), (2, 1, 72), (3, 1, 69)],
    3: [(0, 1.5, 72), (1.5, 0.5, 74), (2, 1.9, 76)],
    4: [(0, 1.5, 77), (1.5, 0.5, 76), (2, 1, 74), (3, 1, 70)],
    5: [(0, 1.5, 74), (1.5, 0.5, 72), (2, 1, 67), (3, 0.5, 70),
        (3.5, 0.5, 72)],
    6: [(0, 1.5, 76), (1.5, 0.5, 74), (2, 1, 72), (3, 0.5, 69),
        (3.5, 0.5, 72)],
    7: [(0, 1.5, 79), (1.5, 0.5, 76), (2, 1, 78), (3, 1, 75)],
    8: [(0, 1.5, 74), (1.5, 0.5, 77), (2, 1.5, 81), (3.5, 0.5, 79)],
    9: [(0, 1, 77), (1, 1, 73), (2, 1, 76), (3, 0.9, 79)],
    10: [(0, 2, 81), (2, 0.5, 79), (2.5, 0.5, 77), (3, 1, 74)],
    11: [(0, 2, 79), (2, 0.5, 77), (2.5, 0.5, 73), (3, 1, 70)],
    12: [(0, 1.5, 72), (1.5, 0.5, 76), (2, 1.9, 79)],
    13: [(0, 1.5, 77), (1.5, 0.5, 76), (2, 1, 69), (3, 1, 72)],
    14: [(0, 1.5, 77), (1.5, 0.5, 76), (2, 1, 74), (3, 1, 70)],
    15: [(0, 1.5, 74), (1.5, 0.5, 76), (2, 1.9, 79)],
    16: [(0, 1.5, 73), (1.5, 0.5, 72), (2, 1, 70), (3, 1, 67)],
    17: [(0, 3.8, 69)],
}

# Last bell figure, climbing out of the final chord.
FAREWELL = [(0.5, 72), (1.0, 76), (1.5, 79), (2.0, 84), (3.0, 91)]

FIRST_GROOVE, LAST_GROOVE = 2, 15     # bars with bass line and percussion
FIRST_BELLS, LAST_BELLS = 10, 13      # bars of the second strain
FILLS = (5, 9, 13, 15)                # bars ending in a little roll
