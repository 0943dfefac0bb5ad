"""Bad surroundings: the window says what is wrong or works all the same; nothing stored is lost."""
import signal
import sqlite3

from desktop import Desktop, Journey, main, wait_for

LANDSCAPE = 2


class Surroundings(Journey):
    def choose_landscape(self):
        self.desktop.keys("alt+l")
        wait_for(lambda: self.window.find("Landscape").has("checked"), "Landscape")

    def test_a_desktop_that_lacks_something_is_enough(self):
        no_fonts = self.scratch / "fonts.conf"
        no_fonts.write_text("<fontconfig></fontconfig>")
        for name, lacking, said in (
                ("fonts", {"FONTCONFIG_FILE": str(no_fonts)}, "no fonts are installed"),
                ("locale", {"LC_ALL": "xx_YY.UTF-8"}, ""),
                ("home", {"HOME": None, "XDG_DATA_HOME": None, "XDG_RUNTIME_DIR": None}, "")):
            with self.subTest(lacking=name):
                self.state = self.scratch / name
                self.open(**lacking)
                self.choose_landscape()
                self.desktop.keys("Return")
                self.assertIn(said, self.ends())
                self.assertEqual(self.stored("dmOrientation"), LANDSCAPE)

    def test_without_a_display_it_says_so(self):
        nothing = {"DISPLAY": None, "WAYLAND_DISPLAY": None, "QT_QPA_PLATFORM": None}
        for display, said in ((nothing, "no display to open a window on"),
                              ({"DISPLAY": ":9999"}, "the window cannot be opened")):
            with self.subTest(**display):
                self.launch("open", **display)
                self.assertIn(said, self.ends(1))

    def test_a_state_that_it_cannot_use_is_refused_and_kept(self):
        file = self.scratch / "file"
        file.write_text("kept")
        self.launch("open", KVPREFS_STATE=str(file / "state"))
        self.assertIn(str(file), self.ends(2))
        self.assertEqual(file.read_text(), "kept")

        self.kvprefs("get")
        with sqlite3.connect(self.state / "store.sqlite") as store:
            store.execute("PRAGMA user_version = 99")
        store.close()
        before = (self.state / "store.sqlite").read_bytes()
        self.launch("open")
        self.assertIn("newer version", self.ends(2))
        self.assertEqual((self.state / "store.sqlite").read_bytes(), before)

        self.launch("open", HOME=None, XDG_DATA_HOME=None, KVPREFS_STATE=None)
        self.assertIn("set HOME", self.ends(2))

    def test_a_display_that_goes_away_ends_the_program(self):
        for name, opener, go_away in (
                ("server", None, lambda: self.desktop.server.kill()),
                ("server behind a dialog", "Custom Size...", lambda: self.desktop.server.kill()),
                ("connection", None, lambda: self.desktop.act("getactivewindow", "windowkill"))):
            with self.subTest(gone=name):
                self.desktop = Desktop()
                self.addCleanup(self.desktop.stop)
                self.kvprefs("set", "EditCopies=2")
                before = self.record()
                self.open()
                self.choose_landscape()
                if opener:
                    self.desktop.click(self.window.find(opener))
                    wait_for(lambda: self.window.dialogs()[1:], "the dialog")
                go_away()
                self.assertIn("the desktop is gone", self.ends(1, seconds=10))
                self.assertEqual(self.record(), before)
                self.assertEqual(self.stored("dmCopies"), 2)

    def test_a_terminated_window_stores_nothing(self):
        self.open()
        self.choose_landscape()
        self.window.process.terminate()
        self.ends(-signal.SIGTERM)
        self.assertIsNone(self.record())


if __name__ == "__main__":
    main()
