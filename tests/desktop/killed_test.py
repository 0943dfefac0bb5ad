"""The program is killed while it stores: what lies there is the old record or the new one."""
import subprocess
import time

from desktop import Journey, main, wait_for

ROUNDS = 16


class Killed(Journey):
    def change(self):
        """Landscape and another number of copies: two settings far apart in the record."""
        window = self.open()
        self.desktop.keys("alt+l", "alt+n")
        self.desktop.type("7")
        wait_for(lambda: window.find("Number", "text").text == "7", "the copies")
        return window.find("Apply").middle()

    def test_a_kill_during_apply_leaves_a_whole_record(self):
        self.kvprefs("set", "EditCopies=2")
        old = self.record()
        place = self.change()
        self.desktop.act("mousemove", *place, "click", 1)
        new = wait_for(lambda: self.record() != old and self.record(), "the record")
        self.window.kill()
        path = next((self.state / "records").glob("*.record"))
        # The delay closes in on the moment when one outcome turns into the other.
        found, early, late = [], 0.0, 0.2
        for _ in range(ROUNDS):
            path.write_bytes(old)
            place = self.change()
            delay = (early + late) / 2
            click = subprocess.Popen(["xdotool", "mousemove", *map(str, place), "click", "1"],
                                     env=self.desktop.environment)
            time.sleep(delay)
            self.window.kill()
            click.wait()
            found.append(self.record())
            self.assertIn(found[-1], (old, new))
            early, late = (delay, late * 1.1) if found[-1] == old else (early / 1.1, delay)
        self.assertEqual(self.stored("dmCopies"), 7 if found[-1] == new else 2)
        self.kvprefs("set", "EditCopies=5")
        self.assertEqual(self.stored("dmCopies"), 5)
        self.assertIn(old, found)
        self.assertIn(new, found)


if __name__ == "__main__":
    main()
