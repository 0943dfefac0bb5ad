#!/usr/bin/env python3
"""One machine, many people: shared printers, each person's settings, rights that files enforce.

Run by ctest, as root: users_test.py SOURCE BUILD plain|sanitized
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import unittest

BUILD, KIND = pathlib.Path(sys.argv[2]), sys.argv[3]
PASSED_ON = ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS")
NSS = "libnss_wrapper.so"
GROUP = 60100  # lpadmin, of which this machine need not have one
ALICE, BOB, CAROL = 60001, 60002, 60003  # Carol is a member of lpadmin
SECONDS = int(os.environ.get("KVPREFS_CROWD_SECONDS", 4))  # how long everybody works at once
OPTIONS = 156 + 0x198  # mdmInstalledOptions in the record


class Machine(unittest.TestCase):
    """A program, a machine's state and people, all under one folder that everybody can reach."""

    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory(prefix="kvusers")
        cls.root = pathlib.Path(cls.scratch.name)
        cls.root.chmod(0o755)
        done = subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.root / "usr"],
                              capture_output=True, text=True)
        assert done.returncode == 0, done.stderr
        cls.addClassCleanup(cls.scratch.cleanup)
        (cls.root / "passwd").write_text("root:x:0:0::/root:/bin/sh\n" + "".join(
            f"{name}:x:{uid}:{uid}::/home/{name}:/bin/sh\n"
            for name, uid in (("alice", ALICE), ("bob", BOB), ("carol", CAROL))))
        (cls.root / "group").write_text(f"root:x:0:\nlpadmin:x:{GROUP}:carol\n")

    def setUp(self):
        self.home = self.root / self.id().split(".")[-1]
        self.home.mkdir()
        self.machine = self.home / "machine"

    def make_machine(self):
        self.machine.mkdir()
        os.chown(self.machine, 0, GROUP)
        self.machine.chmod(0o2775)

    def start(self, uid, *words, **variables):
        home = self.home / str(uid)
        if not home.exists():
            home.mkdir()
            os.chown(home, uid, uid)
        env = {"PATH": "/usr/bin:/bin", "HOME": str(home), "LANG": "C.UTF-8",
               "KVPREFS_SYSTEM": str(self.machine), "LD_PRELOAD": NSS,
               "NSS_WRAPPER_PASSWD": str(self.root / "passwd"),
               "NSS_WRAPPER_GROUP": str(self.root / "group")}
        env.update({name: os.environ[name] for name in PASSED_ON if name in os.environ})
        if KIND == "sanitized":
            env["ASAN_OPTIONS"] = "verify_asan_link_order=0:" + env.get("ASAN_OPTIONS", "")
        env.update(variables)
        return subprocess.Popen(
            [str(word) for word in (self.root / "usr/bin/kvprefs", *words)], env=env, cwd="/",
            user=uid, group=uid, extra_groups=[GROUP] if uid == CAROL else [], text=True,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            umask=0o077)

    def run_as(self, uid, *words, **variables):
        process = self.start(uid, *words, **variables)
        out, error = process.communicate(timeout=60)
        return process.returncode, out, error

    def done(self, uid, *words, **variables):
        status, out, error = self.run_as(uid, *words, **variables)
        self.assertEqual(status, 0, f"{uid} {words}: {out}{error}")
        return out

    def refused(self, uid, says, *words, **variables):
        status, out, error = self.run_as(uid, *words, **variables)
        self.assertNotEqual(status, 0, f"{uid} {words}: {out}{error}")
        for part in says if isinstance(says, tuple) else (says,):
            self.assertIn(part, error, words)

    def bytes_of_machine(self):
        return {path: (path.lstat().st_mode, path.lstat().st_mtime_ns,
                       path.read_bytes() if path.is_file() else None)
                for path in sorted(self.machine.rglob("*"))}

    def places(self, uid):
        rows = json.loads(self.done(uid, "printer", "list", "--json"))
        return {(row["name"], row["place"], row["hidden"]) for row in rows}

    def set_options(self, uid, mask):
        """What an administrator installs, published at the end of a sheet."""
        record = self.home / str(uid) / "options.record"
        self.done(uid, "record", "export", record)
        bytes_ = bytearray(record.read_bytes())
        bytes_[OPTIONS:OPTIONS + 4] = mask.to_bytes(4, "little")
        record.write_bytes(bytes_)
        self.done(uid, "record", "import", record, "--force")
        self.done(uid, "set", "EditCopies=2")

    def options(self, uid):
        self.done(uid, "set", "EditCopies=4")
        return int(self.done(uid, "get", "mdmInstalledOptions").split("=")[1])


