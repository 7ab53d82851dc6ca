"""Ini files that are none, or strange: none of them says anything that the program could follow."""
import os

CONTENTS = {
    "empty": b"", "only_mark": b"\xef\xbb\xbf", "zeros": bytes(5000), "binary": bytes(range(256)) * 20,
    "no_equals": b"Count\r\n[\r\n=\r\n[]\r\n[Settings\r\nCount\r\nLastSkin\r\n=7\r\n]\r\n",
    "twice": b"[Settings]\nCount=0\nCount=9\nLastSkin=0\n[Settings]\nCount=9\nLastSkin=9\nVolume=3\n",
    "half_quoted": b"[Settings]\r\nCount=\"1\r\nLastSkin='1\r\nVolume=1\"\r\n",
    "megabyte": b"[Settings]\r\nCount=" + b"1" * (1 << 20) + b"\r\nVolume=" + b" " * (1 << 20) + b"4\r\n",
    "old_end": b"[Settings]\r\nCount=\x1a\r\n", "wide": "[Settings]\r\nCount=1\r\nVolume=1\r\n".encode("utf-16"),
}
NUMBERS = {"none": "", "letters": "two", "large": "1e9", "long": "2147483648", "longer": "9223372036854775808",
           "forty_digits": "4" * 40, "comma": "1,5", "two_numbers": "1 2"}


def make(directory):
    for name, content in CONTENTS.items():
        (directory / name).write_bytes(content)
    for name, number in NUMBERS.items():
        (directory / name).write_bytes(f"[Settings]\r\nCount={number}\r\nLastSkin={number}\r\nVolume={number}\r\n".encode())
    (directory / "directory").mkdir()
    os.mkfifo(directory / "pipe")
    for name, target in (("endless", "/dev/zero"), ("nowhere", "absent"), ("circle", "circle")):
        (directory / name).symlink_to(target)
    with open(directory / "gigabyte", "wb") as file:
        file.truncate(1 << 30)
