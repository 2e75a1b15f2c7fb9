#!/usr/bin/env python3
"""Writes the side files of share/ that come from a formula: loads, dispersion, excitations.

First line a comment, then one point a line, lines ended by CR LF. The same script gives the same
bytes. A section below stands for a kind of file and names its formulas and where they come from.
"""

import cmath
import math
import pathlib

SHARE = pathlib.Path(__file__).resolve().parent.parent / "share"


def number(value):
    text = f"{value:.6g}"
    return "0" if float(text) == 0 else text


def write(folder, name, comment, rows):
    """Writes rows of numbers below a comment, to which it adds their count."""
    lines = [f"{comment}, {len(rows)} points"]
    lines += [",".join(number(value) for value in row) for row in rows]
    path = SHARE / folder / name
    path.write_bytes(("\r\n".join(lines) + "\r\n").encode("ascii"))


# --- Complex loads, relative to the nominal load ------------------------------------------------
#
# For a sweep from 0.2 to 1.8 times the design frequency Fd in 400 steps, whatever Fd is.

STEPS = 400
FREQS = [0.2 + 1.6 * k / STEPS for k in range(STEPS + 1)]
SWEEP_WORDS = "for a sweep from 0.2 Fd to 1.8 Fd"


def integral(function, last, steps=2000):
    """Integral from 0 to last by Simpson's rule."""
    odd = sum(function(last * k / steps) for k in range(1, steps, 2))
    even = sum(function(last * k / steps) for k in range(2, steps, 2))
    return (function(0) + 4 * odd + 2 * even + function(last)) * last / steps / 3


def bessel_j1(x):
    return integral(lambda t: math.cos(t - x * math.sin(t)), math.pi) / math.pi


def struve_h1(x):
    return 2 * x / math.pi * integral(
        lambda t: math.sin(x * math.cos(t)) * math.sin(t) ** 2, math.pi / 2)


def piston(ka):
    """Radiation impedance of a circular piston of radius a in a rigid baffle, over that of a plane
    wave: 1 - 2 J1(x)/x + j 2 H1(x)/x, x = 2 ka. Kinsler, Frey, Coppens, Sanders: Fundamentals of
    Acoustics, chapter 7."""
    x = 2 * ka
    return complex(1 - 2 * bessel_j1(x) / x, 2 * struve_h1(x) / x)


def line(end, half_waves, decibels, freq):
    """Input impedance of a line over its own, ended by `end`, so many half waves long at Fd and
    with a loss in dB that grows with the frequency: (z + tanh g)/(1 + z tanh g), g the complex
    length. Kinsler, Frey, Coppens, Sanders: Fundamentals of Acoustics, chapter 10."""
    nepers = decibels * freq * math.log(10) / 20
    tangent = cmath.tanh(complex(nepers, math.pi * half_waves * freq))
    return (end + tangent) / (1 + end * tangent)


for ka in (2, 5, 10, 20, 50):
    values = [piston(ka * freq) for freq in FREQS]
    write("Acoustic loads", f"Piston ka {ka}.lac",
          f"Circular piston in a rigid baffle; ka = {ka} at Fd; {SWEEP_WORDS}",
          [(z.real, z.imag) for z in values])

AIR = 1e-4
values = [line(AIR, 8, 3, freq) for freq in FREQS]
write("Acoustic loads", "Mounting line.lac",
      f"Mounting line of the nominal load; 8 half waves long and 3 dB at Fd; ended by air; "
      f"{SWEEP_WORDS}",
      [(z.real, z.imag) for z in values])


# --- Velocity dispersion, factors of the velocity at Fd -------------------------------------------
#
# For the same sweep as the loads.


def lossy(decibels, exponent, freq):
    """Velocity that belongs to a loss of so many dB per wavelength at Fd, growing with a power of
    the frequency: the nearly local form of the Kramers-Kronig relation, d(1/c)/d(omega) =
    -(2/pi) alpha/omega^2, integrated from Fd. O'Donnell, Jaynes, Miller, J. Acoust. Soc. Am. 69
    (1981) 696-701."""
    nepers_per_radian = decibels * math.log(10) / 20 / (2 * math.pi)
    power = exponent - 1
    span = math.log(freq) if power == 0 else (freq ** power - 1) / power
    return 1 / (1 - 2 / math.pi * nepers_per_radian * span)


