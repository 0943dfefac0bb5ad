"""Compares what platform/include declares with the genuine platform's public headers.

lint.py calls it. Each value, type, field and prototype becomes one check of a C++ file that the cross
compiler reads: the genuine headers as they are, ours preprocessed and put into a namespace. Nothing of it
is run.
"""
import pathlib
import re
import shutil
import subprocess
import tempfile

COMPILER = "x86_64-w64-mingw32-g++"
# The genuine headers want these before all others.
FIRST = ("winsock2.h", "windows.h", "commctrl.h")
# Names that the genuine headers lack, and why we have them all the same.
NOT_COMPARED = {}
# Arguments for macros and functions that compute: what they give is compared.
SAMPLES = ("0u", "1u", "0x12345678u", "0xFFFFFFFFu", "0x8000u")

# What a declaration looks like, once comments are gone and blanks are single: kind, pattern (name, rest).
# A declaration that fits none is a fault, so that nothing escapes the comparison.
PATTERNS = (
    ("value", r"constexpr [\w ]+[ *](\w+) =(.*);"),
    ("computed", r"(?:constexpr|inline) [\w ]+[ *](\w+)\((.*?)\) \{.*\}"),
    ("type", r"using (\w+) =(.*);"),
    ("class", r"struct (\w+)();"),
    ("structure", r"struct (\w+) \{(.*)\};"),
    ("enumeration", r"enum (\w+) \{(.*)\};"),
    ("function", r"\w+ ?\*? ?WINAPI (\w+)(\(.*\));"),
    (None, r"()static_assert(\(.*\));"),
)

# A constant expression may not make a pointer of a number: where numbers are compared, these names of
# pointers are numbers.
POINTERS = ("HANDLE", "HKEY", "HWND", "LPSTR")

PREAMBLE = r"""
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <type_traits>
#include <utility>
%s
namespace kvcompare {
template <class>
struct Genuine;
template <class T>
constexpr bool kNumber = std::is_integral_v<T> && !std::is_const_v<T>;
// A class of ours that stands for one of the platform's.
template <class Ours, class Genuine>
struct Paired : std::false_type {};
// The hosts call numbers by different names: those of one size and sign are the same.
template <class Ours, class Genuine>
struct Same
    : std::bool_constant<std::is_same_v<Ours, Genuine> || Paired<Ours, Genuine>::value ||
                         (kNumber<Ours> && kNumber<Genuine> &&
                          std::numeric_limits<Ours>::digits == std::numeric_limits<Genuine>::digits &&
                          std::is_signed_v<Ours> == std::is_signed_v<Genuine>)> {};
template <class Ours, class Genuine>
struct Same<Ours*, Genuine*> : Same<Ours, Genuine> {};
template <class Ours, class Genuine>
struct Same<const Ours, const Genuine> : Same<Ours, Genuine> {};
template <class Ours, class Genuine, std::size_t count>
struct Same<Ours[count], Genuine[count]> : Same<Ours, Genuine> {};
template <class Ours, class... OurArguments, class Genuine, class... GenuineArguments>
struct Same<Ours(OurArguments...), Genuine(GenuineArguments...)> {
    static constexpr bool Arguments() {
        if constexpr (sizeof...(OurArguments) == sizeof...(GenuineArguments)) {
            return (Same<OurArguments, GenuineArguments>::value && ...);
        } else {
            return false;
        }
    }
    static constexpr bool value = Same<Ours, Genuine>::value && Arguments();
};
}  // namespace kvcompare
"""


class Declaration:
    def __init__(self, kind, name, detail, path, line):
        self.kind, self.name, self.detail, self.path, self.line = kind, name, detail, path, line


def without_comments(text):
    """Comments become blanks; lines stay where they are."""
    text = re.sub(r"/\*.*?\*/", lambda match: re.sub(r"[^\n]", " ", match.group()), text, flags=re.S)
    return re.sub(r"//[^\n]*", "", text)


def statements(text):
    """(line, text) of each declaration: up to a semicolon outside of braces, or a function's body."""
    text = text.replace('extern "C" {', " " * len('extern "C" {'))
    depth, start, line, first = 0, 0, 1, None
    for at, char in enumerate(text):
        if char == "\n":
            line += 1
        if first is None and not char.isspace():
            first, start = line, at
        depth += (char == "{") - (char == "}")
        ends_body = char == "}" and depth == 0 and re.match(r"(constexpr|inline)\b[^=]*\(", text[start:at])
        if depth < 0:  # the end of extern "C"
            depth, first = 0, None
        elif depth == 0 and (char == ";" or ends_body):
            yield first, " ".join(text[start:at + 1].split())
            first = None


