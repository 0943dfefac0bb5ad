#!/usr/bin/env python3
"""Reads KVUIMOD.dll as its genuine platform would: what leaves it, what it wants, what lies in it.

Run by ctest: library_test.py SOURCE DLL RES OBJDUMP; RES are the resources as compiled for the stand-in.
"""
import pathlib
import re
import struct
import subprocess
import sys
import unittest

SOURCE, DLL, RES, OBJDUMP = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3], sys.argv[4]
SIBLINGS = {"KVSPOOL.dll", "KVCORE.dll", "KVLIST.dll", "KVUIHOST.dll"}
PLATFORM = {"ADVAPI32.dll", "COMCTL32.dll", "comdlg32.dll", "GDI32.dll", "KERNEL32.dll", "SHELL32.dll",
            "USER32.dll", "VERSION.dll", "WS2_32.dll", "hhctrl.ocx", "msvcrt.dll"}
BITMAP, ICON, DIALOG, STRINGS, GROUP_ICON, VERSION = 2, 3, 5, 6, 14, 16


def objdump(*options):
    return subprocess.run([OBJDUMP, *options, DLL], capture_output=True, text=True, check=True).stdout


def compiled():
    """(type, name) -> bytes of a .res file: records of a header with two names, and data."""
    file, at, found = pathlib.Path(RES).read_bytes(), 0, {}

    def word():
        nonlocal at
        at += 2
        return struct.unpack_from("<H", file, at - 2)[0]

    def name():
        first = word()
        if first == 0xFFFF:
            return word()
        text = ""
        while first:
            text, first = text + chr(first), word()
        return text

    while at < len(file):
        begin = at
        size, header = struct.unpack_from("<II", file, at)
        at += 8
        key = (name(), name())
        data = begin + header
        if key != (0, 0):
            found[key] = file[data:data + size]
        at = (data + size + 3) & ~3
    return found


def linked(private):
    """The same of the DLL: where objdump says that each leaf of the resource tree lies."""
    section = re.search(r"\.rsrc +\w+ +(\w+) +\w+ +(\w+)", objdump("-h"))
    base = int(re.search(r"ImageBase\s+(\w+)", private)[1], 16)
    shift = int(section[2], 16) - (int(section[1], 16) - base)
    file, path, found = DLL.read_bytes(), {}, {}
    for line in private[private.index("The .rsrc Resource Directory"):].splitlines():
        entry = re.match(r"\w+ ( *)Entry: (?:ID: 0x(\w+)|name: \[val: \w+ len \d+\]: (.*?)), Value", line)
        if entry:
            path[len(entry[1])] = entry[3] or int(entry[2], 16)
        leaf = re.match(r"\w+ +Leaf: Addr: 0x(\w+), Size: 0x(\w+)", line)
        if leaf:
            kind, name = (path[depth] for depth in sorted(path)[:2])
            begin = int(leaf[1], 16) + shift
            found[kind, name] = file[begin:begin + int(leaf[2], 16)]
    return found


class Library(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.private = objdump("-p")

    def test_exports_are_those_of_the_list(self):
        table = self.private[self.private.index("[Ordinal/Name Pointer] Table"):]
        exported = re.findall(r"^\s+\[ *\d+\](?: \+base\[ *\d+\] +\w+)? (\w+)$", table, flags=re.M)
        self.assertEqual(sorted(exported), sorted((SOURCE / "module/exports.map").read_text().split()))
        self.assertEqual(len(exported), 24)

    def test_imports_are_the_platforms_and_the_siblings(self):
        imported = set(re.findall(r"DLL Name: (\S+)", self.private))
        self.assertEqual(imported - PLATFORM, SIBLINGS)

    def test_resources_are_those_of_the_stand_in_byte_for_byte(self):
        wanted, inside = compiled(), linked(self.private)
        self.assertEqual(sorted(map(str, inside)), sorted(map(str, wanted)))
        for key, data in wanted.items():
            self.assertEqual(inside[key], data, key)
        # What the sources say there is, whatever windres made of them.
        scripts = "".join(path.read_text() for path in (SOURCE / "module/resources").rglob("*.rc"))
        dialogs = re.findall(r"^(\w+) +DIALOG(?:EX)?\b", scripts, flags=re.M)
        self.assertGreater(len(dialogs), 20)
        self.assertEqual({str(name) for kind, name in inside if kind == DIALOG}, set(dialogs))
        for kind, least in (BITMAP, 100), (ICON, 10), (GROUP_ICON, 10), (STRINGS, 40), ("TRC", 10), ("GCRBG", 1):
            self.assertGreaterEqual(sum(key[0] == kind for key in inside), least, kind)

    def test_the_version_can_be_read(self):
        version = linked(self.private)[VERSION, 1]
        project = re.search(r"project\(kvprefs VERSION (\d+)\.(\d+)\.(\d+)", (SOURCE / "CMakeLists.txt").read_text())
        fixed = version.index(struct.pack("<I", 0xFEEF04BD))
        high, low = struct.unpack_from("<II", version, fixed + 8)
        self.assertEqual((high >> 16, high & 0xFFFF, low >> 16), tuple(map(int, project.groups())))
        texts = version.decode("utf-16-le", errors="replace")
        self.assertRegex(texts, "OriginalFilename\0+KVUIMOD.DLL\0")
        self.assertRegex(texts, "ProductName\0+Varnell Tessora 7720MF\0")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
