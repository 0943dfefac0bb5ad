#!/usr/bin/env python3
"""Packs the build, looks into the packages, and installs them on a copy of this machine.

Run by ctest: package_test.py SOURCE BUILD plain|sanitized
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

from scratch import BUILD, KIND, ROOT, SOURCE, VERSION, needs, run

GENUINE = SOURCE / "build/genuine/bin/KVUIMOD.dll"


class Packages(unittest.TestCase):
    packages = {}

    @classmethod
    def setUpClass(cls):
        if Packages.packages:
            return
        # Modes must not come from who packs.
        done = run("sh", "-c", 'umask 077 && exec cpack --config "$1" -B "$2"', "sh",
                   BUILD / "CPackConfig.cmake", ROOT / "packages", PATH=os.environ["PATH"])
        assert done.returncode == 0, done.stdout + done.stderr
        Packages.packages = {path.name.split("_")[0]: path
                             for path in (ROOT / "packages").glob("*.deb")}


class Packed(Packages):
    def field(self, package, name):
        return run("dpkg-deb", "-f", self.packages[package], name).stdout.strip()

    def test_dependencies_keep_qt_out_of_the_command_line(self):
        genuine = {"kvuimod-genuine"} if GENUINE.is_file() else set()
        self.assertEqual(set(self.packages), {"kvprefs", "kvprefs-gui", "kvprefs-tools"} | genuine)
        program, window = self.field("kvprefs", "Depends"), self.field("kvprefs-gui", "Depends")
        self.assertNotIn("qt", program.lower())
        for library in ("libc6", "libsqlite3-0", "libfreetype6", "libfontconfig1", "libpng16"):
            self.assertIn(library, program)
        self.assertIn("libqt6widgets6", window)
        self.assertIn(f"kvprefs (= {VERSION})", window)
        self.assertIn("qt6-wayland", self.field("kvprefs-gui", "Recommends"))
        self.assertEqual(self.field("kvprefs", "Version"), VERSION)

    @needs("lintian")
    def test_lintian_finds_no_error_and_no_warning(self):
        done = run("lintian", "--allow-root", "--fail-on", "error,warning", *self.packages.values())
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        changes = (SOURCE / "packaging/debian/changelog").read_text()
        self.assertTrue(changes.startswith(f"kvprefs ({VERSION}) "), "the changelog lacks this version")

    def test_every_file_is_in_one_package_with_the_right_mode(self):
        files = {}
        for package in self.packages.values():
            for line in run("dpkg-deb", "-c", package).stdout.splitlines():
                mode, owner, name = line.split()[0], line.split()[1], line.split()[5]
                self.assertEqual(owner, "root/root", line)
                if name.endswith("/"):
                    self.assertEqual(mode, "drwxr-xr-x", line)
                    continue
                self.assertNotIn(name, files)
                files[name] = mode
        for program in ("kvprefs", "kvprinter"):
            self.assertEqual(files.pop("./usr/bin/" + program), "-rwxr-xr-x")
        self.assertEqual(set(files.values()), {"-rw-r--r--"})
        for name in ("share/kvprefs/models/KVUIMOD.ini", "share/applications/kvprefs.desktop",
                     "share/zsh/vendor-completions/_kvprefs", "share/man/man1/kvprefs.1.gz"):
            self.assertIn("./usr/" + name, files)

    @unittest.skipUnless(GENUINE.is_file(), "the preset genuine is not built")
    def test_the_genuine_module_is_packed_as_it_was_built(self):
        run("dpkg-deb", "-x", self.packages["kvuimod-genuine"], ROOT / "genuine")
        packed = ROOT / "genuine/usr/share/kvuimod-genuine/KVUIMOD.dll"
        self.assertEqual(packed.read_bytes(), GENUINE.read_bytes())
        self.assertEqual(self.field("kvuimod-genuine", "Depends"), "")
        self.assertEqual(self.field("kvuimod-genuine", "Architecture"), "all")

    def test_the_command_line_works_without_the_window(self):
        run("dpkg-deb", "-x", self.packages["kvprefs"], ROOT / "server")
        program = ROOT / "server/usr/bin/kvprefs"
        done = run(program, "get", "dmCopies", KVPREFS_STATE=str(ROOT / "server/state"))
        self.assertEqual((done.stdout, done.stderr), ("dmCopies=1\n", ""))
        opened = run(program, "open", DISPLAY=":99")
        self.assertEqual(opened.returncode, 1)
        self.assertIn("kvprefs-gui", opened.stderr)


class Copy:
    """This machine, to be changed at will: what is written lands in memory and goes with the copy."""

    START = """set -e
