#!/usr/bin/env python3
"""Finds rules whose loss no test would notice.

Changes one thing of a C++ source at a time (a condition negated, a statement or a row's field left
out, a constant or an operator changed), builds that object and what links it, runs the test
programs that depend on it and lists the changes that all of them passed.

    tools/mutants.py module/ui                     a sample of the folder
    tools/mutants.py module/dialog/help.cpp --sample 0 every change of one file
    tools/mutants.py module/dialog/help.cpp:40-52      every change of these lines
    tools/mutants.py --list module/dialog/help.cpp     names the changes, tries nothing

Works on a copy of the tree in build/mutants, which the first run builds whole; the tree itself is
only read. A change that survives is either a rule without a test, or makes no difference: read it.
"""
import argparse
import concurrent.futures
import json
import os
import pathlib
import random
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
# In the order in which they are run: those that notice most in least time come first.
PROGRAMS = ["module_tests", "framework_tests", "platform_tests", "journey_tests", "host_tests"]
# Nothing here has to outlive a power cut.
QUICK_SYNC = """
int fsync(int file) { (void)file; return 0; }
int fdatasync(int file) { (void)file; return 0; }
"""


# --- what can be changed --------------------------------------------------------------------------

class Change:
    def __init__(self, path, start, end, text, what):
        self.path, self.start, self.end, self.text, self.what = path, start, end, text, what

    def complete(self, source):
        """Fills in what stood there before, and the words for it."""
        before = source[self.start:self.end]
        self.text = self.text.replace("{}", before)
        self.line = source.count("\n", 0, self.start) + 1
        shown = []
        for text in (before, self.text):
            text = " ".join(text.split())
            shown.append(text if len(text) <= 90 else text[:87] + "...")
        change = shown[0] if shown[1] in ("", ";") else "  ->  ".join(shown)
        self.words = f"{self.path}:{self.line}: {self.what}: {change}"


def masked(source):
    """The source with comments, texts and preprocessor lines blanked out, place by place."""
    pattern = re.compile(r'//[^\n]*|/\*.*?\*/|R"\(.*?\)"|"(?:\\.|[^"\\\n])*"'
                         r"|'(?:\\.|[^'\\\n])+'|^[ \t]*#[^\n]*(?:\\\n[^\n]*)*", re.S | re.M)
    blank = (lambda match: re.sub(r"[^\n]", " ", match.group()))
    # Digit separators are no quotes.
    return pattern.sub(blank, re.sub(r"(?<=\d)'(?=\d)", "_", source))


def closing(code, opening):
    """Where the bracket that opens at `opening` is closed."""
    depth = 0
    for at in range(opening, len(code)):
        if code[at] in "([{":
            depth += 1
        elif code[at] in ")]}":
            depth -= 1
            if depth == 0:
                return at
    return len(code) - 1


DECLARATION = re.compile(r"(?:const|constexpr|static|auto|using|typedef|struct|class|enum|template|"
                         r"friend|extern|namespace|public|private|protected)\b|"
                         r"[\w:]+(?:<[^;]*>)?[\s*&]+\w")
KEYWORD = re.compile(r"(?:return|break|goto|throw|case|default|delete|do|else)\b")
HEADER = re.compile(r"(?:else\s+)?(?:if|for|while|switch)\s*(?:constexpr\s*)?(?=\()|else\b|"
                    r"(?:case\s[^:;{}]*(?:::[^:;{}]*)*|default\s*):(?!:)")


def is_code_block(code, at, begin):
    """Whether the brace at `at` opens statements; `begin` is where its statement begins."""
    before = code[begin:at].rstrip()
    if not before or re.search(r"(\)|\belse|\bdo|\bconst|\bnoexcept|\boverride|:)$", before):
        return True
    return re.search(r"\)\s*(mutable\s*)?->\s*[\w:*&<> ]+$", before) is not None


def statements(code):
    """Begin and end of every statement inside a function, without the headers before it."""
    stack, begin = [], 0
    for at, char in enumerate(code):
        if char == "{":
            stack.append(("code" if is_code_block(code, at, begin) else "data", begin))
            begin = at + 1
        elif char == "(":
            stack.append(("(", begin))
        elif char in ")}" and stack:
            opened, outer = stack.pop()
            if opened == "code":
                # A function written inside a call ends here, the call does not.
                begin = outer if stack and stack[-1][0] == "(" else at + 1
            elif opened == "data":
                begin = outer
        elif char == ";" and stack and stack[-1][0] != "(":
            if stack[-1][0] == "code":
                yield begin, at + 1
            begin = at + 1
        elif char == ";" and not stack:
            begin = at + 1


