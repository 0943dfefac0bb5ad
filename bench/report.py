#!/usr/bin/env python3
"""Runs the benchmarks and prints each beside its peer or floor, as a ratio.

--bin DIR: where kvbench lies; --json FILE: also writes [{"name", "ns", "beside", "beside_ns", "ratio"}].
"""
import argparse
import json
import pathlib
import subprocess
import sys

# name, benchmark, what it stands beside, that benchmark, aim
ROWS = [
    ("load a rules file of 200 keys", "RulesLoad", "GKeyFile", "RulesLoadGKeyFile", "60 us"),
    ("one key of a cached file", "KeyRead", "stat", "KeyReadStat", "about 1 us"),
    ("conflict check, 64 rules", "ConflictCheck", "libcups, 64 rules", "CupsConflicts", "1 us"),
    ("the same with 16 rules", "ConflictCheckQuarter", "64 rules", "ConflictCheck", "0.25 x: linear"),
    ("first check of a control", "ConflictCheckFirst", "libcups, loading them", "CupsLoad", "-"),
    ("check at the rules' limits", "ConflictCheckFull", None, None, "-"),
    ("chain of 16 questions, answered", "ConflictChain", "one dialog, unasked", "ConflictDialog",
     "16 x"),
    ("gray-out of 60 controls", "GrayOut", "60 EnableWindow", "GrayOutWindows", "5 us"),
    ("Paper View paint, 12 layers", "PaperViewPaint", "pixman, decoded layers", "PaperViewPixman",
     "120 us, 1 x"),
    ("the same", "PaperViewPaint", "memcpy of the layers", "PaperViewCopy", "-"),
    ("watermark preview, a slider's step", "WatermarkDrag", "Cairo, the same text",
     "WatermarkDragCairo", "200 us"),
    ("Watermark View, repeated text", "WatermarkRepeat", "Cairo, the same texts",
     "WatermarkRepeatCairo", "-"),
    ("printer figure, every option", "FigurePaint", "pixman, decoded layers", "FigurePixman", "1 x"),
    ("query of a printer that answers", "Query", "bare exchange", "QueryRaw", "255 ms"),
    ("a change of one option", "OptionChange", "printer-data write", "PrinterDataWrite",
     "3 ms beyond it"),
    ("sheet of seven pages", "SheetOpen", "170 plain windows", "SheetOpenPlainWindows", "1 ms"),
    ("one user event headless", "UserEvent", None, None, "150 us"),
    ("a slider drag of 100 steps", "SliderDrag", None, None, "1 ms"),
    ("one click in the window", "WindowEvent", "plain Qt form", "WindowEventPlainForm", "1.5 ms"),
    ("window, once it was shown", "WindowUp", "plain Qt dialog", "WindowUpPlainDialog", None),
    ("window, first time", "FirstWindow", "plain Qt dialog", "FirstPlainDialog", "30 ms beyond it"),
    ("printer-data write", "PrinterDataWrite", "pwrite + fdatasync", "PrinterDataWriteRaw", "1.5 x"),
    ("4,096 papers: read, one added", "ListEdit", "SQLite, the same bytes", "ListBlobSqlite", "-"),
    ("the same with 1,024", "ListEditQuarter", "4,096 papers", "ListEdit", "0.25 x: linear"),
    ("kvprefs get as a process", "GetProcess", "true", "GetProcessTrue", "10 ms"),
]
UNITS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


# Programs of benchmarks; the last is there only where the Qt display is built.
PROGRAMS = ("kvbench", "kvrulesbench", "kvviewbench", "kvwindowbench")


def show_once(program, what):
    out = subprocess.run([program, f"--once={what}"], capture_output=True, text=True, check=True).stdout
    return json.loads(out)


def measure_first_windows(program, times):
    """The best of a few processes, and the memory of the last of them."""
    sheets = [show_once(program, "sheet") for _ in range(5)]
    dialogs = [show_once(program, f"dialog:{sheets[0]['widgets']}") for _ in range(5)]
    times["FirstWindow"] = min(run["ns"] for run in sheets)
    times["FirstPlainDialog"] = min(run["ns"] for run in dialogs)
    print(f"memory of the window: {sheets[-1]['resident_kb'] / 1024:.1f} MB resident, beside "
          f"{dialogs[-1]['resident_kb'] / 1024:.1f} MB of a plain Qt dialog with as many widgets "
          f"({sheets[0]['widgets']}); aim 40 MB")


def measure(program):
    """The best of nine runs that take turns with those of the peers: other work on the machine only
    ever makes a run slower, and it must not meet just one side."""
    out = subprocess.run([program, "--benchmark_format=json", "--benchmark_min_time=0.04",
                          "--benchmark_repetitions=9", "--benchmark_enable_random_interleaving=true"],
                         capture_output=True, text=True, check=True).stdout
    times = {}
    for row in json.loads(out)["benchmarks"]:
        if row["run_type"] == "iteration":
            name = row["name"].split("/")[0]
            times[name] = min(times.get(name, float("inf")), row["real_time"] * UNITS[row["time_unit"]])
    return times


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--bin", required=True)
    parser.add_argument("--json")
    arguments = parser.parse_args()
    times = {}
    for name in PROGRAMS:
        program = pathlib.Path(arguments.bin) / name
        if program.exists():
            times.update(measure(program))
            if name == "kvwindowbench":
                measure_first_windows(program, times)
    result = []
    print(f"{'work':32} {'time':>12} {'beside':>22} {'its time':>12} {'ratio':>7}  aim")
    for name, benchmark, beside, peer, aim in ROWS:
        if benchmark not in times:
            print(f"{name:32} not built here")
            continue
        own = times[benchmark]
        other = times.get(peer) if peer else None
        ratio = own / other if other else None
        result.append({"name": name, "ns": own, "beside": beside, "beside_ns": other, "ratio": ratio})
        print(f"{name:32} {own / 1e3:9.2f} us {beside or '-':>22} "
              f"{f'{other / 1e3:9.2f} us' if other else '-':>12} "
              f"{f'{ratio:.2f}' if ratio else '-':>7}  {aim or '-'}")
    if arguments.json:
        pathlib.Path(arguments.json).write_text(json.dumps(result, indent=2) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
