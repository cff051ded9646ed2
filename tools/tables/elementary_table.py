"""The constants and tables of src/numerics/: sine_cosine.cpp, arcs.cpp, logarithm.cpp, computed here in 60 digits.

A pair is a number as the sum of two doubles, the second at most half an ulp of the first.

  - h = 2 pi / 512 in pieces of 22 bits, each of whose products with a count of steps below 2^31 is exact;
  - what the table of the circle's steps lost when it was rounded to double, as floats;
  - arctan(k / 64) for k = 8 to 64, as pairs;
  - the polynomial of (arcsin s / s - 1) / z in z = s^2 for s^2 <= 1/4, through the Chebyshev points;
  - the binary digits of 2 / pi, as many as the largest double needs;
  - ln 2 in two parts, the first of 32 bits, so that its product with an exponent is exact, and the
    polynomial of (ln((1 + s) / (1 - s)) - 2 s) / s^3 in z = s^2 for |s| <= 3 - 2 sqrt 2 (1 + 2^-20),
    through the Chebyshev points of the interval of z.
"""
import struct
from decimal import Decimal, localcontext

from sincos_table import (HIGH_BITS, PI, STEPS, arctangent_of_inverse, cosine, on_the_circle,
                          rounded_to_bits)

PIECES = 7
ARCTANGENT_STEPS = 64
ARCTANGENT_FIRST = 8
LOGARITHM_DEGREE = 7
ARCSINE_DEGREE = 13
TURN_WORDS = 38


def pair(x):
    high = float(x)
    return high, float(x - Decimal(high))


def braced_pair(x):
    high, low = pair(x)
    return f"{{{high.hex()}, {low.hex()}}}"


def signed_bits(x, bits):
    return rounded_to_bits(x, bits) if x > 0 else -rounded_to_bits(-x, bits)


def step_pieces():
    rest, rows = 2 * PI / STEPS, []
    for _ in range(PIECES):
        piece = signed_bits(rest, HIGH_BITS)
        rest -= Decimal(piece)
        rows.append(f"{piece.hex()},")
    return rows


def two_over_pi_words():
    """Of 32 bits each, the first one right of the point."""
    with localcontext() as context:
        context.prec = 400
        pi = 4 * (4 * arctangent_of_inverse(5, 400) - arctangent_of_inverse(239, 400))
        digits = int(2 / pi * Decimal(2) ** (32 * TURN_WORDS))
    return [f"0x{digits >> 32 * (TURN_WORDS - 1 - k) & 0xFFFFFFFF:08X}U," for k in range(TURN_WORDS)]


def as_float(x):
    return struct.unpack("f", struct.pack("f", float(x)))[0]


def step_rests():
    cosines = (on_the_circle(k)[0] for k in range(STEPS))
    return [as_float(v - Decimal(float(v))).hex() + "F," for v in cosines]


def arctangent(x):
    """For 0 <= x <= 1: three halvings of the angle, then the series."""
    for _ in range(3):
        x = x / (1 + (1 + x * x).sqrt())
    total, power, k = Decimal(0), x, 0
    while abs(power) > Decimal(10) ** -62:
        total += power / (2 * k + 1) * (1 if k % 2 == 0 else -1)
        power *= x * x
        k += 1
    return 8 * total


def arctangents():
    return [braced_pair(arctangent(Decimal(k) / ARCTANGENT_STEPS)) + ","
            for k in range(ARCTANGENT_FIRST, ARCTANGENT_STEPS + 1)]


def logarithm_rest(z):
    """(ln((1 + s) / (1 - s)) - 2 s) / s^3 with z = s^2."""
    total, power, k = Decimal(0), Decimal(1), 1
    while power > Decimal(10) ** -62:
        total += 2 * power / (2 * k + 1)
        power *= z
        k += 1
    return total


def through_points(function, largest, degree):
    """The polynomial that meets function at the Chebyshev points of [0, largest], as its coefficients,
    the constant first."""
    count = degree + 1
    points = [largest / 2 * (1 + on_axis) for on_axis in
              (cosine((2 * k + 1) * PI / (2 * count)) for k in range(count))]
    # Newton's divided differences, then multiplied out.
    table = [function(z) for z in points]
    for level in range(1, count):
        for k in range(count - 1, level - 1, -1):
            table[k] = (table[k] - table[k - 1]) / (points[k] - points[k - level])
    coefficients = [Decimal(0)] * count
    for k in range(count - 1, -1, -1):
        moved = [Decimal(0)] + coefficients[:-1]
        coefficients = [m - points[k] * c for m, c in zip(moved, coefficients)]
        coefficients[0] += table[k]
    return coefficients


def arcsine_rest(z):
    """(arcsin s / s - 1) / z with z = s^2, by its series."""
    total, term, k = Decimal(0), Decimal(1) / 2, 1
    while term > Decimal(10) ** -62:
        total += term / (2 * k + 1)
        term *= z * (2 * k + 1) / (2 * k + 2)
        k += 1
    return total


def polynomial(name, coefficients):
    return [f"constexpr double {name}[{len(coefficients)}] = {{",
            *(f"    {c.hex()}," for c in coefficients), "};"]


def largest_error(coefficients, function, largest):
    """Of z times the polynomial with the rounded coefficients, on a grid of 2000 points."""
    worst = Decimal(0)
    for k in range(1, 2001):
        z = largest * k / 2000
        total = Decimal(0)
        for c in reversed(coefficients):
            total = total * z + Decimal(c)
        worst = max(worst, abs(total - function(z)) * z)
    return worst


def rounded_through_points(function, largest, degree):
    return [float(c) for c in through_points(function, largest, degree)]


def arcsine_constants():
    rounded = rounded_through_points(arcsine_rest, Decimal("0.25"), ARCSINE_DEGREE)
    worst = largest_error(rounded, arcsine_rest, Decimal("0.25"))
    return [f"// arcsin s = s + s z (A0 + A1 z + ...), z = s s <= 1/4, to {worst:.1e} of s.",
            *polynomial("kArcsine", rounded)]


def turn_constants():
    return [
        "// Pairs: the value rounded, and what that left out.",
        f"constexpr Pair kPiPair = {braced_pair(PI)};",
        f"constexpr Pair kHalfPiPair = {braced_pair(PI / 2)};",
    ]


def logarithm_constants():
    largest = (3 - 2 * Decimal(2).sqrt()) * (1 + Decimal(2) ** -20)
    rounded = rounded_through_points(logarithm_rest, largest**2, LOGARITHM_DEGREE)
    worst = largest_error(rounded, logarithm_rest, largest**2) / 2
    ln2 = Decimal(2).ln()
    high = rounded_to_bits(ln2, 32)
    return [
        "// ln 2, the first part of 32 bits.",
        f"constexpr double kLn2High = {high.hex()};",
        f"constexpr double kLn2Low = {float(ln2 - Decimal(high)).hex()};",
        f"// ln((1 + s) / (1 - s)) = 2 s + s z (L0 + L1 z + ...), z = s s, to {worst:.1e} of 2 s.",
        *polynomial("kLogarithm", rounded),
    ]
