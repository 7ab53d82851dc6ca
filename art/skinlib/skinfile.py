"""Writing and reading the text files of a skin."""

FRAME = (6, 25)     # outer size less client size, in pixels
TWIPS = 15          # to the pixel

REGION_KEYS = ('destrgn', 'srcrgn1', 'srcrgn2', 'combinemode',
               'x1', 'x2', 'x3', 'y1', 'y2', 'y3', 'type')


def text_of(sections, head=()):
    """Ini text with CR LF from (name, {key: value}) pairs; head lines are remarks."""
    lines = ['; ' + line for line in head]
    for name, keys in sections:
        lines += ([''] if lines else []) + [f'[{name}]']
        lines += [f'{k}={v}' for k, v in keys.items()]
    return '\r\n'.join(lines) + '\r\n'


def read(path):
    """{section: {key: value}} with both names in lower case."""
    sections, current = {}, None
    for line in path.read_bytes().decode('utf-8').split('\r\n'):
        line = line.strip()
        if line.startswith('['):
            current = sections.setdefault(line[1:-1].strip().lower(), {})
        elif '=' in line and not line.startswith(';') and current is not None:
            key, value = line.split('=', 1)
            current.setdefault(key.strip().lower(), value.strip())
    return sections


def regions(sections):
    """{number: section} with numbers for values, as region.shape wants them."""
    found = {}
    for n in range(1, int(sections['settings'].get('shapecount', 0)) + 1):
        s = sections.get(f'rgn{n}', {})
        found[n] = {k: int(s.get(k, 1 if k == 'type' else 0)) for k in REGION_KEYS}
        found[n]['enabled'] = s.get('enabled', '').lower() == 'true'
    return found


def objects(sections):
    """The enabled objects in order, as their sections."""
    count = int(sections['settings'].get('objectcount', 0))
    found = [sections.get(f'object{n}', {}) for n in range(1, count + 1)]
    return [s for s in found if s.get('enabled', '').lower() == 'true']
