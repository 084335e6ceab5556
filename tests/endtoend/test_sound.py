"""The sound modes: what is heard, when, and how the pictures keep to it."""

import os
import time

import sounds
from case import LIMIT, EndToEndCase
from pictures import quarters
from session import wait_until, with_sound

LOW, MIDDLE, HIGH, TOP = 400, 800, 1200, 1800  # hertz
TICK = 0.5  # seconds between two looks at a sound that holds its picture
LIST_TICK = 1  # seconds between two looks at the sound list
# Seconds: the recording follows a little later than what is heard, and a loaded machine is slow.
EARLY = 0.4
LATE = 2

WINDOW_OF_THE_SHOW = 1  # all that its process may show


class SoundCase(EndToEndCase):
    size = (800, 600)

    def setUp(self):
        super().setUp()
        self.frames = {name: self.frame().centre(self.add(name, quarters(*size)))
                       for name, size in {"a.bmp": (200, 100), "b.bmp": (100, 200)}.items()}

    def add_tone(self, name, frequency, seconds):
        sounds.save_tone(os.path.join(self.pictures, name), frequency, seconds)


class SoundTest(SoundCase):
    """On a machine whose sounds are recorded."""

    sound = True
    interval = "2"

    def setUp(self):
        super().setUp()
        self.server = self.machine.sound
        self.begin = self.server.recorded()

    def now(self):
        """The place in the recording, in seconds from the test's begin."""
        return (self.server.recorded() - self.begin) / with_sound.RATE

    def heard(self):
        return sounds.heard(self.server.samples(self.begin), (LOW, MIDDLE, HIGH, TOP))

    def wait_for_tones(self, *frequencies):
        """Waits until so many tones are over; they must be these, in this order."""
        tones = []

        def enough():
            nonlocal tones
            tones = self.heard()
            # The last one may go on yet.
            return len(tones) > len(frequencies) or (
                len(tones) == len(frequencies) and self.now() - tones[-1].end > 3 * sounds.SHORTEST)
        wait_until(enough, lambda: f"was heard: {tones}", LIMIT + 10 * len(frequencies))
        self.assertEqual([tone.frequency for tone in tones[:len(frequencies)]], list(frequencies), tones)
        return tones

    def watch_times(self, show, changes):
        """The names of the pictures as they come, each with its time."""
        seen = []

        def enough():
            self.assertTrue(show.running())
            shot, now = self.machine.shot(), self.now()
            name = next((name for name, frame in self.frames.items() if not frame.difference(shot)), None)
            if name and (not seen or seen[-1][0] != name):
                seen.append((name, now))
            return len(seen) >= changes
        wait_until(enough, lambda: f"of the pictures came only {seen}", LIMIT + 5 * changes)
        return seen

    def end_in_silence(self, show):
        """Nothing is heard any more soon after the end."""
        self.end_by_key(show)
        end = self.now()
        # NOTE: for what must not be heard there is no event; this is long enough for a tone to show.
        wait_until(lambda: self.now() > end + 3, "the recording stands still")
        self.assertEqual([tone for tone in self.heard() if tone.end > end + 1], [])

    def test_without_a_sound_mode_nothing_is_heard_or_loaded(self):
        self.add_tone("low.wav", LOW, 1)
        show = self.start_template("IMAGE=a.bmp", "SOUND=low.wav", "IMAGE=b.bmp", "SOUND=low.wav")
        self.assertEqual(show.watch(self.frames, 3), ["a.bmp", "b.bmp", "a.bmp"])
        modules = {module.rpartition("\\")[2].lower()
                   for (module,) in self.probe.ask("modules", show.wait_for_form().process)}
        self.assertEqual(modules & {"quartz.dll", "dsound.dll", "winmm.dll", "mmdevapi.dll"}, set())
        self.end_in_silence(show)
        self.assertEqual(self.heard(), [])

    def test_mode_1_cuts_a_sound_off_with_the_next(self):
        self.add_tone("low.wav", LOW, 20)
        self.add_tone("middle.wav", MIDDLE, 0.7)
        show = self.start_template("SOUNDSYNC=1", "IMAGE=a.bmp", "SOUND=low.wav", "IMAGE=b.bmp",
                                   "SOUND=middle.wav")
        tones = self.wait_for_tones(LOW, MIDDLE, LOW)
        for tone in tones[0], tones[2]:
            self.assertAlmostEqual(tone.end - tone.begin, 2, delta=1)
        self.assertAlmostEqual(tones[1].end - tones[1].begin, 0.7, delta=0.4)
        self.assertLess(tones[1].begin - tones[0].end, 0.5)
        self.end_in_silence(show)

    def test_mode_1_sound_is_cut_off_by_the_end(self):
        self.add_tone("low.wav", LOW, 20)
        show = self.start_template("SOUNDSYNC=1", "IMAGE=a.bmp", "SOUND=low.wav", ImageInterval="8")
        wait_until(self.heard, "nothing is heard")
        self.end_in_silence(show)

    def test_mode_2_holds_each_picture_until_the_tick_behind_its_sound(self):
        self.add_tone("low.wav", LOW, 3)
        self.add_tone("middle.mp3", MIDDLE, 2)
        show = self.start_template("SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=low.wav", "IMAGE=b.bmp",
                                   "SOUND=middle.mp3", ImageInterval="60")
        changes = self.watch_times(show, 4)
        tones = self.wait_for_tones(LOW, MIDDLE, LOW)
        self.assertEqual([name for name, _ in changes], ["a.bmp", "b.bmp", "a.bmp", "b.bmp"])
        for tone, length, shown, left in zip(tones, (3, 2, 3), changes, changes[1:]):
            self.assertAlmostEqual(tone.end - tone.begin, length, delta=0.5)
            self.assertGreater(tone.begin, shown[1] - EARLY)
            self.assertGreater(left[1], tone.end - EARLY)
            self.assertLess(left[1], tone.end + TICK + LATE)
        self.end_in_silence(show)

    def test_mode_2_picture_without_a_sound_goes_with_the_next_tick(self):
        self.add_tone("low.wav", LOW, 4)
        show = self.start_template("SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=low.wav", "IMAGE=b.bmp")
        changes = self.watch_times(show, 3)
        self.assertGreater(changes[1][1] - changes[0][1], 4 - EARLY)
        self.assertLess(changes[2][1] - changes[1][1], TICK + LATE)
        self.end_in_silence(show)

    def test_mode_2_missing_and_broken_sounds_hold_nothing(self):
        self.write("empty.wav", b"")
        self.write("text.mp3", b"this is no sound " * 1000)
        self.add_tone("whole.wav", LOW, 2)
        with open(os.path.join(self.pictures, "whole.wav"), "rb") as file:
            self.write("cut.wav", file.read(30))
        self.add_tone("low.wav", LOW, 1)
        broken = "missing.wav", "C:\\missing\\too.mp3", "empty.wav", "text.mp3", "cut.wav", "a.bmp"
        lines = [line for name, picture in zip(broken, ("b.bmp", "a.bmp") * 3)
                 for line in (f"IMAGE={picture}", f"SOUND={name}")]
        show = self.start_template("SOUNDSYNC=2", *lines, "IMAGE=b.bmp", "SOUND=low.wav", "IMAGE=a.bmp",
                                   ImageInterval="60")
        changes = self.watch_times(show, 8)
        tone, = self.wait_for_tones(LOW)[:1]
        self.assertGreater(tone.begin, changes[6][1] - EARLY)
        self.assertGreater(changes[7][1], tone.end - EARLY)
        self.end_in_silence(show)

    def test_mode_2_device_that_goes_away_lets_the_show_go_on(self):
        server = with_sound.SoundServer(os.path.join(self.folder, "server"))
        self.addCleanup(server.close)
        self.environment = server.environment
        self.add_tone("low.wav", LOW, 60)
        show = self.start_template("SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=low.wav", "IMAGE=b.bmp",
                                   "SOUND=low.wav")
        show.wait_for_frame(self.frames["a.bmp"])
        wait_until(lambda: sounds.heard(server.samples(), (LOW,)), "nothing is heard")
        server.stop()
        self.assertEqual(show.watch(self.frames, 3), ["a.bmp", "b.bmp", "a.bmp"])
        self.end_by_key(show)

    def test_mode_3_plays_the_list_in_order_and_starts_over(self):
        self.add_tone("low.wav", LOW, 0.7)
        self.add_tone("middle.wav", MIDDLE, 1.6)
        self.add_tone("high.wav", HIGH, 0.5)
        show = self.start_template("SOUNDASYNC", "SOUND=low.wav", "SOUND=middle.wav", "IMAGE=a.bmp",
                                   "SOUND=high.wav", "IMAGE=b.bmp")
        first, second = (when for _, when in self.watch_times(show, 2))
        tones = self.wait_for_tones(LOW, MIDDLE, HIGH, LOW, MIDDLE)
        self.assertGreater(tones[0].begin, first - EARLY)
        self.assertLess(tones[0].begin, first + LIST_TICK + LATE)
        self.assertLess(second - first, 2 + LATE, "the pictures don't wait")
        for before, after in zip(tones, tones[1:]):
            self.assertGreaterEqual(after.begin, before.end)
            # A step in between starts the count of the list's timer anew.
            self.assertLess(after.begin, before.end + 2 * LIST_TICK + LATE)
        self.end_in_silence(show)

    def test_mode_3_sound_is_stopped_by_the_end(self):
        self.add_tone("low.wav", LOW, 30)
        show = self.start_template("SOUNDASYNC", "SOUND=low.wav", "IMAGE=a.bmp")
        wait_until(self.heard, "nothing is heard")
        self.end_in_silence(show)

    def test_every_kind_of_sound_is_heard_and_a_film_is_not_seen(self):
        kinds = {"a.wav": LOW, "b.mp3": MIDDLE, "c.mp2": HIGH, "d.mpg": TOP}
        for name, frequency in kinds.items():
            self.add_tone(name, frequency, 2)
        show = self.start_template("SOUNDASYNC", *(f"SOUND={name}" for name in kinds), "IMAGE=a.bmp",
                                   ImageInterval="30")
        process = show.wait_for_form().process
        tones = self.wait_for_tones(LOW, MIDDLE, HIGH)

        def film_plays():
            visible = [window for window in self.probe.windows()
                       if window.process == process and window.visible]
            self.assertEqual(len(visible), WINDOW_OF_THE_SHOW, visible)
            return self.heard()[-1].frequency == TOP
        wait_until(film_plays, lambda: f"was heard: {self.heard()}")
        show.wait_for_frame(self.frames["a.bmp"])
        tones = self.wait_for_tones(*kinds.values())
        for tone in tones[:len(kinds)]:
            self.assertAlmostEqual(tone.end - tone.begin, 2, delta=0.5)
        self.end_in_silence(show)

    def test_a_show_that_ends_while_a_sound_plays_ends_at_once(self):
        self.add_tone("low.mp3", LOW, 30)
        for _ in range(3):
            before = self.now()
            show = self.start_template("SOUNDSYNC=2", "IMAGE=a.bmp", "SOUND=low.mp3")
            wait_until(lambda: [tone for tone in self.heard() if tone.begin > before], "nothing is heard")
            begin = time.monotonic()
            self.end_by_key(show)
            self.assertLess(time.monotonic() - begin, LATE + 3)


class NoSoundDeviceTest(SoundCase):
    """On a machine that has nothing to play a sound on."""

    def test_all_pictures_are_shown_in_every_mode(self):
        self.add_tone("long.wav", LOW, 60)
        self.add_tone("long.mp3", LOW, 60)
        for mode in "SOUNDSYNC=1", "SOUNDSYNC=2", "SOUNDASYNC":
            with self.subTest(mode):
                show = self.start_template(mode, "IMAGE=a.bmp", "SOUND=long.wav", "IMAGE=b.bmp",
                                           "SOUND=long.mp3")
                self.assertEqual(show.watch(self.frames, 4), ["a.bmp", "b.bmp"] * 2)
                self.end_by_key(show)
