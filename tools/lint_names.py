"""Checks that ids, captions, messages and stored fields are said by their names. lint.py calls it.

Tests are left out: their numbers and texts are the second, independent entry that the code is held against.
"""
import collections
import re

ID_HEADERS = ("module/resources/resource.h", "module/resources/string_ids.h",
              "module/resources/picture_ids.h")
SUFFIXES = {".cpp", ".h", ".rc"}

# Places of numbers that are no ids, taken out of a line before it is searched.
NOT_IDS = (
    r"\.helpTopic = \d+",
    r"\bEntry\(ID\w+, *\d+",  # an entry's value
    r"\bDigits\([\d, ]+",     # what an edit takes
    r"/ 1000\b",
)
# A row of settings/ that begins with its id may have one number more, its help topic.
ROW_WITH_TOPIC = re.compile(r"^(\s+\w* *[({]ID\w+,.*)\b\d{4}\b")
# Named numbers that are no ids. Powers of two are none either, nor is the largest number of a word.
NAMED = {"kBitmapRows", "kFarAway", "kFirstPaperKey", "kLineOfReadControl", "kRawPort", "kRecordSize",
         "kScrollFromValueEdit"}
# Calls that take an id, with a number for it.
ID_CALL = re.compile(r"\b(?:\w*(?:DlgItem\w*|DlgButton\w*|LoadString\w*)\([^,()]+, *|"
                     r"(?:MAKEINTRESOURCE\w*|ItemById)\()(\d+)")

# The one list of captions.
CAPTIONS = "module/dialog/dialog_table.cpp"
# Tables whose names for controls and entries are those of the rules file, whatever the captions are.
RULE_NAMES = {"module/settings/catalogue_lists.h", "module/settings/catalogue_rows.cpp"}
# Texts that look like captions and are none, and why.
NOT_CAPTIONS = {
    "a key, a value or a name that others gave": {
        "Password", "Watermark", "MS Sans Serif", "VARNELL Tessora 7720MF TCP/IP Port",
        "Standard TCP/IP Port", "LPR Port", "Server Name", "Tarrow Port+"},
    "the printer's job language": {
        r"@PJL INFO STATUS\r\nCODE=999999\r\n\f", r"#GET#\n@PJL INFO DSTATUS",
        r"#GET#\n@PJL INFO CONFIG", "@PJL INFO CONFIG"},
    "said when the string table may be what is missing": {
        "Driver halt at line %d of Su_cmn.", "UI Halt Message", "Error", "Code : 0x7F7F ",
        "CreateDialog Result", "CommonViewDialog Failed"},
    "words of the command line and of its files": {"mm", "inch", "unit"},
    "for support, nobody else reads it": {"entryOfRow holds positions in a byte"},
    "the name of an icon, for screen readers": {"Warning"},
}
SHOWS = re.compile(r"\b(?:SetWindowText|SetDlgItemText|MessageBox|ShowMessage|TextOut|DrawText)\w*\("
                   r"[^;\"]*\"")

LAYOUT = "framework/include/record_layout.h"
# What names every stored field, whether it is used or not.
RECORD_FILES = {LAYOUT, "module/sheet/private_devmode.h", "module/settings/setting_field.cpp"}

TOKEN = re.compile(r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'|//[^\n]*|/\*.*?\*/', re.S)
MESSAGE = re.compile(r"constexpr UINT (k\w+) = (WM_(?:USER|APP) \+ \d+);")


def sources(root, folders):
    for folder in folders:
        for path in sorted((root / folder).rglob("*")):
            where = path.relative_to(root).as_posix()
            if path.suffix in SUFFIXES and where not in ID_HEADERS:
                yield where, path.read_text(errors="replace")


def without(text, is_gone):
    """The text with comments taken out, and literals too when is_gone says so; lines stay."""
    def kept(match):
        token = match.group()
        return "\n" * token.count("\n") if token[0] == "/" or is_gone(token) else token
    return TOKEN.sub(kept, text)


def ids(root):
    numbers = set()
    for header in ID_HEADERS:
        numbers |= {int(n) for n in re.findall(r"^#define ID\w+\s+(\d+)", (root / header).read_text(),
                                               re.M)}
    return numbers


