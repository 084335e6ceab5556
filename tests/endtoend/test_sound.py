"""The sound modes: what is heard, when, and how the pictures keep to it."""

import contextlib
import os

import sounds
from case import QUICK
from session import wait_until, with_sound
from sound_case import EARLY, FREQUENCIES, HIGH, LONG, LOW, MIDDLE, TOP, ListeningCase, SoundCase

TICK = 0.5  # seconds between two looks at a sound that holds its picture
LIST_TICK = 1  # seconds between two looks at the sound list
LATE = 4  # seconds that a loaded machine may take longer

WINDOW_OF_THE_SHOW = 1  # all that its process may show


class SoundTest(ListeningCase):
    def test_without_a_sound_mode_nothing_is_heard_or_loaded(self):
        self.add_tone("low.wav", LOW, 1)
        show = self.start_template("IMAGE=a.bmp", "SOUND=low.wav", "IMAGE=b.bmp", "SOUND=low.wav",
                                   ImageInterval=QUICK)
        show.watch(self.frames, 3)
        modules = {module.rpartition("\\")[2].lower()
                   for (module,) in self.probe.ask("modules", show.wait_for_form().process)}
        self.assertEqual(modules & {"quartz.dll", "dsound.dll", "winmm.dll", "mmdevapi.dll"}, set())
        self.end_by_key(show)
        self.assertEqual(self.listener.tones(), [])

    def test_mode_1_cuts_a_sound_off_with_the_next_and_at_the_end(self):
        self.add_tone("low.wav", LOW, LONG)
        self.add_tone("middle.wav", MIDDLE, 0.5)
        show = self.start_template("SOUNDSYNC=1", "IMAGE=a.bmp", "SOUND=low.wav", "IMAGE=b.bmp",
                                   "SOUND=middle.wav")
        cut, whole, _ = self.wait_for_tones(LOW, MIDDLE, LOW)
        self.assertLess(cut.end - cut.begin, 1 + LATE)
        self.assertLess(whole.begin - cut.end, EARLY)
        self.assertAlmostEqual(whole.heard, 0.5, delta=EARLY)
        self.end_in_silence(show)

    def test_mode_2_holds_a_picture_until_the_tick_behind_its_sound(self):
        """One without a sound, or with one that can't be played, goes with the next tick."""
        self.add_tone("low.wav", LOW, 2.5)
        self.add_tone("middle.mp3", MIDDLE, 2)
        self.add_tone("high.mp3", HIGH, LONG)
        self.write("empty.wav", b"")
        self.write("text.mp3", b"this is no sound " * 1000)
        with open(os.path.join(self.pictures, "low.wav"), "rb") as file:
            self.write("cut.wav", file.read(30))
        sounds.save_silent_film(os.path.join(self.pictures, "silent.mpg"), 5)
        unplayable = (None, "missing.wav", "C:\\missing\\too.mp3", "empty.wav", "text.mp3", "cut.wav", "a.bmp",
                      "silent.mpg")
        items = {f"{number}.bmp": sound for number, sound in
                 enumerate(("low.wav", "middle.mp3", *unplayable, "high.mp3"), 1)}
        self.add_pictures(*items)
        show = self.start_template("SOUNDSYNC=2", *(
            line for picture, sound in items.items()
            for line in (f"IMAGE={picture}", f"SOUND={sound}") if line != "SOUND=None"), ImageInterval="60")
        changes = self.watch_times(show, list(items)[-1], 3)
        low, middle, high = self.wait_for_tones(LOW, MIDDLE, HIGH)
        names = [name for name, _ in changes]
        self.assertEqual(names, [name for name in items if name in names], "in their order")
        self.assertEqual(names[:2], ["1.bmp", "2.bmp"])
        for tone, length, (_, come), (_, gone) in zip((low, middle), (2.5, 2), changes, changes[1:]):
            self.check_length(tone, length)
            self.assertGreater(tone.begin, come - EARLY)
            self.assertGreater(gone, max(tone.end, tone.begin + length) - EARLY)
            self.assertLess(gone, tone.end + TICK + LATE)
        last = changes[-1][1]
        self.assertLess(last, middle.end + 2 * TICK * (len(unplayable) + 1) + LATE)
        self.assertGreater(high.begin, last - EARLY)
        self.end_in_silence(show)

    def test_mode_2_device_that_goes_away_lets_the_show_go_on(self):
        with contextlib.closing(with_sound.SoundServer(os.path.join(self.folder, "server"))) as server:
            self.environment = server.environment
            self.add_tone("low.wav", LOW, 3)
            self.add_tone("long.wav", LOW, LONG)
            show = self.start_template("SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=low.wav", "IMAGE=b.bmp",
                                       "SOUND=long.wav")
            listener = sounds.Listener(server, FREQUENCIES)
            show.wait_for_frame(self.frames["a.bmp"])
            wait_until(listener.tones, "nothing is heard")
            server.stop()
            self.assertEqual(show.watch(self.frames, 3), ["a.bmp", "b.bmp", "a.bmp"])
            self.end_by_key(show)

    def test_mode_2_sounds_that_nothing_decodes_hold_no_picture(self):
        """As where Wine finds none of the plugins that decode for it."""
        self.environment = {"GST_PLUGIN_SYSTEM_PATH_1_0": os.path.join(self.folder, "none"),
                            "GST_REGISTRY_1_0": os.path.join(self.folder, "registry")}
        self.add_tone("long.wav", LOW, LONG)
        self.add_tone("long.mp3", LOW, LONG)
        show = self.start_template("SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=long.wav", "IMAGE=b.bmp",
                                   "SOUND=long.mp3", ImageInterval="60")
        self.assertEqual(show.watch(self.frames, 3), ["a.bmp", "b.bmp", "a.bmp"])
        self.end_by_key(show)
        self.assertEqual(self.listener.tones(), [])

    def test_mode_3_plays_the_list_of_all_kinds_of_sound_in_order_and_starts_over(self):
        """The pictures don't wait, those of a film aren't seen, and a file is taken as it is when its turn
        comes."""
        kinds = {"low.wav": LOW, "middle.mp3": MIDDLE, "high.mp2": HIGH, "top.mpg": TOP}
        for name, frequency in kinds.items():
            self.add_tone(name, frequency, 2)
        # Each step of the show starts the count of the list's timer anew.
        show = self.start_template("SOUNDASYNC", "SOUND=low.wav", "SOUND=middle.mp3", "IMAGE=a.bmp",
                                   "SOUND=high.mp2", "IMAGE=b.bmp", "SOUND=top.mpg", ImageInterval="3")
        (_, first), (_, second) = self.watch_times(show, "b.bmp", 2)
        self.assertLess(second - first, 3 + LATE)
        self.wait_for_tones(LOW, MIDDLE)
        self.add_tone("low.wav", LOW, LONG)
        self.wait_for_tones(LOW, MIDDLE, HIGH, TOP)
        process = show.wait_for_form().process
        visible = [window for window in self.probe.windows() if window.process == process and window.visible]
        self.assertEqual(len(visible), WINDOW_OF_THE_SHOW, visible)
        tones = self.wait_for_tones(LOW, MIDDLE, HIGH, TOP, LOW, seconds=2.5)
        self.assertGreater(tones[0].begin, first - EARLY)
        self.assertLess(tones[0].begin, first + LIST_TICK + LATE)
        for before, after in zip(tones, tones[1:]):
            self.check_length(before, 2)
            self.assertGreater(after.begin, before.begin + 2 - EARLY)
            self.assertLess(after.begin, before.end + 2 * LIST_TICK + LATE)
        self.end_in_silence(show)


class NoSoundDeviceTest(SoundCase):
    """On a machine that has nothing to play a sound on."""

    def test_all_pictures_are_shown_in_every_mode(self):
        self.add_tone("long.wav", LOW, LONG)
        self.add_tone("long.mp3", LOW, LONG)
        # In mode 3 there is time enough between two steps for the sound list.
        for mode, interval in ("SOUNDSYNC=1", QUICK), ("SOUNDSYNC=2", "60"), ("SOUNDASYNC", "2"):
            with self.subTest(mode):
                show = self.start_template(mode, "IMAGE=a.bmp", "SOUND=long.wav", "IMAGE=b.bmp",
                                           "SOUND=long.mp3", ImageInterval=interval)
                self.assertEqual(show.watch(self.frames, 3), ["a.bmp", "b.bmp", "a.bmp"])
                self.end_by_key(show)
