"""The preview inside a window of another program."""

import signal
import subprocess

from desktop_session import wait_until
from test_show import BLACK, BLUE, GREEN, RED, ShowTest

BORDER = 2  # of the host's window
HOST = (100 + BORDER, 80 + BORDER)  # where the host's client area lies on the screen
MIDDLE = (HOST[0] + 76, HOST[1] + 56)


class PreviewTest(ShowTest):
    window_manager = False

    def setUp(self):
        super().setUp()
        self.host = subprocess.Popen(["xev", "-geometry", f"152x112+{HOST[0] - BORDER}+{HOST[1] - BORDER}", "-event", "button"],
                                     env=self.display.environment, stdout=subprocess.DEVNULL)
        self.addCleanup(self.host.wait)
        self.addCleanup(self.host.kill)
        self.window = wait_until(self.host_window, "the host's window")

    def host_window(self):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Event Tester"],
                               env=self.display.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                               check=False).stdout.split()
        return found[0].decode() if found else None

    def preview(self):
        program = self.session.start("/P", self.window, stderr=subprocess.PIPE)
        self.addCleanup(program.stderr.close)
        return program

    def assert_ends_quietly(self, program):
        self.assertEqual(program.wait(timeout=15), 0)
        with program.stderr:
            self.assertEqual(program.stderr.read(), b"")


class InTheHost(PreviewTest):
    def test_the_show_runs_at_the_hosts_size(self):
        self.session.option("Stretch", "1")
        program = self.preview()
        for colour in (RED, BLUE):
            self.wait_for_colour(colour, MIDDLE)
            self.assertEqual(self.pixels(HOST, (HOST[0] + 151, HOST[1] + 111)), [colour] * 2)
        self.display.xdotool("mousemove", *MIDDLE, "click", 1, "key", "space")
        self.assert_runs(program)

    def test_an_effect_wipes_inside_it(self):
        self.session.option("SwapAffect", "Sweep Right")
        self.session.option("TransSpeed", "1")
        self.session.option("BackColor", str(0x00FF00))
        self.preview()
        self.wait_for_colour(RED, MIDDLE)
        self.wait_for_colour(GREEN, (HOST[0] + 40, HOST[1] + 56))
        self.assertEqual(self.pixels((HOST[0] + 150, HOST[1] + 56)), [RED])


class TheHostsEnd(PreviewTest):
    def test_ends_the_preview_at_the_next_tick(self):
        program = self.preview()
        self.wait_for_colour(RED, MIDDLE)
        self.host.send_signal(signal.SIGKILL)
        self.assert_ends_quietly(program)

    def test_ends_it_in_the_middle_of_an_effect(self):
        self.session.option("SwapAffect", "Spotlight")
        self.session.option("TransSpeed", "1")
        program = self.preview()
        self.wait_for_colour(RED, MIDDLE)
        self.wait_for_colour(BLACK, MIDDLE)
        self.host.send_signal(signal.SIGKILL)
        self.assert_ends_quietly(program)

    def test_a_handle_that_is_no_window_ends_at_once(self):
        for arguments in (["/P"], ["/P:123"], ["/P", "123"], ["/A", "5"]):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.session.start(*arguments).wait(timeout=10), 0)