def declarations(path):
    text = without_comments(path.read_text()).replace("\\\n", "  ")
    for line, directive in enumerate(text.splitlines(), 1):
        match = re.match(r"\s*#\s*define\s+(\w+)(?:\((.*?)\))?\s*(.*)", directive)
        if match and match[3]:
            yield Declaration("value" if match[2] is None else "computed", match[1], match[2], path, line)
    for line, statement in statements(re.sub(r"^[ \t]*#.*$", "", text, flags=re.M)):
        for kind, pattern in PATTERNS:
            match = re.fullmatch(pattern, statement)
            if match:
                if kind:
                    yield Declaration(kind, match[1], match[2], path, line)
                break
        else:
            yield Declaration("unknown", statement[:60], "", path, line)


class Comparison:
    """The text of the C++ file: what the genuine names mean, before their macros are undone; our headers;
    the checks. Lines are numbered as those of our headers, so that errors point there."""

    def __init__(self, root, headers):
        self.root, self.headers = root, headers
        self.expressions, self.captures, self.pairs, self.checks = [], [], [], []

    def add(self, d):
        line = f'#line {d.line} "{d.path.relative_to(self.root)}"\n'
        for part, text in getattr(self, "of_" + d.kind)(d):
            part.append((line, text))

    def value(self, key, expression):
        """`expression` means something with both headers; with ours the preprocessor spells it out."""
        self.expressions.append((key, expression))
        yield self.captures, (key, expression, CAPTURES)
        yield self.checks, (key, None, CHECKS)

    def of_value(self, d):
        return self.value(d.name, d.name)

    def of_computed(self, d):
        arity = len(d.detail.split(","))
        for first in range(len(SAMPLES)):
            arguments = ", ".join((SAMPLES[first:] + SAMPLES)[:arity])
            yield from self.value(f"{d.name}_{first}", f"{d.name}({arguments})")

    def type(self, name, genuine, ours):
        yield self.captures, f"using genuine_{name} = {genuine};"
        yield self.checks, (f"std::conditional_t<kvcompare::Same<{ours}, genuine_{name}>::value, char, "
                            f"kvcompare::Genuine<genuine_{name}>> check_{name};")

    def of_type(self, d):
        return self.type(d.name, f"::{d.name}", f"ours::{d.name}")

    def of_function(self, d):
        return self.type(d.name, f"decltype(::{d.name})", f"decltype(ours::{d.name})")

    def of_class(self, d):
        yield self.captures, f"using genuine_{d.name} = ::{d.name};"
        yield self.pairs, (f"template <> struct kvcompare::Paired<ours::{d.name}, genuine_{d.name}> "
                           ": std::true_type {};")

    def of_enumeration(self, d):
        yield from self.of_class(d)
        for enumerator in d.detail.split(","):
            name = enumerator.split("=")[0].strip()
            yield from self.value(name, name)

    def of_structure(self, d):
        yield from self.of_class(d)
        yield self.checks, (f"static_assert(sizeof(ours::{d.name}) == sizeof(genuine_{d.name}), "
                            f"\"{d.name} has another size\");")
        for field in re.findall(r"(\w+)(?:\[\w+\])* ?;", d.detail):
            name = f"{d.name}_{field}"
            yield from self.value(f"offset_of_{name}", f"__builtin_offsetof({d.name}, {field})")
            member = f"std::remove_reference_t<decltype(std::declval<%s{d.name}&>().{field})>"
            yield from self.type(name, member % "::", member % "ours::")

    def expanded(self, folder):
        """Our headers without their macros, and what the expressions become."""
        for name in ("cstdint", "sys/types.h"):
            (folder / name).parent.mkdir(exist_ok=True)
            (folder / name).write_text("")
        source = folder / "ours.cpp"
        source.write_text("".join(f"#include <{path.name}>\n" for path in self.headers) +
                          "".join(f"kv_{key}: {text}\n" for key, text in self.expressions))
        out = subprocess.run([COMPILER, "-E", "-nostdinc", "-I", folder, "-I", self.headers[0].parent, source],
                             capture_output=True, text=True, check=True).stdout
        expansions = dict(re.findall(r"^kv_(\w+):\s*(.*)$", out, flags=re.M))
        ours = re.sub(r"^kv_\w+:.*$", "", out, flags=re.M).replace('extern "C"', 'extern "C++"')
        return ours, expansions

    def text(self, folder):
        ours, expansions = self.expanded(folder)

        def written(part):
            for line, text in part:
                if isinstance(text, tuple):
                    key, expression, forms = text
                    text = forms[sort_of(expansions[key])].format(
                        key=key, genuine=expression, ours=expansions[key])
                yield line + text

        genuine = "".join(f"#include <{name}>\n" for name in [*FIRST, *(path.name for path in self.headers)])
        names = set(re.findall(r"[A-Za-z_]\w*", ours + " ".join(expansions.values())))
        pointers = " ".join(f"using {name} = std::uint64_t;" for name in POINTERS)
        numbers = f"namespace kvnumbers {{ {pointers} }}"
        return "\n".join([PREAMBLE % genuine, numbers, *written(self.captures),
                          *(f"#undef {name}" for name in sorted(names)), "namespace ours {", ours, "}",
                          *written(self.pairs), "namespace ours {", numbers, *written(self.checks), "}", ""])