def statement_changes(path, code):
    for begin, end in statements(code):
        while True:
            begin += len(code[begin:end]) - len(code[begin:end].lstrip())
            header = HEADER.match(code, begin, end)
            if not header:
                break
            begin = header.end()
            if begin < end and code[begin] == "(":
                begin = closing(code, begin) + 1
        text = code[begin:end]
        if text == ";":
            continue
        if text in ("return;", "continue;"):
            yield Change(path, begin, end, ";", "left out")
        elif not DECLARATION.match(text) and not KEYWORD.match(text):
            yield Change(path, begin, end, ";", "left out")


def ternary_begin(code, at):
    """Where the condition before the question mark at `at` begins."""
    depth = 0
    while at > 0:
        char = code[at - 1]
        if char in ")]}":
            depth += 1
        elif char in "([{":
            depth -= 1
        if depth < 0 or depth == 0 and (
                char in ",;?" or char == ":" and ":" not in (code[at - 2], code[at])
                or re.match(r"[^=!<>]=\s", code[at - 2:at + 1])):
            return at
        if depth == 0 and re.match(r"return\s", code[at - 1:at + 6]):
            return at + len("return") - 1
        at -= 1
    return at


def condition_changes(path, code):
    for match in re.finditer(r"\b(?:if|while)\s*\(", code):
        begin = match.end()
        end = closing(code, begin - 1)
        text = code[begin:end]
        if ";" in text or re.search(r"[^=!<>]=[^=]", text):
            continue  # declares what it tests
        if re.search(r" (==|!=) ", text) and not re.search(r"&&|\|\|", text):
            continue  # the operator's change says the same
        yield Change(path, begin, end, "!({})", "negated")
    for match in re.finditer(r"\s\?\s", code):
        begin, end = ternary_begin(code, match.start()), match.start()
        begin += len(code[begin:end]) - len(code[begin:end].lstrip())
        if begin < end:
            yield Change(path, begin, end, "!({})", "negated")


OPERATORS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||",
             "||": "&&", "+": "-", "-": "+", "*": "/", "&": "|", "|": "&"}
NUMBER = re.compile(r"(?<![\w.])(0[xX][0-9a-fA-F]+|\d+(?:\.\d+)?)([uUlLfF]*)(?![\w.])")


def token_changes(path, code):
    for match in re.finditer(r"(?<= )(==|!=|<=|>=|<|>|&&|\|\||\+|-|\*|&|\|)(?=[ \n])", code):
        yield Change(path, match.start(), match.end(), OPERATORS[match.group()], "operator")
    for match in re.finditer(r"\b(true|false)\b", code):
        other = "false" if match.group() == "true" else "true"
        yield Change(path, match.start(), match.end(), other, "constant")
    for match in NUMBER.finditer(code):
        digits, suffix = match.groups()
        if re.search(r"\w\[\s*$", code[:match.start()][-40:]):
            continue  # the length of a buffer
        if "." in digits:
            text = str(float(digits) + 1)
        elif digits[:2] in ("0x", "0X"):
            text = hex(int(digits, 16) * 2 or 1)
        else:
            text = str(int(digits) + 1)
        yield Change(path, match.start(), match.end(), text + suffix, "constant")
    for match in re.finditer(r"^[ \t]*(\.\w+ = [^;{}\n]*,)$", code, re.M):
        yield Change(path, match.start(1), match.end(1), "", "left out")


def changes_of(path, lines):
    source = (ROOT / path).read_text()
    code = masked(source)
    skipped = [(m.start(), m.end()) for m in re.finditer(r"static_assert\s*\([^;]*;", code)]
    found = []
    for make in (statement_changes, condition_changes, token_changes):
        for change in make(path, code):
            change.complete(source)
            inside = not lines or any(first <= change.line <= last for first, last in lines)
            if inside and not any(a <= change.start < b for a, b in skipped):
                found.append(change)
    return found


# --- building and running -------------------------------------------------------------------------

