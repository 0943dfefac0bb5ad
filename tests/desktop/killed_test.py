"""The program is killed while it stores: what lies there is the old record or the new one."""
import subprocess
import time

from desktop import Journey, main, wait_for

ROUNDS = 16
# Two settings far apart in the record: key of the orientation, copies.
CHOICES = (("alt+r", "2"), ("alt+l", "7"))


class Killed(Journey):
    def choose(self, wanted):
        """Changes a reopened window from the other choice; where its Apply button is."""
        orientation, copies = CHOICES[wanted]
        window = self.open()
        self.assertEqual(window.find("Number", "text").text, CHOICES[1 - wanted][1])
        self.desktop.keys(orientation, "alt+n")
        self.desktop.type(copies)
        wait_for(lambda: window.find("Number", "text").text == copies, "the copies")
        return window.find("Apply").middle()

    def click(self, place):
        return subprocess.Popen(["xdotool", "mousemove", *map(str, place), "click", "1"],
                                env=self.desktop.environment)

    def test_a_kill_during_apply_leaves_a_whole_record(self):
        self.kvprefs("set", "EditCopies=2")
        records, needed = [None, None], 0
        for wanted in (1, 0):
            place, before, start = self.choose(wanted), self.record(), time.monotonic()
            click = self.click(place)
            records[wanted] = wait_for(lambda: self.record() != before and self.record(), "Apply")
            needed = max(needed, time.monotonic() - start)
            click.wait()
            self.window.kill()

        # The delays close in on the moment at which one outcome turns into the other.
        current, early, late, outcomes = 0, 0, 2 * needed, set()
        for _ in range(ROUNDS):
            place, delay = self.choose(1 - current), (early + late) / 2
            click = self.click(place)
            time.sleep(delay)
            self.window.kill()
            click.wait()
            self.assertIn(self.record(), records)
            stored = self.record() == records[1 - current]
            early, late = (early / 1.2, delay) if stored else (delay, late * 1.2)
            current = 1 - current if stored else current
            outcomes.add(stored)
        self.assertEqual(outcomes, {False, True})

        self.kvprefs("set", "EditCopies=5")
        self.assertEqual(self.stored("dmCopies"), 5)


if __name__ == "__main__":
    main()