# How a value is compared: by what our header makes of it.
CAPTURES = {
    "text": "constexpr std::string_view genuine_{key} = {genuine};",
    "list": "constexpr int genuine_{key}[] = {genuine};",
    "type": "using genuine_{key} = {genuine};",
    "number": "namespace kvnumbers {{ constexpr auto genuine_{key} = std::uint64_t({genuine}); }}",
}
CHECKS = {
    "text": "static_assert(std::string_view({ours}) == genuine_{key}, \"{key} has another text\");",
    "list": "constexpr int ours_{key}[] = {ours};\n"
            "static_assert(std::ranges::equal(ours_{key}, genuine_{key}), \"{key} has other values\");",
    "type": "std::conditional_t<kvcompare::Same<{ours}, genuine_{key}>::value, char, "
            "kvcompare::Genuine<genuine_{key}>> check_{key};",
    "number": "namespace kvnumbers {{ constexpr auto ours_{key} = std::uint64_t({ours}); }}\n"
              "static_assert(kvnumbers::ours_{key} == ::kvnumbers::genuine_{key}, \"{key} has another value\");",
}


def sort_of(expansion):
    if expansion.startswith('"'):
        return "text"
    if expansion.startswith("{"):
        return "list"
    return "type" if expansion == "ULONG" else "number"  # a type that is a macro of ours


# Errors that follow from one already told.
CASCADE = re.compile(r"template argument \d|.genuine_\w+. was not declared")


def readable(errors):
    """The compiler's errors, one line each; what a comparison reduces to follows its error."""
    lines, seen = [], set()
    for line in errors.splitlines():
        match = re.match(r"(\S+?):(\d+):(?:\d+:)? (error|note): (.*)", line)
        if not match:
            continue
        reduced = re.search(r"reduces to .\((\w+) == (\w+)\)", match[4])
        if match[3] == "error" and CASCADE.search(match[4]):
            continue
        if match[3] == "note":
            if reduced and lines:
                lines[-1] += f": {reduced[1]}, genuinely {reduced[2]}"
            continue
        other = re.search(r"Genuine<(.*?)> ?>? ours::check_(\w+)", match[4])
        text = f"{other[2]} is genuinely {other[1]}" if other else match[4]
        text = text.replace("static assertion failed: ", "")
        line = f"{match[1]}:{match[2]}: {text}"
        if line not in seen:
            seen.add(line)
            lines.append(line)
    return lines


def missing():
    """What the comparison lacks on this machine, in words; nothing when it can be made."""
    return None if shutil.which(COMPILER) else f"{COMPILER} is missing: run tools/setup.sh test"


def faults(root):
    """One line for each difference."""
    headers = sorted((root / "platform/include").glob("*.h"))
    found = [d for path in headers for d in declarations(path)]
    lines = [f"{d.path.relative_to(root)}:{d.line}: not understood: {d.name}"
             for d in found if d.kind == "unknown"]
    lines += [f"tools/header_comparison.py: {name} is excepted, but no header declares it"
              for name in sorted(set(NOT_COMPARED) - {d.name for d in found})]
    comparison = Comparison(root, headers)
    defined = {d.name for d in found if d.kind == "structure"}
    for d in found:
        if d.kind == "class":
            if d.name in defined:
                continue
            defined.add(d.name)
        if d.kind != "unknown" and d.name not in NOT_COMPARED:
            comparison.add(d)
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder) / "comparison.cpp"
        source.write_text(comparison.text(source.parent))
        result = subprocess.run([COMPILER, "-std=c++20", "-fsyntax-only", "-w", "-fmax-errors=0", source],
                                capture_output=True, text=True)
    told = readable(result.stderr)
    if result.returncode != 0 and not told:
        told = ["the comparison with the genuine headers failed: " + result.stderr]
    return lines + told
