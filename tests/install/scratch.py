"""What the tests of this folder stand on: a scratch folder, and programs run far from the build.

A test program is run with SOURCE BUILD plain|sanitized.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE, BUILD, KIND = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
VERSION = re.search(r"project\(kvprefs VERSION (\S+)", (SOURCE / "CMakeLists.txt").read_text())[1]
PASSED_ON = ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS")
SCRATCH = tempfile.TemporaryDirectory(prefix="kvinstall")
ROOT = pathlib.Path(SCRATCH.name)


def run(*command, **variables):
    """The finished process, in an environment that knows nothing of the build."""
    env = {"PATH": "/usr/bin:/bin", "HOME": str(ROOT / "home"), "LANG": "C.UTF-8",
           "KVPREFS_SYSTEM": "/nonexistent"}
    env.update({name: os.environ[name] for name in PASSED_ON if name in os.environ})
    env.update(variables)
    return subprocess.run([str(word) for word in command], env=env, cwd=ROOT, text=True,
                          stdin=subprocess.DEVNULL, capture_output=True, timeout=120)


def needs(tool):
    return unittest.skipUnless(shutil.which(tool), f"{tool} is not installed")
