#!/usr/bin/env python3
"""Checks the house rules that a compiler does not.

Without arguments: who includes whom, in which order the folders of a layer stand, that every folder has
its five-line README, that ids, captions and messages are said by their names (lint_names.py), and that the
headers of platform/include declare what the genuine ones do. The last needs the cross compiler: without it,
it is left out with a note; with --complete that is a fault.
With --linked DIR: which libraries the built programs link, what the module exports, and that
framework/exports lists what the siblings do.
Prints one line per fault; exit status 1 when there is any.
"""
import pathlib
import re
import subprocess
import sys

import header_comparison
import lint_names

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCES = {".cpp", ".h", ".c", ".inc"}

# layer -> layers whose headers it may include
ALLOWED = {
    "module": {"module", "framework", "platform"},
    "framework": {"framework", "platform"},
    "platform": {"platform"},
    "host": {"host", "framework", "platform"},
}
# layer -> its folders; each includes itself and those before it. Files beside them are left out.
FOLDER_ORDER = {
    "module": ["resources", "sheet", "lists", "settings", "dialog", "rules", "binding", "preview", "device",
               "support", "ui"],
    "host": ["qt", "picture", "index", "record", "controls", "window", "commands"],
}
# The module sees the layers below only through these folders.
MODULE_SEES = {"framework/include", "platform/include"}
# Numbers and their names, nothing else: the host finds controls and texts of the module by them.
MODULE_IDS = {"module/resources/resource.h", "module/resources/string_ids.h"}
# What the module says without a sheet, built for the host as well (kvuimod_answers).
MODULE_ANSWERS = {"module/device/port_address.h", "module/device/printer_answer.h",
                  "module/lists/overlay_entries.h"}
# Headers of the host system that the module must do without.
NOT_IN_MODULE = re.compile(r"<(unistd|fcntl|sys/|dlfcn|pthread|Q[A-Z]|gtk|png|sqlite3)")
# Headers whose genuine forms declare nothing before <windows.h> has; ours are less strict.
BEHIND_WINDOWS = {"commctrl.h", "commdlg.h", "htmlhelp.h", "prsht.h", "shellapi.h", "winspool.h"}
README_POINTS = ("purpose", "where to start", "what it may use", "what must not be here", "its tests")


def header_index():
    """Header path as it may be written -> layer folder it lies in."""
    index = {}
    for layer in ALLOWED:
        for path in (ROOT / layer).rglob("*.h"):
            index.setdefault(path.name, set()).add(path.relative_to(ROOT).as_posix())
    return index


def include_faults():
    index = header_index()
    for layer, allowed in ALLOWED.items():
        for path in sorted((ROOT / layer).rglob("*")):
            if path.suffix not in SOURCES:
                continue
            where = path.relative_to(ROOT).as_posix()
            is_first = True
            for number, line in enumerate(path.read_text(errors="replace").splitlines(), 1):
                match = re.match(r'\s*#\s*include\s*([<"])([^>"]+)[>"]', line)
                if not match:
                    continue
                name = match.group(2)
                found = [h for h in index.get(pathlib.PurePath(name).name, ())
                         if h.endswith("/" + name) or h == name]
                layers = {h.split("/")[0] for h in found}
                if layers and not layers & allowed and not (
                        layer == "host" and name in MODULE_IDS | MODULE_ANSWERS):
                    yield f"{where}:{number}: {layer} includes {name} of {sorted(layers)[0]}"
                if layer != "module" or where.startswith("module/resources/draw"):
                    continue
                if is_first and name in BEHIND_WINDOWS:
                    yield f"{where}:{number}: include <windows.h> before <{name}>, as its genuine form wants"
                is_first = False
                if NOT_IN_MODULE.match(f"<{name}"):
                    yield f"{where}:{number}: the module includes {name}, which its platform lacks"
                if found and "module" not in layers and not any(
                        h.startswith(folder) for h in found for folder in MODULE_SEES):
                    yield f"{where}:{number}: the module includes the inner header {name}"


