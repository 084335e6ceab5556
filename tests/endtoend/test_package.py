"""Packaged screen savers: made of real files, and alone on a machine that knows nothing of them."""

import os
import subprocess

from case import QUICK
from package_case import PackageCase
from pictures import quarters
from sound_case import HIGH, LONG, LOW, MIDDLE, ListeningCase
from transition_case import TransitionCase

TICK_WITHOUT_SETTINGS = "SOUNDSYNC=2"  # half a second, and no sound to hold it


class PackageTest(PackageCase):
    def test_alone_and_without_settings_it_shows_what_it_holds(self):
        # Behind all but the first, the longest, stands what is left of it.
        pictures = {name: self.add(name, quarters(*size)) for name, size in {
            "a.bmp": (400, 300), "b.gif": (300, 200), "c.jpg": (320, 160), "d.wmf": (200, 100)}.items()}
        show = self.start_template(TICK_WITHOUT_SETTINGS, *(
            line for name in pictures for line in ("IMAGE=" + name, name, "with its comment")))
        for name, picture in pictures.items():
            self.wait_for_picture(show, picture, name + "\r\nwith its comment")
        self.keep_shot(self.machine.shot(), "package")
        self.assertEqual(sorted(os.listdir(self.alone)), ["Holiday.scr", "Tessellarium.pic"])
        self.end_by_key(show)
        self.assertEqual(os.listdir(self.alone), ["Holiday.scr"])

    def test_under_another_name_it_stays_what_it_is(self):
        picture = self.add("a.bmp", quarters(300, 200))
        package = self.write_package(TICK_WITHOUT_SETTINGS, "IMAGE=a.bmp")
        renamed = os.path.join(self.alone, "Gr\u00fc\u00dfe von uns.SCR")
        os.rename(package, renamed)
        show = self.start_package(renamed)
        show.wait_for_frame(self.frame().centre(picture))
        self.end_by_key(show)
        self.assertEqual(os.listdir(self.alone), [os.path.basename(renamed)])

    def test_without_its_extension_it_is_the_plain_program(self):
        self.add("a.bmp", quarters(300, 200))
        package = self.write_package(TICK_WITHOUT_SETTINGS, "IMAGE=a.bmp")
        other = self.add("b.bmp", quarters(200, 300))
        for name in "Holiday.exe", "Holiday":
            with self.subTest(name):
                os.rename(package, os.path.join(self.alone, name))
                package = os.path.join(self.alone, name)
                show = self.start_package(package, AllImages="1", ImageInterval=QUICK,
                                          ImagePath=self.machine.windows_path(self.pictures))
                show.wait_for_frame(self.frame().centre(other))
                self.assertEqual(os.listdir(self.alone), [name])
                self.end_by_key(show)

    def test_in_a_folder_that_cannot_be_written_the_failure_stands_until_a_key(self):
        self.add("a.bmp", quarters(300, 200))
        package = self.write_package(TICK_WITHOUT_SETTINGS, "IMAGE=a.bmp", "never shown")
        self.make_unwritable(self.alone)
        show = self.start_package(package)
        comment = self.wait_for_comment(show, "Path/File access error")
        banner = self.banner_frame(comment)
        show.wait_for_frame(banner)
        self.keep_shot(self.machine.shot(), "failure")
        show.must_stay(2)
        show.wait_for_frame(banner)
        self.assertEqual(self.comment(show).text, comment.text)
        self.end_by_key(show)
        self.assertEqual(os.listdir(self.alone), ["Holiday.scr"])

    def make_unwritable(self, folder):
        os.chmod(folder, 0o555)
        self.addCleanup(os.chmod, folder, 0o755)
        if os.access(folder, os.W_OK):
            # This is the root user, whom only a mark of the file system stops.
            subprocess.run(["chattr", "+i", folder], check=True)
            self.addCleanup(subprocess.run, ["chattr", "-i", folder], check=True)


class PackagedTransitionTest(PackageCase, TransitionCase):
    def test_a_transition_is_that_of_its_row(self):
        show, (curtain,) = self.start_steps(["Bottom To Top"], (331, 220), 11, DissolveDelay="100",
                                            ImageInterval=QUICK)
        self.wait_for_midst(show, curtain)
        show.wait_for_frame(curtain.frame(curtain.end))
        self.end_by_key(show)


class PackagedSoundTest(PackageCase, ListeningCase):
    """Behind each extracted sound stand other bytes of the package."""

    def check(self, mode, tones, *frequencies, **settings):
        """A package of a picture with each of these sounds, frequency and seconds by name, or without one. All
        that is left of its sounds is one file of each type, the one of the last."""
        lines = [mode]
        for name, tone in tones.items():
            lines.append("IMAGE=a.bmp")
            if tone:
                self.add_tone(name, *tone)
                lines.append("SOUND=" + name)
        show = self.start_template(*lines, **settings)
        self.wait_for_tones(*frequencies)
        self.end_in_silence(show)
        self.assertEqual(sorted(os.listdir(self.alone)), ["Holiday.scr", "Tessellarium.mp3", "Tessellarium.wav"])

    def test_mode_1_cuts_each_sound_off_with_the_next(self):
        self.check("SOUNDSYNC=1", {"a.wav": (LOW, LONG), "b.mp3": (MIDDLE, LONG)}, LOW, MIDDLE,
                   ImageInterval="2")

    def test_mode_2_plays_each_sound_to_its_end(self):
        self.check("SOUNDSYNC=2", {"a.mp3": (LOW, 0.7), "silent": None, "b.wav": (MIDDLE, 0.6),
                                   "c.wav": (HIGH, LONG)}, LOW, MIDDLE, HIGH)

    def test_mode_3_plays_the_list_beside_the_pictures(self):
        self.check("SOUNDASYNC", {"a.mp3": (LOW, 0.5), "b.wav": (MIDDLE, LONG)}, LOW, MIDDLE,
                   ImageInterval="2")
