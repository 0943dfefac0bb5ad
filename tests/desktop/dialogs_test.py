"""Sub-dialogs are left, windows are closed, and one printer's window follows another's."""
from desktop import Journey, main, wait_for

SHEET = "Varnell Tessora 7720MF"


class Dialogs(Journey):
    def openers(self):
        """Captions with three dots promise a dialog."""
        return [control for control in self.window.front().walk()
                if control.name.endswith("...") and control.takes_tab()]

    def dialog_title(self):
        title = self.window.front().name
        return title != SHEET and title

    def leave_all(self):
        """Opens and leaves the dialogs of a page; their titles."""
        titles = []
        for opener in self.openers():
            self.desktop.click(opener)
            titles.append(wait_for(self.dialog_title, f"the dialog of {opener}"))
            self.desktop.keys("Escape")
            self.window.front(SHEET)
            self.window.focus_is(opener.name)
        return titles

    def test_escape_leaves_each_dialog_and_returns_to_its_button(self):
        # So that the buttons are enabled.
        self.kvprefs("set", "ComboNup=2", "ChkImageShifting=on")
        before = self.record()
        window = self.open()
        titles = []
        for page in [tab.name for tab in window.tabs()]:
            with self.subTest(page=page):
                self.turn_to(page)
                titles += self.leave_all()
        for title in ("First Page", "Pages/Sheet Details", "Image Shifting"):
            self.assertIn(title, titles)
        self.desktop.keys("Escape")
        self.ends()
        self.assertEqual(self.record(), before)


class Closing(Journey):
    def close_by_frame(self, dialog):
        """Presses the button at the end of the window manager's title bar."""
        x, y, width, _ = dialog.box()
        self.desktop.act("mousemove", x + width - 10, y - 10, "click", 1)

    def test_a_sheet_behind_its_dialog_is_not_closed(self):
        window = self.open()
        sheet = window.front()
        self.desktop.keys("alt+l")
        wait_for(lambda: window.find("Landscape").has("checked"), "Landscape")
        self.desktop.click(window.find("Custom Size..."))
        wait_for(lambda: window.front().name != SHEET, "the dialog")
        self.close_by_frame(sheet)
        self.desktop.keys("alt+F4")
        window.front(SHEET)
        self.assertTrue(window.find("Landscape").has("checked"))
        self.close_by_frame(sheet)
        self.ends()
        self.assertIsNone(self.record())

    def test_the_windows_of_several_printers_follow_each_other(self):
        for name in ("First", "Second"):
            self.kvprefs("printer", "add", name, "--port", "USB001")
        window = self.open("First", "Second")
        for name, copies in (("First", "3"), ("Second", "4")):
            window.front(name)
            self.assertEqual(window.find("Number", "text").text, "1")
            self.tab_to("Number")
            self.desktop.type(copies)
            wait_for(lambda: window.find("Number", "text").text == copies, "the copies")
            self.desktop.keys("Return")
        self.ends()
        for name, copies in (("First", 3), ("Second", 4)):
            self.assertEqual(self.kvprefs("--printer", name, "get", "dmCopies"),
                             f"dmCopies={copies}\n")


if __name__ == "__main__":
    main()