def laminate(share, contrast, period, freq):
    """Phase velocity across a stack of two layers in turn, over the one at Fd. `share` is the part
    of a period's travel time that the first layer has, `contrast` the ratio of the impedances,
    `period` the travel time of a period in cycles of Fd. cos(kd) = cos(a) cos(b) -
    (contrast + 1/contrast)/2 sin(a) sin(b): S. M. Rytov, Acoustical properties of a thinly
    laminated medium, Sov. Phys. Acoust. 2 (1956) 68-80."""
    def wave_number(f):
        a = 2 * math.pi * f * period * share
        b = 2 * math.pi * f * period * (1 - share)
        return math.acos(math.cos(a) * math.cos(b) -
                         (contrast + 1 / contrast) / 2 * math.sin(a) * math.sin(b))
    return freq * wave_number(1) / wave_number(freq)


def write_dispersion(name, comment, values):
    write("Velocity dispersion", name, f"{comment}; {SWEEP_WORDS}", [(value,) for value in values])


# A mechanical quality of Q is a loss of pi/Q nepers per wavelength.
QUALITY = 20
write_dispersion("Piezo composite.csv", f"Piezoelectric composite of mechanical quality {QUALITY}",
                 [lossy(math.pi / QUALITY * 20 / math.log(10), 1, freq) for freq in FREQS])
write_dispersion("Tungsten epoxy backing.csv",
                 "Tungsten-loaded epoxy; 3 dB per wavelength at Fd, growing with f^1.5",
                 [lossy(3, 1.5, freq) for freq in FREQS])
write_dispersion("Ceramic epoxy laminate.csv",
                 "Laminate of ceramic and epoxy across its layers; period of 1/16 cycle at Fd",
                 [laminate(0.4, 10, 1 / 16, freq) for freq in FREQS])


# --- Excitations ----------------------------------------------------------------------------------
#
# 20 samples to a cycle of the centre frequency: 5 MHz at a sample rate of 100 MHz.

PER_CYCLE = 20
SAMPLING = f"{PER_CYCLE} samples to a cycle"


def write_excitation(name, comment, values):
    write("EXCITE", name, comment, [(value,) for value in values])


def sine(sample):
    return math.sin(2 * math.pi * sample / PER_CYCLE)


for cycles in (1, 3, 5, 10):
    write_excitation(f"Tone burst {cycles} cycle{'s' if cycles > 1 else ''}.xct",
                     f"Tone burst; {SAMPLING}",
                     [sine(k) for k in range(cycles * PER_CYCLE + 1)])

# The raised cosine of von Hann: F. J. Harris, On the use of windows for harmonic analysis with the
# discrete Fourier transform, Proc. IEEE 66 (1978) 51-83.
LENGTH = 5 * PER_CYCLE
write_excitation("Tone burst 5 cycles Hann.xct", f"Tone burst under a Hann window; {SAMPLING}",
                 [sine(k) * math.sin(math.pi * k / LENGTH) ** 2 for k in range(LENGTH + 1)])

# exp(-t^2/(2 s^2)) cos(2 pi f t), whose spectrum is 6 dB down at f (1 +- b/2) for
# s = sqrt(2 ln 2)/(pi b f).
BANDWIDTH = 0.6
SIGMA = math.sqrt(2 * math.log(2)) / (math.pi * BANDWIDTH) * PER_CYCLE
REACH = 4 * PER_CYCLE
write_excitation("Gaussian pulse.xct",
                 f"Gaussian pulse of {BANDWIDTH * 100:.0f} % bandwidth at -6 dB; {SAMPLING}",
                 [math.exp(-((k - REACH) / SIGMA) ** 2 / 2) *
                  math.cos(2 * math.pi * (k - REACH) / PER_CYCLE) for k in range(2 * REACH + 1)])

# sin(2 pi (f1 t + (f2 - f1) t^2/(2 T))): J. R. Klauder, A. C. Price, S. Darlington, W. J.
# Albersheim, The theory and design of chirp radars, Bell Syst. Tech. J. 39 (1960) 745-808.
FIRST, LAST = 0.5 / PER_CYCLE, 1.5 / PER_CYCLE
SWEEP = 20 * PER_CYCLE
write_excitation("Chirp.xct",
                 f"Linear chirp from 0.5 to 1.5 times the centre frequency; {SAMPLING}",
                 [math.sin(2 * math.pi * (FIRST * k + (LAST - FIRST) * k * k / (2 * SWEEP)))
                  for k in range(SWEEP + 1)])

# 0 and then 1, to the end of the file.
write_excitation("Step.xct", "Step of 50 cycles of the centre frequency; " + SAMPLING,
                 [0.0] * PER_CYCLE + [1.0] * (50 * PER_CYCLE))

# A pulser that drives both ways: half a cycle up, half a cycle down, edges of two samples.
HALF = PER_CYCLE // 2
write_excitation("Bipolar pulser.xct", f"Bipolar square pulse; {SAMPLING}",
                 [0.0, 0.5] + [1.0] * (HALF - 2) + [0.5, 0.0, -0.5] + [-1.0] * (HALF - 2) +
                 [-0.5, 0.0])
