"""The installer for Windows, under Wine."""

import os
import shutil
import subprocess
import time
import unittest

from test_windows_show import WindowsTest
from wine_session import DESKTOP, PREFIX, PROGRAM, RED, SCRIPTS, wait_until

ROOT = os.path.dirname(SCRIPTS)
NO_CERTIFICATE = {"QUORVALE_CERTIFICATE": "", "QUORVALE_CERTIFICATE_PASSWORD": "", "QUORVALE_TIMESTAMP": ""}
SIGN = os.path.join(SCRIPTS, "sign-windows.sh")
C = os.path.join(PREFIX, "drive_c")
SAVER = os.path.join(C, "windows", "system32", "Quorvale.scr")
FOLDER = os.path.join(C, "Program Files", "Quorvale")
STARTER = os.path.join(FOLDER, "Quorvale.exe")
HELP = os.path.join(C, "windows", "help", "Quorvale")
MAKER = "Halvern Inc."
APPS = r"HKEY_LOCAL_MACHINE\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quorvale"


@unittest.skipUnless(shutil.which("makensis"), "the installer's compiler is not installed")
class Installer(WindowsTest):
    def setUp(self):
        super().setUp()
        self.uninstall()
        if os.path.exists(SAVER):  # A run that was killed has left it.
            os.remove(SAVER)
        self.addCleanup(self.uninstall)

    def uninstall(self):
        program = os.path.join(FOLDER, "Uninstall.exe")
        if os.path.exists(program):
            self.session.run("wine", program, "/S")
            # It goes on as a copy of itself.
            wait_until(lambda: not os.path.exists(FOLDER), "the uninstaller")

    def make_setup(self, version, sign=SIGN, **certificate):
        path = os.path.join(self.session.folder, f"setup-{version}.exe")
        subprocess.run(["makensis", "-V1", "-WX", "-NOCD", f"-DVERSION={version}", f"-DROOT={ROOT}",
                        f"-DPROGRAM={PROGRAM}", f"-DOUTPUT={path}", f"-DSIGN={sign}",
                        os.path.join(ROOT, "packaging", "windows", "setup.nsi")], check=True,
                       env=dict(os.environ, **(NO_CERTIFICATE | certificate)), stdout=subprocess.DEVNULL)
        return path

    def value(self, key, name):
        lines = self.session.run("wine", "reg", "query", key, "/v", name).decode(errors="replace").splitlines()
        return next((line.split(None, 2)[2].strip() for line in lines if line.split()[:1] == [name]), None)

    def keys_of_makers(self):
        keys = self.session.run("wine", "reg", "query", r"HKEY_CURRENT_USER\Software").decode(errors="replace")
        self.assertIn("Wine", keys)
        return keys

    def test_installs_over_a_running_show_and_leaves_nothing_behind(self):
        self.session.run("wine", self.make_setup("1.9.0"), "/S")
        self.assertTrue(os.path.exists(SAVER))
        show = self.session.start_show(STARTER)
        self.wait_for_colour(RED)
        # Another folder may hold files of other people, which an uninstaller would delete.
        self.session.run("wine", self.make_setup("2.0.0"), "/S", r"/D=C:\Elsewhere")
        self.assert_runs(show)
        self.assertEqual(self.value(APPS, "DisplayVersion"), "2.0.0")
        files = [SAVER, *(os.path.join(folder, name) for top in (FOLDER, HELP) for folder, _, names in os.walk(top)
                          for name in names)]
        self.assertAlmostEqual(int(self.value(APPS, "EstimatedSize"), 16), sum(map(os.path.getsize, files)) / 1024,
                               delta=3)
        for path in (os.path.join(FOLDER, "samples", "Sample1.jpg"), os.path.join(HELP, "index.html")):
            self.assertTrue(os.path.exists(path), path)
        self.assert_ends_by_key(show)

        self.session.write({DESKTOP: {"SCRNSAVE.EXE": r"C:\windows\system32\Quorvale.scr"},
                            "Options": {"Interval": "7"}})
        self.uninstall()
        for path in (SAVER, FOLDER, HELP, os.path.join(C, "Elsewhere")):
            self.assertFalse(os.path.exists(path), path)
        self.assertIsNone(self.value(APPS, "DisplayVersion"))
        self.assertIsNone(self.value(DESKTOP, "SCRNSAVE.EXE"))
        self.assertEqual(self.session.read("Options")["Interval"], "7")

    def press_until(self, key, title, is_done):
        """Pages and boxes come when they are ready, and have the same title. Until then they pass over keys."""

        def press():
            if self.display.focused_title() == title:
                self.display.xdotool("key", key)
            time.sleep(1)
            return is_done()

        wait_until(press, f"an answer to {key}", 60)

    def run_wizard(self, version):
        setup = self.session.start(program=self.make_setup(version))
        title = f"Quorvale {version} Setup"
        self.session.wait_for_window(title)
        self.press_until("Return", title, lambda: setup.poll() is not None)
        self.assertEqual(setup.returncode, 0)

    def test_the_wizard_keeps_lists_and_open_windows(self):
        self.session.write({"PictureFiles": None})
        self.run_wizard("1.9.0")
        wait_until(lambda: self.session.read("PictureFiles").get("File2"), "the samples to be listed")
        self.session.play(self.red, self.blue)
        played = self.session.read("PictureFiles")
        # As it is after the uninstaller, too, which keeps them.
        os.remove(SAVER)
        self.run_wizard("1.9.0")
        self.assertEqual(self.session.read("PictureFiles"), played)
        window = self.session.start("/C", program=SAVER)
        self.session.wait_for_window("Screen Saver Properties")
        self.run_wizard("2.0.0")
        self.assert_runs(window)
        self.assertEqual(self.session.read("PictureFiles"), played)

        window.kill()
        self.assertIn(MAKER, self.keys_of_makers())
        self.session.start(program=os.path.join(FOLDER, "Uninstall.exe"))
        title = "Quorvale 2.0.0 Uninstall"
        self.session.wait_for_window(title)
        self.press_until("alt+u", title, lambda: not os.path.exists(FOLDER))
        # The question whether lists and options go too, then the last page.
        self.press_until("alt+y", title, lambda: MAKER not in self.keys_of_makers())
        self.press_until("Return", title, lambda: self.display.focused_title() != title)
        for path in (SAVER, HELP):
            self.assertFalse(os.path.exists(path), path)

    @unittest.skipUnless(shutil.which("osslsigncode"), "the signer is not installed")
    def test_is_signed_with_a_certificate(self):
        key, certificate, both = (os.path.join(self.session.folder, name) for name in ("key", "cert.pem", "cert.p12"))
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=Quorvale",
                        "-addext", "extendedKeyUsage=codeSigning", "-keyout", key, "-out", certificate],
                       check=True, stderr=subprocess.DEVNULL)
        subprocess.run(["openssl", "pkcs12", "-export", "-inkey", key, "-in", certificate, "-out", both,
                        "-passout", "pass:word"], check=True)
        with self.assertRaises(subprocess.CalledProcessError):
            self.make_setup("2.0.0", sign="/bin/false")
        for named, status in (("", 1), (both, 0)):
            settings = {"QUORVALE_CERTIFICATE": named, "QUORVALE_CERTIFICATE_PASSWORD": "word"}
            setup = self.make_setup("2.0.0", **settings)
            subprocess.run([SIGN, setup], env=dict(os.environ, **(NO_CERTIFICATE | settings)),
                           check=True, stdout=subprocess.DEVNULL)
            self.session.run("wine", setup, "/S")
            for file in (setup, os.path.join(FOLDER, "Uninstall.exe")):
                verified = subprocess.run(["osslsigncode", "verify", "-CAfile", certificate, "-in", file], check=False,
                                          stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                self.assertEqual(verified.returncode, status, file)