class Sharing(Machine):
    def test_each_keeps_settings_of_their_own_and_sees_the_administrators_options(self):
        self.make_machine()
        self.done(0, "printer", "add", "Hall", "--port", "IP_192.0.2.7")
        self.done(CAROL, "printer", "add", "Attic", "--port", "USB002")
        self.done(ALICE, "set", "EditCopies=3", "--printer", "Hall")
        self.done(BOB, "set", "EditCopies=5", "--printer", "HALL")
        for uid, copies in ((ALICE, 3), (BOB, 5), (CAROL, 1)):
            self.assertEqual(self.done(uid, "get", "dmCopies", "--printer", "Hall"),
                             f"dmCopies={copies}\n")
        both = {("Hall", "shared", False), ("Attic", "shared", False)}
        self.assertEqual(self.places(ALICE), both)
        before = self.options(ALICE)
        # Carol may, though root made the printer's files.
        self.set_options(CAROL, before | 0x4)
        self.assertEqual((self.options(ALICE), self.options(BOB)), (before | 0x4, before | 0x4))

    def test_others_cannot_change_a_byte_whatever_they_say_they_are(self):
        self.make_machine()
        self.done(0, "printer", "add", "Hall", "--port", "USB001")
        self.done(ALICE, "get")
        before = self.bytes_of_machine()
        hall = ('the shared printer "Hall"', "root", "lpadmin")
        self.refused(ALICE, hall, "printer", "remove", "Hall")
        for words in (("add", "Cellar", "--port", "USB002"), ("remove", "Hall")):
            self.refused(ALICE, (str(self.machine), "root or a member of group lpadmin"),
                         "--as-admin", "printer", *words)
        self.done(ALICE, "printer", "add", "Mine", "--port", "USB003")
        self.refused(ALICE, ("Mine", "lpadmin"), "printer", "share", "Mine")
        self.refused(ALICE, "lpadmin", "--as-admin", "printer", "share", "Mine")
        self.done(ALICE, "--as-admin", "--printer", "Hall", "set", "EditCopies=9")
        self.done(ALICE, "--as-admin", "--printer", "Hall", "defaults")
        self.assertEqual(self.bytes_of_machine(), before)
        for path in [self.machine, *before]:
            around = ': > "$0/new"' if path.is_dir() else ': >> "$0" || rm -f "$0"'
            done = subprocess.run(["/bin/sh", "-c", around, path], user=ALICE, group=ALICE,
                                  extra_groups=[], capture_output=True)
            self.assertNotEqual(done.returncode, 0, path)
        self.assertEqual(self.bytes_of_machine(), before)
        self.assertEqual(self.places(BOB), {("Hall", "shared", False)})

    def test_sharing_and_taking_bring_everything_along(self):
        self.make_machine()
        self.done(CAROL, "printer", "add", "Lobby", "--port", "IP_192.0.2.9", "--private")
        self.set_options(CAROL, 0x85 | 0x8)
        self.done(CAROL, "set", "EditCopies=7")
        self.done(CAROL, "printer", "share", "Lobby")
        self.assertEqual(self.places(CAROL), {("Lobby", "shared", False)})
        self.assertEqual(self.done(CAROL, "get", "dmCopies"), "dmCopies=7\n")
        self.assertEqual(self.options(ALICE), 0x85 | 0x8)
        self.refused(ALICE, ("Lobby", "--hide-shared"), "printer", "take", "Lobby")
        self.refused(ALICE, "--hide-shared", "printer", "add", "lobby", "--port", "USB001")
        self.done(ALICE, "printer", "take", "Lobby", "--as", "My Lobby")
        self.done(ALICE, "printer", "take", "Lobby", "--hide-shared")
        self.assertEqual(self.places(ALICE), {("Lobby", "private", False), ("My Lobby", "private", False),
                                              ("Lobby", "shared", True)})
        status, out, error = self.run_as(ALICE, "get", "dmCopies", "--printer", "Lobby")
        self.assertEqual((status, out), (0, "dmCopies=4\n"))
        self.assertIn("hides the shared one", error)
        self.done(ALICE, "printer", "remove", "Lobby")
        self.refused(ALICE, "lpadmin", "printer", "remove", "Lobby")

    def test_without_a_machine_state_a_person_administers_an_own_printer(self):
        rows = json.loads(self.done(ALICE, "list", "Basic", "--json"))
        custom = next(row for row in rows if row["name"] == "EditCustom")
        self.assertTrue(custom["enabled"] and custom["visible"])
        self.done(ALICE, "printer", "add", "Mine", "--port", "USB001")
        self.assertIn(("Mine", "private", False), self.places(ALICE))
        self.assertFalse(self.machine.exists())
        rows = json.loads(self.done(ALICE, "--as-user", "list", "Basic", "--json"))
        custom = next(row for row in rows if row["name"] == "EditCustom")
        self.assertFalse(custom["visible"])
        self.make_machine()
        self.done(0, "printer", "add", "Hall", "--port", "USB001")
        rows = json.loads(self.done(BOB, "list", "Basic", "--json"))
        self.assertFalse(next(row for row in rows if row["name"] == "EditCustom")["visible"])


