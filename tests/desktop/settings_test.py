"""People change settings in the window, by keyboard and by mouse, and find them stored."""
from desktop import Journey, main, wait_for


class Settings(Journey):
    def choose_by_keys(self, combo, entry):
        """Opens the list and goes down it."""
        self.tab_to(combo)
        self.desktop.keys("alt+Down")
        self.window.focus_is(combo, "list")
        self.desktop.keys("Home")
        for _ in range(60):
            current = self.window.list_entry()
            if current.startswith(entry):
                break
            self.desktop.keys("Down")
            wait_for(lambda: self.window.list_entry() != current, f"an entry below {current!r}")
        self.desktop.keys("Return")
        self.window.focus_is(combo, "combo box")

    def test_a5_landscape_and_two_copies_by_keyboard_alone(self):
        window, keys = self.open(), self.desktop.keys
        self.choose_by_keys("Original Size", "A5 ")
        self.assertEqual(window.find("Original Size", "combo box").chosen(), "A5 (148 x 210 mm)")
        self.tab_to("Portrait")
        keys("Down")
        wait_for(lambda: window.find("Landscape").has("checked"), "Landscape")
        self.tab_to("Number")
        self.desktop.type("2")
        wait_for(lambda: window.find("Number", "text").text == "2", "the typed copies")
        self.tab_to("OK")
        keys("space")
        self.ends()
        self.assertEqual(self.stored("dmPaperSize", "dmOrientation", "dmCopies"), [11, 2, 2])

    def test_booklet_meets_a_conflict_is_resolved_and_cancelled(self):
        self.kvprefs("set", "ComboMediaType=Transparency")
        before = self.record()
        window, click = self.open(), self.desktop.click
        self.turn_to("Layout")
        combo = window.find("Pages/Sheet", "combo box")
        closed = self.desktop.picture(combo.box())
        click(combo)
        click(window.find("Booklet", "list item"))
        window.front("Conflicts")
        shown = [control.name for control in window.front().walk() if control.role == "label"]
        for text in ("Pages/Sheet:", "Booklet", "Media Type:", "Transparency", "Plain Paper"):
            self.assertIn(text, shown)
        click(window.find("Resolve"))
        window.front("Varnell Tessora 7720MF")
        self.assertEqual(combo.chosen(), "Booklet")
        self.assertNotEqual(self.desktop.picture(combo.box()), closed)
        window.find("A4, booklet, portrait, bound at the left, in color", "image")
        window.find("Booklet also set: Media Type, 2-Sided Printing")
        self.turn_to("Basic")
        self.assertEqual(window.find("Media Type", "combo box").chosen(), "Plain Paper")
        click(window.find("Cancel"))
        self.ends()
        self.assertEqual(self.record(), before)

    def test_return_in_an_edit_stores_what_was_typed(self):
        window = self.open()
        self.desktop.click(window.find("Zoom", "text"))
        window.focus_is("Zoom")
        self.desktop.keys("ctrl+a")
        self.desktop.type("75")
        wait_for(lambda: window.find("Zoom", "text").text == "75", "the typed zoom")
        self.desktop.keys("Return")
        self.ends()
        self.assertEqual(self.stored("mdmScaleSize"), 75)

    def test_a_dragged_slider_takes_its_number_along_and_the_preview_at_its_end(self):
        window, act = self.open(), self.desktop.act
        self.turn_to("Quality")
        slider, number = window.find("Contrast", "slider"), window.find("Contrast", "text")
        preview = window.find("Sample picture, in color", "image")
        x, y = slider.middle()
        act("mousemove", x, y, "mousedown", 1)
        window.focus_is("Contrast", "slider")
        before = self.desktop.picture(preview.box())
        for step in (10, 20, 30):
            act("mousemove", x + step, y)
        wait_for(lambda: int(number.text) > 60, "the number beside the thumb")
        self.assertEqual(slider.value, int(number.text))
        self.assertEqual(self.desktop.picture(preview.box()), before)
        act("mouseup", 1)
        wait_for(lambda: self.desktop.picture(preview.box()) != before, "another sample")
        value = int(number.text)
        self.desktop.click(window.find("Apply"))
        wait_for(lambda: not window.find("Apply").has("sensitive"), "what Apply stores")
        self.assertEqual(self.stored("Contrast"), value - 50)


class SecondWindow(Journey):
    def test_what_somebody_else_stored_is_not_overwritten_unseen(self):
        for button, stored in (("Keep theirs", [1, 3]), ("Store mine", [2, 1])):
            with self.subTest(button=button):
                self.kvprefs("set", "EditCopies=1", "RadioOrientation=1")
                window = self.open()
                self.desktop.keys("alt+l")
                wait_for(lambda: window.find("Landscape").has("checked"), "Landscape")
                self.kvprefs("set", "EditCopies=3")
                sheet = window.front().name
                self.desktop.click(window.find("OK"))
                wait_for(lambda: len(window.dialogs()) == 2, "the question")
                said = "\n".join(control.name for control in window.front(sheet).walk())
                self.assertIn("Copies: was 1, now stored 3, yours 1", said)
                self.desktop.click(window.find(button))
                self.ends()
                self.assertEqual(self.stored("dmOrientation", "dmCopies"), stored)


class Focus(Journey):
    def test_every_control_is_reached_by_tab_and_shows_it(self):
        window = self.open()
        for page in ("Basic", "Layout", "Quality"):
            with self.subTest(page=page):
                self.turn_to(page)
                control = first = self.tab()
                reached = [first]
                while True:
                    before = self.desktop.picture()
                    control = self.tab(control)
                    x, y, width, height = control.box()
                    around = (x - 3, y - 3, width + 6, height + 6)
                    wait_for(lambda: self.desktop.picture(around) != before.part(around),
                             f"a sign of the focus at {control}", 5)
                    if control == first:
                        break
                    reached.append(control)
                offered = [control for control in window.front().walk() if control.takes_tab()]
                self.assertCountEqual(map(str, reached), map(str, offered))


if __name__ == "__main__":
    main()