def raw_numbers(where, line, known):
    """Numbers of a line that can only be ids."""
    yield from ID_CALL.findall(line)
    for place in NOT_IDS:
        line = re.sub(place, "", line)
    if where.startswith("module/settings/"):
        line = ROW_WITH_TOPIC.sub(r"\1", line)
    name = re.search(r"constexpr [\w ]+ (k\w+) = ", line)
    if name and name.group(1) in NAMED:
        return
    for text in re.findall(r"(?<![\w.])[1-9]\d{3,4}(?![\w.])", line):
        number = int(text)
        if where.startswith("module/"):
            if number & (number - 1) and number != 0x7FFF:
                yield text
        elif number in known and number % 1000:
            yield text


def id_faults(root):
    known = ids(root)
    for where, text in sources(root, ("module", "host", "tools")):
        for number, line in enumerate(without(text, lambda _: True).splitlines(), 1):
            if "VALUE ," in line:
                continue  # a version resource: language and code page
            for raw in dict.fromkeys(raw_numbers(where, line, known)):
                yield f"{where}:{number}: {raw} needs a name in an id header of module/resources"


def plain(caption):
    return re.sub(r"[.: ]+$", "", caption.replace("&", ""))


def captions(root):
    found = set()
    for path in (root / "module/resources").glob("*/*.rc"):
        found |= {plain(text) for text in re.findall(r'"((?:[^"]|"")+)"', path.read_text())}
    # Not those that are classes, templates or signs.
    return {text for text in found if re.search("[a-z]{2}", text)}


def caption_faults(root):
    known = captions(root)
    none = set().union(*NOT_CAPTIONS.values())
    used = set()
    for where, text in sources(root, ("module", "host")):
        if where.startswith("module/resources/") or where == CAPTIONS or where in RULE_NAMES:
            continue
        for number, line in enumerate(without(text, lambda token: False).splitlines(), 1):
            if line.lstrip().startswith("#"):
                continue
            shown = SHOWS.search(line)
            for literal in re.findall(r'"((?:\\.|[^"\\])*)"', line):
                words = re.search("[A-Za-z]{2,} [A-Za-z]{2,}", literal) or (
                    shown and re.search("[A-Za-z]{2}", literal))
                if plain(literal) not in known and not (words and where.startswith("module/")):
                    continue
                used.add(literal)
                if literal not in none:
                    yield (f'{where}:{number}: "{literal}" is a caption: it belongs into '
                           f"module/resources/strings or {CAPTIONS}")
    for literal in sorted(none - used):
        yield f'tools/lint_names.py: nothing says "{literal}" any more'


def message_faults(root):
    names = collections.defaultdict(set)
    for where, text in sources(root, ("module", "framework", "host")):
        for number, line in enumerate(without(text, lambda token: False).splitlines(), 1):
            message = MESSAGE.search(line)
            if message and where.endswith(".h"):
                names[message.group(2)].add((message.group(1), f"{where}:{number}"))
            elif re.search(r"\bWM_(USER|APP)\b", line):
                yield f"{where}:{number}: give the message a name in a header, as a constant of its own"
    for offset, known in names.items():
        for name, place in sorted(known)[1:]:
            yield f"{place}: {name} is {offset}, which {min(known)[0]} names already"


def carried_faults(root):
    """Stored fields that are marked as unused and are used, or the other way."""
    fields = re.findall(r"^\s+X\((\w+),.*?\)( /\* carried)?", (root / LAYOUT).read_text(), re.M)
    code = "".join(without(text, lambda token: False)
                   for where, text in sources(root, ("module", "framework", "host"))
                   if where not in RECORD_FILES and not where.endswith(".rc"))
    for field, carried in fields:
        if bool(re.search(rf'(?:\.|->|, |"){field}\b(?!\()', code)) == bool(carried):
            yield f"{LAYOUT}: {field} is " + ("not only carried" if carried else "carried: nothing uses it")


def faults(root):
    return [*id_faults(root), *caption_faults(root), *message_faults(root), *carried_faults(root)]