class BadPlaces(Machine):
    def test_homes_that_are_not_ones_own_are_named(self):
        self.done(ALICE, "get", "dmCopies")
        alice = str(self.home / str(ALICE))
        self.refused(0, (f"{alice}/.local/share/kvprefs belongs to alice", "--state"), "get", HOME=alice)
        self.refused(BOB, "belongs to alice", "set", "EditCopies=2", HOME=alice)
        self.refused(BOB, "belongs to alice", "printer", "add", "X", "--port", "Y", HOME=alice)
        self.refused(BOB, "HOME", "get", HOME="")
        link = self.home / "link"
        link.symlink_to(pathlib.Path(alice) / ".local/share/kvprefs")
        self.refused(BOB, str(link), "--state", link, "set", "EditCopies=2")
        self.assertEqual(self.done(ALICE, "--state", link, "get", "dmCopies"), "dmCopies=1\n")

    def test_a_damaged_machine_leaves_people_their_own_printers(self):
        self.make_machine()
        self.done(0, "printer", "add", "Hall", "--port", "USB001")
        self.done(ALICE, "printer", "add", "Mine", "--port", "USB001")
        store = self.machine / "store.sqlite"
        rules = self.machine / "driver/3/KVUIMOD.ini"
        for spoil, says in ((lambda: store.chmod(0o600), "cannot be read"),
                            (lambda: store.write_bytes(b"x" * 5000), "damaged"),
                            (lambda: self.machine.chmod(0o777), "mode 0777")):
            good = store.read_bytes()
            spoil()
            status, out, error = self.run_as(ALICE, "get", "dmCopies")
            self.assertEqual((status, out), (0, "dmCopies=1\n"), error)
            self.assertIn(says, error)
            self.refused(ALICE, says, "get", "--printer", "Hall")
            self.machine.chmod(0o2775)
            store.write_bytes(good)
            store.chmod(0o664)
        rules.unlink()
        self.refused(ALICE, (str(rules), "lpadmin"), "list", "Basic", "--printer", "Hall")
        self.done(CAROL, "list", "Basic", "--printer", "Hall")
        self.done(ALICE, "list", "Basic", "--printer", "Hall")


class Crowd(Machine):
    def test_administrators_and_users_at_once_disturb_nobody(self):
        self.make_machine()
        self.done(0, "printer", "add", "Hall", "--port", "USB001")
        problems, rounds = [], []
        end = time.monotonic() + SECONDS

        def work(uid, commands):
            count = 0
            while time.monotonic() < end and not problems:
                for words in commands(count):
                    status, out, error = self.run_as(uid, *words)
                    if status != 0:
                        problems.append(f"{uid} {words}: {error}{out}")
                count += 1
            rounds.append(count)

        def administer(name):
            return lambda count: (("printer", "add", f"{name}{count}", "--port", "USB001"),
                                  ("printer", "remove", f"{name}{count}"))

        jobs = [(0, administer("A")), (CAROL, administer("B"))]
        jobs += [(60200 + n, lambda count: (("set", f"EditCopies={count % 9 + 1}", "--printer", "Hall"),
                                            ("printer", "list"))) for n in range(8)]
        threads = [threading.Thread(target=work, args=job) for job in jobs]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(problems, [])
        self.assertGreater(min(rounds), 1)
        self.assertEqual(self.places(ALICE), {("Hall", "shared", False)})
        self.assertEqual([path.name for path in self.machine.iterdir() if ".new" in path.name], [])


if __name__ == "__main__":
    if os.geteuid() != 0:
        print("only root can act as several people")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
