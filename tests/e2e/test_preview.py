"""The preview inside a window of another program."""

import os
import re
import subprocess

from desktop_session import BLACK, BLUE, BUILD, GREEN, RED, ShowTest, wait_until

HOST = (100, 80)  # where the host lies on the screen
MIDDLE = (HOST[0] + 76, HOST[1] + 56)
CORNERS = (HOST, (HOST[0] + 151, HOST[1] + 111))
QUIETLY = (0, b"")


class PreviewTest(ShowTest):
    window_manager = False

    def setUp(self):
        super().setUp()
        self.new_host()

    def new_host(self, depth=24):
        """A window that stands for the settings dialog's."""
        self.host = self.run_beside(os.path.join(BUILD, "preview_host"), str(depth), *map(str, HOST), "152", "112",
                                    stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.host.stdout.close)
        self.window = self.host.stdout.readline().strip()

    def preview(self, **environment):
        program = self.session.start("/P", self.window, stderr=subprocess.PIPE, **environment)
        self.addCleanup(program.stderr.close)
        return program

    def end_of(self, program):
        """The exit code, and what was said on the way."""
        return program.wait(timeout=15), program.stderr.read()

    def kill_host(self):
        self.kill(self.host)

    def destroy_window(self):
        self.display.xdotool("windowclose", self.window)

    def ask(self, *command):
        return subprocess.run(command, env=self.display.environment, stdout=subprocess.PIPE, text=True, check=True).stdout


class InTheHost(PreviewTest):
    def test_the_show_runs_at_the_hosts_size(self):
        self.session.options(Stretch="1")
        program = self.preview()
        for colour in (RED, BLUE):
            self.wait_for_colour(colour, MIDDLE)
            self.assertEqual(self.pixels(*CORNERS), [colour] * 2)
        self.display.xdotool("mousemove", *MIDDLE, "click", 1, "key", "space")
        self.assert_runs(program)

    def test_the_hosts_pixels_are_the_screens_at_every_scale_and_depth(self):
        self.session.options(Stretch="1")
        for depth, environment, dpi in ((24, {"QT_SCALE_FACTOR": "2"}, 96), (24, {"QT_SCALE_FACTOR": "1.5"}, 96),
                                        (24, {"QT_SCREEN_SCALE_FACTORS": "2"}, 96), (24, {}, 192), (32, {}, 96),
                                        (32, {"QT_SCALE_FACTOR": "2"}, 144)):
            with self.subTest(depth=depth, environment=environment, dpi=dpi):
                self.kill_host()
                self.new_host(depth)
                self.ask("xprop", "-root", "-format", "RESOURCE_MANAGER", "8s", "-set", "RESOURCE_MANAGER",
                         f"Xft.dpi:\t{dpi}\n")
                program = self.preview(**environment)
                wait_until(lambda: self.pixels(*CORNERS) in ([RED] * 2, [BLUE] * 2), "a picture")
                self.assertRegex(self.ask("xwininfo", "-children", "-id", self.window), r"\s152x112\+0\+0\s")
                program.terminate()
                self.assertEqual(self.end_of(program), QUIETLY)

    def test_an_effect_wipes_inside_it(self):
        self.session.options(SwapAffect="Sweep Right", TransSpeed="1", BackColor=str(0x00FF00))
        self.preview()
        self.wait_for_colour(RED, MIDDLE)
        self.wait_for_colour(GREEN, (HOST[0] + 40, HOST[1] + 56))
        self.assertEqual(self.pixels((HOST[0] + 150, HOST[1] + 56)), [RED])


class TheHostsEnd(PreviewTest):
    def test_ends_the_preview_at_the_next_tick_or_step_of_an_effect(self):
        for effect in ("None", "Spotlight"):
            self.session.options(SwapAffect=effect, TransSpeed="1")
            for end in (self.kill_host, self.destroy_window):
                with self.subTest(effect=effect, end=end.__name__):
                    self.new_host()
                    program = self.preview()
                    self.wait_for_any_picture(MIDDLE)
                    if effect != "None":
                        self.wait_for_colour(BLACK, MIDDLE)
                    end()
                    self.assertEqual(self.end_of(program), QUIETLY)


class AHundredRounds(PreviewTest):
    def left_behind(self):
        """Windows, connections of the X server, and files of the user.

        SQLite's own files beside the store come and go: two programs that end at once may leave them."""
        windows = len(re.findall(r"^\s+0x", self.ask("xwininfo", "-root", "-tree"), re.MULTILINE))
        connections = len(os.listdir(f"/proc/{self.display.server}/fd"))
        return windows, connections, {
            name
            for _, _, names in os.walk(self.session.folder)
            for name in names
            if not name.startswith("settings.db-")
        }

    def grown_beyond(self, before):
        windows, connections, files = self.left_behind()
        return windows > before[0] or connections > before[1] or files > before[2]

    def server_memory(self):
        with open(f"/proc/{self.display.server}/status", encoding="utf-8") as status:
            return int(re.search(r"VmRSS:\s+(\d+)", status.read())[1])

    def test_leave_no_process_and_no_growth(self):
        def terminate():
            for program in programs:
                program.terminate()

        for number in range(10):
            self.kill_host()
            self.new_host()
            programs = [self.preview() for _ in range(10)]
            self.wait_for_any_picture(MIDDLE)
            (self.kill_host, self.destroy_window, terminate)[number % 3]()
            for program in programs:
                self.assertEqual(self.end_of(program), QUIETLY)
            self.kill_host()
            if number == 2:
                before, memory = self.left_behind(), self.server_memory()
        # The server takes its time to notice who has gone.
        wait_until(lambda: not self.grown_beyond(before), "windows, connections and files to be as before")
        self.assertLess(self.server_memory(), memory + 4096)  # kilobytes; as little as the pixels of 60 previews
