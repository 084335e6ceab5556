"""What the tests of sounds share."""

import os

import sounds
from case import LIMIT, EndToEndCase
from pictures import quarters
from session import wait_until

LOW, MIDDLE, HIGH, TOP = FREQUENCIES = 400, 800, 1200, 1800  # hertz
LONG = 30  # seconds of a sound that no test hears to its end
EARLY = 0.4  # seconds by which the recording may follow what is heard


class SoundCase(EndToEndCase):
    size = (800, 600)

    def setUp(self):
        super().setUp()
        self.frames = {}
        self.add_pictures("a.bmp", "b.bmp")

    def add_pictures(self, *names):
        """Each of other colours than the others."""
        for name in names:
            self.frames[name] = self.frame().centre(self.add(name, quarters(200, 100)))

    def add_tone(self, name, frequency, seconds):
        sounds.save_tone(os.path.join(self.pictures, name), frequency, seconds)


class ListeningCase(SoundCase):
    """On a machine whose sounds are recorded."""

    sound = True

    def setUp(self):
        super().setUp()
        self.listener = sounds.Listener(self.machine.sound, FREQUENCIES)

    def wait_for_tones(self, *frequencies, seconds=sounds.SHORTEST):
        """The first tones, once there are so many and the last of them has lasted so long; they must be these,
        in this order."""
        tones = []

        def enough():
            nonlocal tones
            tones = self.listener.tones()[:len(frequencies)]
            return len(tones) == len(frequencies) and tones[-1].heard >= seconds
        wait_until(enough, lambda: f"was heard: {tones}", LIMIT + 5 * len(frequencies))
        self.assertEqual([tone.frequency for tone in tones], list(frequencies), tones)
        return tones

    def check_length(self, tone, seconds):
        """A heavily loaded machine loses some of the end."""
        self.assertGreater(tone.heard, seconds / 2)
        self.assertLess(tone.heard, seconds + EARLY)

    def watch_times(self, show, last, changes=1):
        """Pairs of a picture's name and the time when it came, up to the one named `last` and for as many
        changes at least."""
        seen = []

        def enough():
            show.must_run()
            shot, now = self.machine.shot(), self.listener.now()
            name = next((name for name, frame in self.frames.items() if not frame.difference(shot)), None)
            if name and (not seen or seen[-1][0] != name):
                seen.append((name, now))
            return len(seen) >= changes and seen[-1][0] == last
        wait_until(enough, lambda: f"of the pictures came only {seen}", LIMIT + 10)
        return seen

    def end_in_silence(self, show):
        """Ends the show while a sound plays; the process ends well, and nothing is heard any more."""
        self.end_by_key(show)
        end = self.listener.now()
        # A second of silence, long before the sound would be over by itself.
        wait_until(lambda: self.listener.now() > end + 1 and
                   self.listener.now() - self.listener.tones()[-1].end > 1,
                   lambda: f"was heard: {self.listener.tones()}, the end was at {end}", LONG / 3)
