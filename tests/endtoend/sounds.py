"""Makes the sounds of the tests, plain tones, and tells which of them were played when."""

import array
import collections
import math
import os
import subprocess
import wave

RATE = 44100  # samples a second, made and recorded
LOUD = 8000  # of 32767
QUIET = 800  # what is below counts as silence
WINDOW = RATE // 50  # samples that are looked at together
SHORTEST = 0.1  # seconds; what is shorter is no tone
# Seconds; what is shorter is no gap in a tone: a loaded machine doesn't bring its sound in time.
GAP = 1

Tone = collections.namedtuple("Tone", "frequency begin end heard")  # hertz, seconds; `heard` without the gaps

# What ffmpeg makes of a tone, by the extension of the name. Wine counts the length of a film from its time
# stamp 0, so that this one begins there.
PICTURES = ["-f", "lavfi", "-i", "testsrc=size=176x144:rate=25", "-shortest", "-c:v", "mpeg1video"]
KINDS = {".mp3": ["-c:a", "libmp3lame"], ".mp2": ["-c:a", "mp2"],
         ".mpg": [*PICTURES, "-c:a", "mp2", "-muxpreload", "0", "-muxdelay", "0.1"]}


def save_tone(path, frequency, seconds):
    """A WAV, MP3 or MP2 by the name's extension, or an MPG that shows a test picture besides; `frequency` is
    whole."""
    kind = os.path.splitext(path)[1].lower()
    wav = path if kind == ".wav" else path + ".wav"
    second = array.array("h", (round(LOUD * math.sin(2 * math.pi * frequency * index / RATE))
                               for index in range(RATE)))
    samples = (second * math.ceil(seconds))[:round(seconds * RATE)]
    with wave.open(wav, "wb") as file:
        file.setparams((1, 2, RATE, 0, "NONE", None))
        file.writeframes(samples.tobytes())
    if kind != ".wav":
        _make("-i", wav, *KINDS[kind], path)
        os.remove(wav)


def save_silent_film(path, seconds):
    """An MPG that has no sound at all."""
    _make(*PICTURES, "-t", str(seconds), path)


def _make(*arguments):
    subprocess.run(["ffmpeg", "-v", "fatal", "-y", *arguments], check=True, stdin=subprocess.DEVNULL)


def _frequency(samples):
    """Of one window, roughly; 0 for silence. By the middle one of all half waves, so that the pieces that a loaded
    machine leaves out don't count."""
    if max(samples) < QUIET:
        return 0
    crossings = [index for index, (a, b) in enumerate(zip(samples, samples[1:])) if (a < 0) != (b < 0)]
    lengths = sorted(b - a for a, b in zip(crossings, crossings[1:]))
    return RATE / 2 / lengths[len(lengths) // 2] if lengths else math.inf


class Listener:
    """Hears what a sound server plays from now on."""

    def __init__(self, server, frequencies):
        """The frequencies in hertz, 200 apart and below 2000."""
        self._server = server
        self._frequencies = frequencies
        self._begin = server.recorded()
        self._windows = []  # the frequency of each, 0 for silence, None for neither

    def now(self):
        """The place in the recording, in seconds from the begin."""
        return (self._server.recorded() - self._begin) / RATE

    def tones(self):
        """All so far, in their order; the last one may go on yet. What is neither silence nor one of the
        frequencies, such as two tones at once, comes as a tone of frequency None."""
        new = array.array("h", self._server.samples(self._begin + len(self._windows) * WINDOW))
        for index in range(len(new) // WINDOW):
            found = _frequency(new[index * WINDOW:(index + 1) * WINDOW])
            near = min(self._frequencies, key=lambda frequency: abs(frequency - found))
            self._windows.append(0 if not found else near if abs(near - found) < 60 else None)
        return self._grouped()

    def _grouped(self):
        runs = []  # of windows: [frequency, first, behind the last]
        for index, name in enumerate(self._windows):
            if runs and runs[-1][0] == name:
                runs[-1][2] = index + 1
            else:
                runs.append([name, index, index + 1])
        tones = []
        for name, first, behind in runs:
            begin, end = first * WINDOW / RATE, behind * WINDOW / RATE
            if tones and tones[-1].frequency == name and begin - tones[-1].end < GAP:
                tones[-1] = tones[-1]._replace(end=end, heard=tones[-1].heard + end - begin)
            elif name != 0 and end - begin >= SHORTEST:
                tones.append(Tone(name, begin, end, end - begin))
        return tones
