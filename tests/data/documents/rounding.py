"""Numbers that know how far the double that stands for them may be off."""
from decimal import Decimal

from formulas import Failure, checked

UNIT = Decimal(2) ** -53  # one rounding, relatively


class Number:
    """A number with the bound of its error. What a double holds exactly, and was made of such numbers, has none."""

    def __init__(self, value, error=Decimal(0)):
        self.value = checked(Decimal(value))
        exact = error == 0 and Decimal(float(self.value)) == self.value
        self.error = Decimal(0) if exact else error + abs(self.value) * UNIT

    def __add__(self, other):
        return Number(self.value + other.value, self.error + other.error)

    def __sub__(self, other):
        return Number(self.value - other.value, self.error + other.error)

    def __mul__(self, other):
        return Number(self.value * other.value,
                      abs(self.value) * other.error + (abs(other.value) + other.error) * self.error)

    def __truediv__(self, other):
        if other.sign() == 0:
            raise Failure(11)
        quotient = self.value / other.value
        return Number(quotient, (self.error + abs(quotient) * other.error) / (abs(other.value) - other.error))

    def __abs__(self):
        return self if self.value >= 0 else Number(0) - self

    def root(self):
        if self.sign() < 0:
            raise Failure(5)
        root = self.value.sqrt()
        return Number(root, self.error / (root + (self.value - self.error).sqrt()) if self.error else Decimal(0))

    def sign(self):
        """-1, 0 or 1: the same for the double, whichever way it was rounded."""
        assert self.error == 0 or abs(self.value) > self.error, \
            f"the sign of {self.value} is a matter of rounding: choose other values"
        return (self.value > 0) - (self.value < 0)

    def roundings(self):
        """The error as a count of roundings."""
        return self.error / abs(self.value) / UNIT if self.error else Decimal(0)
