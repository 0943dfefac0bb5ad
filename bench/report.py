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
    ("sheet of seven pages", "SheetOpen", "170 plain windows", "SheetOpenPlainWindows", "1 ms"),
    ("one user event headless", "UserEvent", None, None, "150 us"),
    ("a slider drag of 100 steps", "SliderDrag", None, None, "1 ms"),
    ("printer-data write", "PrinterDataWrite", "pwrite + fdatasync", "PrinterDataWriteRaw", "1.5 x"),
    ("kvprefs get as a process", "GetProcess", "true", "GetProcessTrue", "10 ms"),
]
UNITS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


PROGRAMS = ("kvbench", "kvrulesbench")


def measure(program):
    out = subprocess.run([program, "--benchmark_format=json", "--benchmark_min_time=0.3"],
                         capture_output=True, text=True, check=True).stdout
    return {row["name"].split("/")[0]: row["real_time"] * UNITS[row["time_unit"]]
            for row in json.loads(out)["benchmarks"]}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--bin", required=True)
    parser.add_argument("--json")
    arguments = parser.parse_args()
    times = {}
    for program in PROGRAMS:
        times.update(measure(pathlib.Path(arguments.bin) / program))
    result = []
    print(f"{'work':32} {'time':>12} {'beside':>22} {'its time':>12} {'ratio':>7}  aim")
    for name, benchmark, beside, peer, aim in ROWS:
        own = times[benchmark]
        other = times.get(peer) if peer else None
        ratio = own / other if other else None
        result.append({"name": name, "ns": own, "beside": beside, "beside_ns": other, "ratio": ratio})
        print(f"{name:32} {own / 1e3:9.2f} us {beside or '-':>22} "
              f"{f'{other / 1e3:9.2f} us' if other else '-':>12} "
              f"{f'{ratio:.2f}' if ratio else '-':>7}  {aim}")
    if arguments.json:
        pathlib.Path(arguments.json).write_text(json.dumps(result, indent=2) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
