"""The constants and the table of src/numerics/sincos_kernel.h, computed here in 60 digits.

A circle is cut into 512 steps of h = 2 pi / 512. The kernel needs

  - cos k h and sin k h, rounded to double;
  - h in two parts, the first of 22 bits, so that its product with a count of steps below 2^31 is
    exact, the second what is missing, rounded to double;
  - two short polynomials for |r| <= h / 2 (1 + 2^-20):
        sin r = r + r z (S1 + z S2),  cos r - 1 = z (C1 + z C2),  z = r r,
    which interpolate (sin r / r - 1) / z and (cos r - 1) / z at the two Chebyshev points of the
    interval of z. Their largest errors, written above them, are found on a grid of 4000 points.
"""
from decimal import Decimal, getcontext

getcontext().prec = 60

STEPS = 512
HIGH_BITS = 22


def arctangent_of_inverse(n, digits=60):
    total, power, k = Decimal(0), Decimal(1) / n, 0
    while abs(power) > Decimal(10) ** -(digits + 2):
        total += power / (2 * k + 1) * (1 if k % 2 == 0 else -1)
        power /= n * n
        k += 1
    return total


PI = 4 * (4 * arctangent_of_inverse(5) - arctangent_of_inverse(239))  # Machin 1706


def alternating(x, first):
    """x^first / first! - x^(first + 2) / (first + 2)! + ...: the cosine (0) or the sine (1)."""
    term = x if first else Decimal(1)
    total, n = Decimal(0), first
    while abs(term) > Decimal(10) ** -62:
        total += term
        term = -term * x * x / ((n + 1) * (n + 2))
        n += 2
    return total


def cosine(x):
    return alternating(x, 0)


def sine(x):
    return alternating(x, 1)


def on_the_circle(k):
    """cos and sin of k steps, exact on the axes; the argument is at most pi / 4."""
    quadrant, rest = divmod(k + STEPS // 8, STEPS // 4)
    angle = 2 * PI * (rest - STEPS // 8) / STEPS
    c, s = cosine(angle), sine(angle)
    return [(c, s), (-s, c), (-c, -s), (s, -c)][quadrant % 4]


def rounded_to_bits(x, bits):
    """x > 0 rounded to so many significant bits; exact in a double for up to 53."""
    scale = 0
    while x < 2 ** (bits - 1):
        x, scale = x * 2, scale + 1
    return float(x.to_integral_value()) / 2.0**scale


def through_chebyshev_points(function, largest):
    """The straight line in z that meets function at the two Chebyshev points of [0, largest]."""
    offset = largest / 2 * (1 / Decimal(2).sqrt())
    low, high = largest / 2 - offset, largest / 2 + offset
    slope = (function(high) - function(low)) / (high - low)
    return float(function(low) - slope * low), float(slope)


def constants():
    h = 2 * PI / STEPS
    high = rounded_to_bits(h, HIGH_BITS)
    low = float(h - Decimal(high))
    bound = h / 2 * (1 + Decimal(2) ** -20)
    s = through_chebyshev_points(lambda z: (sine(z.sqrt()) / z.sqrt() - 1) / z, bound**2)
    c = through_chebyshev_points(lambda z: (cosine(z.sqrt()) - 1) / z, bound**2)

    def worst(function, series):
        grid = [bound * k / 4000 for k in range(1, 4001)]
        return max(abs(function(r) - series(r)) for r in grid)

    s1, s2, c1, c2 = (Decimal(x) for x in s + c)
    sine_error = worst(sine, lambda r: r + r**3 * (s1 + r * r * s2))
    cosine_error = worst(cosine, lambda r: 1 + r**2 * (c1 + r * r * c2))
    missing = abs(h - Decimal(high) - Decimal(low)) / h
    return [
        "// Steps of a circle; h = 2 pi / 512.",
        f"constexpr double kStepsPerRadian = {float(1 / h).hex()};",
        f"constexpr double kStepHigh = {high.hex()};  // h to {HIGH_BITS} bits",
        f"constexpr double kStepLow = {low.hex()};  // the rest, but for {missing:.1e} of h",
        f"// sin r = r + r z (S1 + z S2), z = r r, to {sine_error:.1e}.",
        f"constexpr double kS1 = {s[0].hex()};",
        f"constexpr double kS2 = {s[1].hex()};",
        f"// cos r - 1 = z (C1 + z C2), to {cosine_error:.1e}.",
        f"constexpr double kC1 = {c[0].hex()};",
        f"constexpr double kC2 = {c[1].hex()};",
    ]


def table_rows():
    rows = []
    for k in range(STEPS):
        c, s = on_the_circle(k)
        rows.append(f"{{{float(c).hex()}, {float(s).hex()}}},")
    return rows