mount -t tmpfs none "$1"
mkdir "$1/changes" "$1/work" "$1/root"
mount -t overlay none -o "lowerdir=/,upperdir=$1/changes,workdir=$1/work" "$1/root"
mount -t proc none "$1/root/proc"
mount --rbind /dev "$1/root/dev"
exec chroot "$1/root" sh -c "echo ready; exec cat\""""

    def __init__(self):
        self.place = pathlib.Path(tempfile.mkdtemp(dir=ROOT))
        self.holder = subprocess.Popen(["unshare", "--mount", "sh", "-c", self.START, "sh", self.place],
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       stderr=subprocess.STDOUT, text=True)
        said = self.holder.stdout.readline()
        if said != "ready\n":
            self.end()
            raise unittest.SkipTest(f"this machine cannot be copied: {said}")
        self.inside = pathlib.Path(f"/proc/{self.holder.pid}/root")
        assert self.inside.stat().st_dev != os.stat("/").st_dev, "this is not a copy"

    def end(self):
        self.holder.communicate()

    def root(self, *command):
        """The finished command of root's in the copy."""
        return run("nsenter", "--target", self.holder.pid, "--mount", "--root", "--wd=/", *command,
                   PATH="/usr/sbin:/usr/bin:/sbin:/bin")

    def bring(self, path):
        shutil.copy(path, self.inside / "srv")
        return "/srv/" + path.name

    def changed_files(self):
        """What was written and is still there, or of this machine's files was taken away."""
        listed = run("nsenter", "--target", self.holder.pid, "--mount", "find", self.place / "changes",
                     "!", "-type", "d", "-printf", "/%P\\n")
        return set(listed.stdout.splitlines())


@unittest.skipIf(os.geteuid() != 0, "only root can install packages")
class OnAMachine(Packages):
    STATE = "/var/lib/kvprefs"
    # What dpkg and making people write.
    NOT_OURS = ("/var/lib/dpkg/", "/var/cache/", "/var/log/", "/etc/", "/home/", "/srv/", "/var/mail/",
                "/var/lib/systemd/", "/run/")

    def setUp(self):
        self.copy = Copy()
        self.addCleanup(self.copy.end)
        self.files = [self.copy.bring(self.packages[name]) for name in ("kvprefs", "kvprefs-gui")]

    def root(self, *command):
        done = self.copy.root(*command)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        return done.stdout

    def dpkg(self, *words):
        """Without what other packages do then, which takes long."""
        self.root("dpkg", "--no-triggers", *words)

    def person(self, name, *words):
        return self.root("runuser", "-l", name, "-c", "kvprefs " + " ".join(words))

    def printers(self, name):
        rows = json.loads(self.person(name, "printer", "list", "--json"))
        return {(row["name"], row["place"]) for row in rows}

    def rights(self, path=STATE):
        return self.root("stat", "-c", "%a %U %G", path).strip()

    def test_from_installing_to_purging(self):
        self.dpkg("--install", *self.files)
        self.assertEqual(self.rights(), "2775 root lpadmin")
        self.root("useradd", "-m", "kvann")
        self.root("useradd", "-m", "-G", "lpadmin", "kvcarl")

        self.person("kvann", "printer", "add", "Mine", "--port", "USB001")
        self.person("kvann", "set", "EditCopies=3")
        self.assertEqual(self.person("kvann", "get", "dmCopies"), "dmCopies=3\n")
        rows = json.loads(self.person("kvann", "list", "Basic", "--json"))
        self.assertTrue(next(row for row in rows if row["name"] == "EditCustom")["enabled"])
        self.person("kvcarl", "printer", "add", "Hall", "--port", "USB002")
        self.assertEqual(self.rights(self.STATE + "/store.sqlite"), "664 kvcarl lpadmin")
        both = {("Mine", "private"), ("Hall", "shared")}
        self.assertEqual(self.printers("kvann"), both)

        for change in (("chmod", "2755"), ("chown", "root:root")):
            self.root(*change, self.STATE)
            chosen = self.rights()
            self.dpkg("--install", *self.files)
            self.assertEqual(self.rights(), chosen)
        self.dpkg("--remove", "kvprefs-gui", "kvprefs")
        self.assertEqual(self.rights(), chosen)
        self.dpkg("--install", *self.files)
        self.assertEqual((self.rights(), self.printers("kvann")), (chosen, both))
        self.root("mv", self.STATE, "/srv/elsewhere")
        self.dpkg("--install", *self.files)
        self.assertNotEqual(self.copy.root("test", "-e", self.STATE).returncode, 0)

        self.root("ln", "-s", "/srv/elsewhere", self.STATE)
        self.dpkg("--purge", "kvprefs-gui", "kvprefs")
        left = {path for path in self.copy.changed_files() if not path.startswith(self.NOT_OURS)}
        self.assertEqual(left, set())
        self.root("test", "-e", "/srv/elsewhere/store.sqlite")
        self.root("test", "-e", "/home/kvann/.local/share/kvprefs/store.sqlite")

    def test_a_first_installation_takes_what_it_finds(self):
        """An interrupted one before it, or an administrator's own folder and group."""
        self.copy.root("groupadd", "-f", "-g", "4711", "lpadmin")
        group = self.root("getent", "group", "lpadmin")
        self.root("mkdir", "-m", "700", self.STATE + ".new")
        self.dpkg("--install", self.files[0])
        self.assertEqual((self.rights(), self.root("getent", "group", "lpadmin")),
                         ("2775 root lpadmin", group))
        for own, rights in ((("mkdir", "-m", "2750"), "2750 root root"),
                            (("ln", "-s", "/srv/not-mounted"), "777 root root")):
            self.dpkg("--purge", "kvprefs")
            self.root(*own, self.STATE)  # purging has made room for it
            self.dpkg("--install", self.files[0])
            self.assertEqual(self.rights(), rights)


if __name__ == "__main__":
    if KIND == "sanitized" or not shutil.which("dpkg-shlibdeps"):
        print("nobody packs a sanitized build, nor without dpkg-dev")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