def order_faults(layer, order):
    """Includes that go against the order of a layer's folders."""
    headers = {path.relative_to(ROOT / layer).as_posix() for path in (ROOT / layer).rglob("*.h")}
    for path in sorted((ROOT / layer).glob("*/**/*")):
        if path.suffix not in SOURCES:
            continue
        folder = path.relative_to(ROOT / layer).parts[0]
        if folder not in order:
            yield f"{path.relative_to(ROOT)}: {folder} has no place in the order of {layer}"
            continue
        names = re.findall(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', path.read_text(errors="replace"), re.M)
        for name in (n.removeprefix(f"{layer}/") for n in names):
            other = name.split("/")[0]
            if name in headers and other in order and order.index(other) > order.index(folder):
                yield f"{path.relative_to(ROOT)}: {folder} comes before {other}, but includes {name}"


def readme_faults():
    for layer in [*ALLOWED, "tests", "bench", "tools", "models"]:
        for folder in sorted([ROOT / layer, *(ROOT / layer).iterdir()]):
            if not folder.is_dir() or not any(f.suffix in SOURCES | {".py", ".rc", ".ini"}
                                              for f in folder.iterdir() if f.is_file()):
                continue
            where = folder.relative_to(ROOT).as_posix()
            readme = folder / "README.md"
            if not readme.is_file():
                yield f"{where}: no README.md"
                continue
            lines = [line for line in readme.read_text().splitlines() if line.strip()]
            if len(lines) != len(README_POINTS):
                yield (f"{where}/README.md: expected {len(README_POINTS)} lines: "
                       f"{', '.join(README_POINTS)}")


def linked_faults(folder):
    bin_dir = pathlib.Path(folder)
    for name in ("kvprefs", "libkvuimod.so", "libkvplatform.so"):
        out = subprocess.run(["ldd", bin_dir / name], capture_output=True, text=True).stdout
        for line in out.splitlines():
            if "libQt" in line:
                yield f"{name} links {line.split()[0]}"
    for path in sorted([bin_dir / "kvprefs", *bin_dir.glob("lib*.so")]):
        out = subprocess.run(["readelf", "-d", path], capture_output=True, text=True, check=True).stdout
        for runpath in re.findall(r"runpath: \[(.*)\]", out):
            # An empty entry is the folder that the user happens to be in.
            if not all(entry.startswith("$ORIGIN") for entry in runpath.split(":")):
                yield f"{path.name} looks for libraries in {runpath}"
    wanted = set((ROOT / "module/exports.map").read_text().split())
    out = subprocess.run(["nm", "-D", "--defined-only", bin_dir / "libkvuimod.so"],
                         capture_output=True, text=True, check=True).stdout
    exported = {line.split()[-1] for line in out.splitlines()}
    for name in sorted(exported - wanted):
        yield f"libkvuimod.so exports {name}, which exports.map does not name"
    for name in sorted(wanted - exported):
        yield f"libkvuimod.so does not export {name}"
    if not exported:
        yield "libkvuimod.so exports nothing"
    yield from sibling_faults(bin_dir)


def sibling_faults(bin_dir):
    """The import libraries of the genuine build are made from these lists."""
    for path in sorted((ROOT / "framework/exports").glob("*.def")):
        where = path.relative_to(ROOT)
        text = re.sub(r";.*", "", path.read_text())
        listed = set(text.split("EXPORTS")[1].split())
        out = subprocess.run(["nm", "-D", "--defined-only", bin_dir / f"lib{path.stem}.so"],
                             capture_output=True, text=True, check=True).stdout
        # C names only: what C++ offers besides is the host's and the siblings' own.
        exported = set(re.findall(r" T ([A-Za-z]\w*)$", out, flags=re.M))
        for name in sorted(exported - listed):
            yield f"{where}: add {name}: lib{path.stem}.so exports it, so the module may call it"
        for name in sorted(listed - exported):
            yield (f"{where}: {name} is not exported by lib{path.stem}.so: declare it in extern \"C\" and "
                   f"define it with the declared types, or take it out of the list")


def main():
    if len(sys.argv) == 3 and sys.argv[1] == "--linked":
        faults = list(linked_faults(sys.argv[2]))
    elif sys.argv[1:] in ([], ["--complete"]):
        faults = [*include_faults(), *readme_faults(), *lint_names.faults(ROOT)]
        for layer, order in FOLDER_ORDER.items():
            faults += order_faults(layer, order)
        lacking = header_comparison.missing()
        if not lacking:
            faults += header_comparison.faults(ROOT)
        elif sys.argv[1:]:
            faults.append(lacking)
        else:
            print(f"lint: headers are not compared with the genuine ones: {lacking}", file=sys.stderr)
    else:
        print(__doc__)
        return 2
    for fault in faults:
        print(f"lint: {fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
