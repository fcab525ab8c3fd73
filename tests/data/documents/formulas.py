"""Numbers, their texts and the statistics of the tests, with 60 digits. The constants are those of the required approximations."""
import re
import sys
from decimal import ROUND_FLOOR, ROUND_HALF_UP, Context, Decimal, getcontext, localcontext

getcontext().prec = 60
LARGEST_DOUBLE = Decimal(sys.float_info.max)
TWO_PI = Decimal("6.283186")
PI = Decimal("3.141593")
FAILURES = {5: "Argomento non valido", 6: "Overflow", 11: "Divisione per zero", 13: "Tipo non corrispondente",
            62: "Fine del file raggiunta prima del previsto"}


class Failure(Exception):
    """What stops a reading or a calculation; the number is that of the runtime."""

    def __init__(self, number):
        super().__init__(number)
        self.json = {"number": number, "text": FAILURES[number]}


def checked(number):
    """The number, if a double can hold it."""
    if abs(number) > LARGEST_DOUBLE:
        raise Failure(6)
    return number


def divided(a, b):
    if b == 0:
        raise Failure(11)
    return checked(a / b)


def sixteen_bits(number):
    if not -32768 <= number <= 32767:
        raise Failure(6)
    return number


def count(text):
    """A text as a 16-bit integer."""
    if not re.fullmatch(r"[+-]?\d+", text.strip(" ")):
        raise Failure(13)
    return sixteen_bits(int(text))


def val(text):
    """The number that a text of a file begins with; 0 for none."""
    found = re.match(r"[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?", text.strip(" "))
    return Decimal(found.group()) if found else Decimal(0)


def rounded(number, decimals):
    """At 15 digits first, as a double is shown, then half away from zero; no negative zero."""
    with localcontext(prec=400):
        fifteen = Context(prec=15, rounding=ROUND_HALF_UP).plus(number)
        result = fifteen.quantize(Decimal(1).scaleb(-decimals), ROUND_HALF_UP)
        tie = abs(abs(number.scaleb(decimals)) % 1 - Decimal("0.5"))
    assert tie == 0 or tie > Decimal("1e-7"), f"{number} is too near to a tie: choose other values"
    return abs(result) if result == 0 else result


def thousandths(number):
    """Floored to three decimals."""
    result = number.quantize(Decimal("0.001"), ROUND_FLOOR)
    assert number == result or Decimal("1e-10") < number - result < Decimal("0.0009999999"), \
        f"{number} is too near to a step: choose other values"
    return result


def general(number):
    """The text of a number with three decimals at most."""
    text = f"{number:f}"
    return text.rstrip("0").rstrip(".") if "." in text else text


def filled(template, *texts):
    """The template with #1#, #2# ... replaced in turn: a place that a text brings along is filled by one
    after it. None leaves its place as it is."""
    for place, text in enumerate(texts, 1):
        template = template if text is None else template.replace(f"#{place}#", text)
    return template


def mean_and_variance(values):
    n, total, squares = len(values), Decimal(0), Decimal(0)
    for x in values:
        total = checked(total + x)
        squares = checked(squares + checked(x * x))
    mean = divided(total, Decimal(n))
    if mean == 0:
        return mean, Decimal(0)
    return mean, abs(divided(squares - total * total / n, Decimal(n - 1)))


def roundings_in_variance(values, variance):
    """How many roundings of a double the one-pass formula makes of one."""
    return 4 * sum(x * x for x in values) / variance if variance else Decimal(0)


def student(v):
    """The two-sided 5 % point of t."""
    if v == 0:
        raise Failure(11)
    if 1 <= v <= 4:
        return Decimal(("12.706", "4.303", "3.182", "2.776")[v - 1])
    u = (-2 * Decimal("0.025").ln()).sqrt()
    x = u - ((Decimal("2.515517") + Decimal("0.802853") * u + Decimal("0.010328") * u**2)
             / (1 + Decimal("1.432788") * u + Decimal("0.189269") * u**2 + Decimal("0.001308") * u**3))
    return (x + (x**3 + x) / (4 * v)
            + (5 * x**5 + 16 * x**3 + 3 * x) / (96 * v**2)
            + (3 * x**7 + 19 * x**5 + 17 * x**3 - 15 * x) / (384 * v**3)
            + (79 * x**9 + 776 * x**7 + 1482 * x**5 - 1920 * x**3 - 945 * x) / (92160 * v**4)
            + (27 * x**11 + 339 * x**9 + 930 * x**7 - 1782 * x**5 - 765 * x**3 + 17955 * x) / (368640 * v**5))


def tail_of_f(f, gdl1, gdl2):
    """The upper tail, by the normal approximation of the cube root. None: its series grew beyond 1e100."""
    a, b = (divided(Decimal(2), Decimal(sixteen_bits(9 * gdl))) for gdl in (gdl1, gdl2))
    c = (abs(f) ** (Decimal(1) / 3)).copy_sign(f) if f else Decimal(0)
    z = divided(c * (1 - b) - 1 + a, abs(c * c * b + a).sqrt())
    y, k = z * z, 1
    term = total = abs(z)
    while total + term != total:
        k += 2
        term = term / k * y
        if term > Decimal(10) ** 100:
            return None
        total += term
    p = Decimal("0.5") - total * (-y / 2).exp() / TWO_PI.sqrt()
    return 1 - p if z < 0 else p


def arctan(x):
    """By its series, after halving the angle until that is short."""
    halvings = 0
    while abs(x) > Decimal("0.01"):
        x = x / (1 + (1 + x * x).sqrt())
        halvings += 1
    return 2**halvings * sum((-1) ** k * x ** (2 * k + 1) / (2 * k + 1) for k in range(16))


def tail_of_t(t, gdl):
    """The two-sided tail, by the finite series in the angle whose tangent is t by the root of gdl."""
    tangent = abs(t) / Decimal(gdl).sqrt()
    cosine = 1 / (1 + tangent * tangent).sqrt()
    sine = tangent * cosine
    series, product = Decimal(0), Decimal(1)
    for k in range(2 if gdl % 2 == 0 else 3, gdl - 1, 2):
        product *= Decimal(k - 1) / k
        series += product * cosine**k
    if gdl % 2 == 0:
        return 1 - (1 + series) * sine
    # Of 1, 3, 5 ... the first term of the series is 2/3 of the third power, and the cosine alone stands for k = 1.
    inside = arctan(tangent) + ((cosine + series) * sine if gdl > 1 else 0)
    return 1 - inside * 2 / PI


def confidence(n, mean, s, t):
    """Lower and upper limit, width and percentage precision."""
    root = Decimal(n).sqrt()
    half = thousandths(s * t / root)
    return mean - half, mean + half, half + half, thousandths(divided(s * t * 100, root * mean))


def density(x, mean, s):
    return (-((x - mean) ** 2) / (2 * s * s)).exp() / (TWO_PI.sqrt() * s)