class Workshop:
    """One copy of the tree with its build."""
    def __init__(self, folder, jobs):
        self.folder, self.jobs = folder, jobs
        self.source, self.build = folder / "source", folder / "build"
        self.temp = folder / "temp"
        self.environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", TMPDIR=str(self.temp))

    def configure(self):
        self.copy_tree()
        self.temp.mkdir(exist_ok=True)
        linker = [f"-DCMAKE_{kind}_LINKER_FLAGS=-fuse-ld=lld" for kind in ("EXE", "SHARED")]
        # A build type of its own has no optimization: compiling takes longer than running.
        subprocess.run(["cmake", "-S", self.source, "-B", self.build, "-G", "Ninja",
                        "-DCMAKE_BUILD_TYPE=Mutants", "-DKV_QT=OFF",
                        *(linker if shutil.which("ld.lld") else [])],
                       check=True, stdout=subprocess.DEVNULL)

    def prepare(self, programs):
        subprocess.run(["ninja", "-C", self.build, f"-j{self.jobs}", *programs], check=True,
                       stdout=subprocess.DEVNULL)
        sync, library = self.folder / "sync.c", self.folder / "sync.so"
        sync.write_text(QUICK_SYNC)
        subprocess.run(["cc", "-shared", "-fPIC", "-o", library, sync], check=True)
        self.environment["LD_PRELOAD"] = str(library)
        entries = json.loads((self.build / "compile_commands.json").read_text())
        self.compiles = {os.path.relpath(e["file"], self.source): e for e in entries}
        self.links = {name: self.list_commands(name) for name in programs}

    def copy_tree(self):
        listed = subprocess.run(["git", "-C", ROOT, "ls-files", "-co", "--exclude-standard", "-z"],
                                check=True, capture_output=True, text=True).stdout.split("\0")
        wanted = {name for name in listed if name and (ROOT / name).is_file()}
        for name in wanted:
            target, data = self.source / name, (ROOT / name).read_bytes()
            if target.is_file() and target.read_bytes() == data:
                continue
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(data)
            shutil.copymode(ROOT / name, target)
        for path in self.source.rglob("*"):
            if path.is_file() and path.relative_to(self.source).as_posix() not in wanted:
                path.unlink()

    def list_commands(self, program):
        return subprocess.run(["ninja", "-C", self.build, "-t", "commands", program], check=True,
                              capture_output=True, text=True).stdout.splitlines()

    def objects_links(self, program, built):
        """Commands of `program` that link the object `built`, directly or through a library."""
        stale, commands = {built}, []
        for command in self.links[program]:
            match = re.search(r" -o (\S+)", command)
            if not match or " -c " in command:
                continue
            words = set(command.replace(match.group(), "").split())
            if words & stale:
                commands.append(command)
                # Whoever uses a shared library finds the new one when it starts.
                if not match.group(1).endswith(".so"):
                    stale.add(match.group(1))
        return commands

    def run_program(self, name, limit, *options):
        """Whether the program passes within `limit` seconds."""
        def bound():
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
        run = subprocess.Popen([self.build / "bin" / name, "--gtest_brief=1", *options],
                               cwd=self.temp, env=self.environment, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL,
                               start_new_session=True, preexec_fn=bound)
        try:
            return run.wait(limit) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            # What it started and left behind goes with it.
            try:
                os.killpg(run.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            run.wait()

    def measure(self, programs, factor):
        """Program -> the seconds it may take, and the filter that leaves out what fails anyway."""
        limits = {}
        report = self.folder / "tests.json"
        for name in programs:
            report.unlink(missing_ok=True)
            start = time.monotonic()
            self.run_program(name, 1200, f"--gtest_output=json:{report}")
            limit = max(10.0, factor * (time.monotonic() - start))
            if not report.exists():
                sys.exit(f"{name} ends early without any change: mend that first")
            suites = json.loads(report.read_text())["testsuites"]
            failing = [f"{suite['name']}.{test['name']}" for suite in suites
                       for test in suite["testsuite"] if "failures" in test]
            if failing:
                print(f"{name} without what fails anyway: {' '.join(failing)}", file=sys.stderr)
            limits[name] = (limit, "--gtest_filter=-" + ":".join(failing))
        return limits

    def attempt(self, change, limits):
        """None when the change does not compile, else the program that noticed it, or ""."""
        path = self.source / change.path
        source = path.read_text()
        entry = self.compiles[change.path]
        built = entry.get("output") or re.search(r" -o (\S+)", entry["command"]).group(1)
        built = os.path.relpath(os.path.join(entry["directory"], built), self.build)
        kept = self.build / (built + ".kept")
        shutil.copy2(self.build / built, kept)
        try:
            path.write_text(source[:change.start] + change.text + source[change.end:])
            environment = dict(os.environ, CCACHE_DISABLE="1")
            compiled = subprocess.run([*shlex.split(entry["command"]), "-w"], env=environment,
                                      cwd=entry["directory"], capture_output=True)
            if compiled.returncode != 0:
                return None
            done = set()
            for name in limits:
                for command in self.objects_links(name, built):
                    if command not in done:
                        subprocess.run(command, shell=True, cwd=self.build, check=True,
                                       capture_output=True)
                        done.add(command)
                limit, selection = limits[name]
                if not self.run_program(name, limit, "--gtest_fail_fast", selection):
                    return name
            return ""
        finally:
            path.write_text(source)
            os.replace(kept, self.build / built)
            shutil.rmtree(self.temp, ignore_errors=True)
            self.temp.mkdir()


# --- sampling and reporting -----------------------------------------------------------------------

def targets_of(arguments):
    """Relative path of each source -> ranges of lines to change, none for all."""
    found = {}
    for argument in arguments:
        match = re.fullmatch(r"(.+?)(?::(\d+)(?:-(\d+))?)?", argument)
        path = (pathlib.Path.cwd() / match.group(1)).resolve()
        lines = match.group(2) and (int(match.group(2)), int(match.group(3) or match.group(2)))
        if not path.exists():
            sys.exit(f"{argument}: no such file or folder")
        for file in sorted(path.rglob("*.cpp")) if path.is_dir() else [path]:
            ranges = found.setdefault(file.relative_to(ROOT).as_posix(), [])
            if lines:
                ranges.append(lines)
    return found


def queues_of(targets, size, random_source):
    """Folder -> its changes in the order in which they are tried, one per line while sampling."""
    queues = {}
    for path, lines in targets.items():
        folder = queues.setdefault(os.path.dirname(path), {})
        for change in changes_of(path, lines):
            folder.setdefault((path, change.line), []).append(change)
    for folder, by_line in queues.items():
        if size == 0:
            queues[folder] = [change for row in by_line.values() for change in row]
            continue
        rows = list(by_line.values())
        random_source.shuffle(rows)
        queues[folder] = [random_source.choice(row) for row in rows]
    return queues


def try_folder(folder, queue, size, workshops, limits):
    """Tries changes until `size` of them compiled (all when 0); returns tried, survivors."""
    lock, tried, survivors = threading.Lock(), [], []
    pending = iter(queue)

    def work(workshop):
        while True:
            with lock:
                change = None if size and len(tried) >= size else next(pending, None)
                if change is None:
                    return
                tried.append(change)
            begin = time.monotonic()
            by = workshop.attempt(change, limits)
            with lock:
                if by is None:
                    tried.remove(change)
                    continue
                if by == "":
                    survivors.append(change)
                print(f"{folder} {len(tried)}/{size or len(queue)}  "
                      f"{by or 'SURVIVED'} ({time.monotonic() - begin:.0f} s)  {change.words}",
                      file=sys.stderr, flush=True)

    with concurrent.futures.ThreadPoolExecutor(len(workshops)) as pool:
        list(pool.map(work, workshops))
    return tried, survivors


def programs_for(workshop, paths):
    """Test programs whose build has to do with one of the sources."""
    links = {name: "\n".join(workshop.list_commands(name)) for name in PROGRAMS}
    return [name for name in PROGRAMS if any(f"/{path}" in links[name] for path in paths)]


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("file", nargs="+", help="file, folder, file:line or file:first-last")
    parser.add_argument("--sample", type=int, help="changes per folder (40; 0: all)")
    parser.add_argument("--seed", type=int, default=1, help="of the sample (1)")
    parser.add_argument("--jobs", type=int, default=1, help="changes tried at once, each in a copy")
    parser.add_argument("--timeout", type=float, default=5,
                        help="a program notices when it takes so many times as long (5)")
    parser.add_argument("--scratch", type=pathlib.Path, default=ROOT / "build" / "mutants")
    parser.add_argument("--list", action="store_true", help="name the changes and end")
    options = parser.parse_args()
    targets = targets_of(options.file)
    size = options.sample
    if size is None:
        size = 0 if any(targets.values()) else 40
    queues = queues_of(targets, size, random.Random(options.seed))
    if options.list:
        for queue in queues.values():
            for change in queue[:size or None]:
                print(change.words)
        return
    print(f"seed {options.seed}", flush=True)
    workshops = [Workshop(options.scratch / str(i), os.cpu_count() // 2 or 1)
                 for i in range(options.jobs)]
    for workshop in workshops:
        workshop.configure()
    wanted = programs_for(workshops[0], targets)
    print(f"tests: {' '.join(wanted)}", flush=True)
    for workshop in workshops:
        workshop.prepare(wanted)
    limits = workshops[0].measure(wanted, options.timeout)
    figures = []
    for folder, queue in queues.items():
        tried, survivors = try_folder(folder, queue, size, workshops, limits)
        figures.append((folder, len(tried), len(survivors)))
        for change in sorted(survivors, key=lambda c: (c.path, c.start)):
            print(change.words, flush=True)
    print(f"{'folder':24} {'tried':>6} {'survived':>9}")
    for folder, tried, survived in figures:
        print(f"{folder:24} {tried:6} {survived:9}")


if __name__ == "__main__":
    main()
