"""The built program on a real X server, as its user meets it."""

import os
import signal
import time
import wave

from desktop_session import BLACK, BLUE, GREEN, RED, Display, ShowTest, wait_until


class Pictures(ShowTest):
    def test_fill_the_screen_one_after_another(self):
        self.session.start_show()
        for colour in (RED, BLUE, RED):
            self.wait_for_colour(colour)
            self.assertEqual(self.pixels((0, 0), (799, 0), (0, 599), (799, 599)), [colour] * 4)

    def test_a_half_done_sweep_leaves_the_rest(self):
        # 401 steps of some 10 milliseconds.
        self.start_show(SwapAffect="Sweep Right", TransSpeed="1", BackColor=str(0x00FF00))
        self.wait_for_colour(GREEN, (300, 300))
        self.assertEqual(self.pixels((0, 0), (0, 599), (799, 0), (799, 599)), [GREEN, GREEN, RED, RED])

    def test_a_file_name_stands_under_a_stretched_picture(self):
        self.start_show(Stretch="1", ShowFileName="1")
        shot = self.display.screenshot()
        bottom_line = [shot.pixel(x, y) for y in range(584, 600) for x in range(380, 420)]
        self.assertGreater(sum(min(pixel) > 200 for pixel in bottom_line), 20)
        self.assertEqual(shot.pixel(1, 598), BLACK)

    def test_a_fifo_and_a_file_deleted_under_the_show_are_passed_over(self):
        fifo = os.path.join(self.session.folder, "fifo.jpg")
        os.mkfifo(fifo)
        self.session.play(self.red, fifo, self.blue, self.session.picture("green.bmp", 800, 600, GREEN))
        program = self.start_show()
        os.remove(self.blue)
        self.wait_for_colour(GREEN)
        self.assert_runs(program)


class Ending(ShowTest):
    def test_keys_a_close_request_and_a_signal_end_the_show(self):
        for end in ("space", "Shift_L", "alt+F4"):
            with self.subTest(end=end):
                self.assert_ends_by_key(self.start_show(), end)
        program = self.start_show()
        program.send_signal(signal.SIGTERM)
        self.assert_ends(program)

    def test_a_key_during_an_effect_ends_the_show(self):
        program = self.start_show(SwapAffect="Spotlight", TransSpeed="1")
        self.wait_for_colour(BLACK)
        self.assert_ends_by_key(program)

    def test_the_tenth_mouse_move_ends_the_show_but_no_press(self):
        program = self.start_show()
        self.display.xdotool("click", 1)
        for move in range(9):
            self.display.xdotool("mousemove", 100 + 10 * move, 200)
            time.sleep(0.05)
        self.assert_runs(program)
        self.display.xdotool("mousemove", 300, 300)
        self.assert_ends(program)


class WithoutWindowManager(ShowTest):
    window_manager = False

    def test_the_show_fills_the_screen_and_takes_keys(self):
        program = self.start_show()
        self.assertEqual(self.pixels((0, 0), (799, 599)), [RED] * 2)
        self.assert_ends_by_key(program)

    def test_what_another_window_has_covered_is_shown_again(self):
        program = self.start_show(Interval="60")
        other = self.run_beside("xev", "-geometry", "200x200+300+200", "-event", "button")
        wait_until(lambda: self.pixels((400, 300)) != [RED], "the other window")
        other.kill()
        self.wait_for_colour(RED)
        self.assert_runs(program)


class SecondCopy(ShowTest):
    def test_ends_at_once_and_leaves_the_first_alone(self):
        first = self.start_show()
        self.assertEqual(self.session.start("/s").wait(timeout=10), 0)
        self.assert_runs(first)

    def test_is_not_fooled_by_a_killed_run(self):
        self.kill(self.session.start_show())
        self.start_show()

    def test_has_a_show_of_its_own_on_another_display(self):
        self.session.start_show()
        other_display = Display()
        self.addCleanup(other_display.close)
        other = self.session.start("/S", DISPLAY=other_display.name)
        wait_until(other_display.window, "the other show")
        self.assert_runs(other)

    def test_is_noticed_without_any_display(self):
        first = self.session.start("/S", QT_QPA_PLATFORM="offscreen")
        self.session.wait_for_picture(1)
        self.assertEqual(self.session.start("/S", QT_QPA_PLATFORM="offscreen").wait(timeout=10), 0)
        self.assert_runs(first)


class Settings(ShowTest):
    def test_a_show_killed_in_the_middle_starts_again_where_it_was(self):
        first = self.session.start_show()
        self.session.wait_for_picture(1)
        self.kill(first)
        self.session.start_show()
        self.wait_for_colour(BLUE)

    def test_a_damaged_store_costs_the_settings_of_the_run(self):
        config = os.path.join(self.session.environment["XDG_CONFIG_HOME"], "quorvale")
        for name in os.listdir(config):
            with open(os.path.join(config, name), "wb") as file:
                file.write(b"\xa5" * 10000)
        program = self.session.start_show()
        self.assert_runs(program)
        self.assert_ends_by_key(program)


class Sound(ShowTest):
    def test_a_sounds_samples_come_out(self):
        samples = bytes(range(1, 200)) * 200
        path = os.path.join(self.session.folder, "sound.wav")
        with wave.open(path, "wb") as file:
            file.setnchannels(2)
            file.setsampwidth(2)
            file.setframerate(44100)
            file.writeframes(samples[:len(samples) // 4 * 4])
        self.session.play(path, section="SoundFiles")
        out = os.path.join(self.session.folder, "out.raw")
        self.session.start("/S", SDL_AUDIODRIVER="disk", SDL_DISKAUDIOFILE=out, SDL_DISKAUDIODELAY="5")
        wait_until(lambda: samples[:4096] in self.read(out), "the sound")

    def read(self, path):
        if not os.path.exists(path):
            return b""
        with open(path, "rb") as file:
            return file.read()


class OtherModes(ShowTest):
    def test_text_that_is_no_mode_or_no_window_ends_at_once(self):
        for arguments in (["/X"], ["/install", "x"], ["/P"], ["/P:123"], ["/P", "123"], ["/A", "5"]):
            with self.subTest(arguments=arguments):
                self.assertEqual(self.session.start(*arguments).wait(timeout=10), 0)
        self.assertEqual(self.session.start("--nonsense").wait(timeout=10), 2)

    def test_the_set_up_records_the_samples(self):
        folder = self.session.folder + "/"
        self.assertEqual(self.session.start("/INSTALL", folder, PATH="/nowhere").wait(timeout=10), 0)
        self.assertEqual(self.session.settings("get", "Options", "InstallPath"), folder)
        self.assertEqual(self.session.settings("get", "PictureFiles", "File2").split(), ["Sample3.jpg", folder])
        config = os.path.join(self.session.environment["XDG_CONFIG_HOME"], "quorvale")
        names = {name.upper(): name for name in os.listdir(config)}
        with open(os.path.join(config, names["SYSTEM.INI"]), encoding="utf-8") as file:
            self.assertIn("SCRNSAVE.EXE=" + os.environ["QUORVALE_BUILD"], file.read())
