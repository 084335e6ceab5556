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
SHORTEST = 0.1  # seconds; what is shorter is no tone, and no gap in one

Tone = collections.namedtuple("Tone", "frequency begin end")  # seconds


def save_tone(path, frequency, seconds):
    """A WAV, MP3 or MP2 by the name's extension, or an MPG that shows a test picture besides."""
    kind = os.path.splitext(path)[1].lower()
    wav = path if kind == ".wav" else path + ".wav"
    samples = array.array("h", (round(LOUD * math.sin(2 * math.pi * frequency * index / RATE))
                                for index in range(round(seconds * RATE))))
    with wave.open(wav, "wb") as file:
        file.setparams((1, 2, RATE, 0, "NONE", None))
        file.writeframes(samples.tobytes())
    if kind == ".wav":
        return
    picture = ["-f", "lavfi", "-i", f"testsrc=size=320x240:rate=25:duration={seconds}", "-c:v", "mpeg1video"]
    codec = {".mp3": ["-c:a", "libmp3lame"], ".mp2": ["-c:a", "mp2"], ".mpg": [*picture, "-c:a", "mp2"]}[kind]
    subprocess.run(["ffmpeg", "-v", "error", "-y", "-i", wav, *codec, path], check=True,
                   stdin=subprocess.DEVNULL)
    os.remove(wav)


def _frequency(samples):
    """Of one window, roughly; 0 for silence."""
    if max(map(abs, samples)) < QUIET:
        return 0
    crossings = sum((a < 0) != (b < 0) for a, b in zip(samples, samples[1:]))
    return crossings * RATE / 2 / len(samples)


def heard(recording, frequencies):
    """The tones of a recording in their order. What is neither silence nor one of the frequencies, such as
    two tones at once, comes as a tone of frequency None."""
    samples = array.array("h", recording)
    runs = []  # of windows: [frequency, first, behind the last]
    for index in range(len(samples) // WINDOW):
        found = _frequency(samples[index * WINDOW:(index + 1) * WINDOW])
        near = min(frequencies, key=lambda frequency: abs(frequency - found))
        name = 0 if not found else near if abs(near - found) < 60 else None
        if runs and runs[-1][0] == name:
            runs[-1][2] = index + 1
        else:
            runs.append([name, index, index + 1])
    tones = []
    for name, first, behind in runs:
        begin, end = first * WINDOW / RATE, behind * WINDOW / RATE
        if tones and tones[-1].frequency == name and begin - tones[-1].end < SHORTEST:
            tones[-1] = tones[-1]._replace(end=end)
        elif name != 0 and end - begin >= SHORTEST:
            tones.append(Tone(name, begin, end))
    return tones
