"""What the companion must print of a calibration."""
import re
from decimal import ROUND_HALF_EVEN, Decimal

import sentences
from document import Document, Ended
from formulas import Failure, count, filled, general, sixteen_bits, student, tail_of_f, val
from rounding import UNIT, Number

NUMBER = re.compile(r"[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?")
SIGNIFICANT, NOT_SIGNIFICANT = "  (S)", " (NS)"


def total(numbers):
    result = Number(0)
    for number in numbers:
        result += number
    return result


def centred(text, width):
    blanks = " " * ((width - len(text)) // 2)
    result = blanks + text + blanks
    return " " + result if len(result) < len(text) | width else result


class Calibration(Document):
    key = "TARA"
    digits = (7, 3)
    columns = 5
    header = (0, 1, 3, 2)
    own_lines = 5
    size = {"Dimensioni": ["5", "3"], "nDatiTot": "9"}

    def rows_at_first(self):
        return 3

    def reset(self):
        self.groups, self.replicates = 5, 3
        self.texts[3] = "µg/ml"
        self.headers = [f"{place}{self.separator}000" for place in range(1, 6)]
        self.results = dict.fromkeys(("Regr", "CoeffA", "CoeffB", "Sa", "Sb", "ConfLim1", "ConfLim2"), self.show(Decimal(0)))
        self.tabulate(["0"] * 5, ["0"] * 5, ["0"] * 3, ["0"] * 2)

    def tabulate(self, *cells):
        titles = "Regressione", "Curvatura", "Errore", "Totali"
        self.table = [["Variazione", "Devianza", "GdL", "Varianza", "F", "Signif. (0,05%)"],
                      *([title, *row] + [""] * (5 - len(row)) for title, row in zip(titles, cells))]

    def take(self, _, replicates, groups, data, __):
        numbers = val(groups), val(replicates)
        self.size = {"Dimensioni": [general(number).replace(".", self.separator) for number in numbers],
                     "nDatiTot": data.strip(" ")}
        self.groups, self.replicates = (int(number.to_integral_value(ROUND_HALF_EVEN)) for number in numbers)
        sixteen_bits(self.groups)
        sixteen_bits(self.replicates)
        if self.groups < 0 or self.replicates < 0:
            raise Failure(5)
        if self.groups * self.replicates > 1048576:
            raise Failure(6)
        self.columns = self.groups
        self.headers = (self.headers + [""] * self.groups)[:self.groups]
        self.rows = [[None] * self.groups for _ in range(self.replicates)]

    def read_headers(self, file):
        for place in range(count(file.field())):
            text = self.as_header(file.field())
            if place < self.groups:
                self.headers[place] = text

    def as_header(self, text):
        """In the format of the file's digits, if it is a number."""
        number = text.strip(" ")
        return self.show(Decimal(number)) if NUMBER.fullmatch(number) else text.replace(".", self.separator)

    def give(self):
        headers = [self.as_header(header.replace(",", ".")).replace(",", ".") for header in self.headers]
        return "0", str(self.replicates), str(self.groups), self.size["nDatiTot"], "", str(self.groups), *headers

    def json(self, lang):
        return super().json(lang) | {"headers": self.headers, "table": self.table}

    def numbers(self):
        """Concentrations, and responses by concentration, as header and cells show them."""
        concentrations, responses = [], []
        for place, header in enumerate(self.headers):
            text = header.strip(" ").replace(",", ".")
            if text and not NUMBER.fullmatch(text):
                raise Failure(13)
            if Decimal(text or 0) <= 0:
                raise Ended("exclamation", "Quorel 2006", "Mancano alcuni valori di concentrazione.\r\n"
                                                          "Impossibile calcolare i risultati")
            concentrations.append(Number(text))
            responses.append([Number(self.cell(row[place]) or 0) for row in self.rows])
        return concentrations, responses

    def calculate(self):
        x, y = self.numbers()
        n = count(self.size["nDatiTot"])
        k, r = sixteen_bits(self.groups), sixteen_bits(self.replicates)
        if k > len(x) or k > 0 and r > len(self.rows):
            raise Failure(13)
        x, y = x[:max(k, 0)], [group[:max(r, 0)] for group in y[:max(k, 0)]]
        self.regress(n, k, r, x, y)

    def regress(self, n, k, r, x, y):
        each, data = Number(r), Number(n)
        by_replicate = [(at, group[row]) for row in range(max(r, 0)) for at, group in zip(x, y)]
        sx, sxx = total(each * at for at in x), total(at * at * each for at in x)
        sy, syy = total(to for _, to in by_replicate), total(to * to for _, to in by_replicate)
        sxy = total(at * to for at, to in by_replicate)
        if sx.sign() == 0 or sy.sign() == 0:
            raise Ended("exclamation", "Quorel 2006", "Tutti i valori sono pari a zero, impossibile calcolare i risultati.")
        squares = [(sums := total(group)) * sums for group in y]
        ssx, ssy, s_xy = sxx - sx * sx / data, syy - sy * sy / data, sxy - sx * sy / data
        g = total(squares) / each
        b = s_xy / ssx
        a = sy / data - sx / data * b
        dev_reg = s_xy * s_xy / ssx
        dev_res = ssy - dev_reg
        if dev_res.sign() < 0:
            raise Ended("exclamation", "Quorel 2006",
                        "Spiacente, ma con questi valori è impossibile calcolare i risultati.")

        gdl_res, gdl_all = Number(sixteen_bits(n - 2)), Number(sixteen_bits(n - 1))
        sb = (dev_res / gdl_res / ssx).root()
        sx1, sy1 = (ssx / gdl_all).root(), (ssy / gdl_all).root()
        correlation = s_xy / gdl_all / (sy1 * sx1)
        sa = ((Number(1) / data + sx / data * (sx / data) / ssx) * (dev_res / gdl_res)).root()
        dev_curv = g - sy * sy / data - dev_reg
        dev_err = dev_res - dev_curv
        var_curv, var_err = dev_curv / Number(k - 2), dev_err / Number(sixteen_bits(n - k))
        t1 = self.t(n - 1)
        f_reg, p_reg = self.ratio(dev_reg, var_err, 1, n - k)
        f_curv, p_curv = self.ratio(var_curv, var_err, k - 2, n - k)
        upper, lower = t1 * sa + a, a - t1 * sa
        t2 = self.t(n - k)
        d = var_err.root() / b * t2

        regression = self.judged(dev_reg, var_err, p_reg)
        curvature = self.judged(var_curv, var_err, p_curv)
        self.keep({"a": a, "b": b, "r": correlation, "Sa": sa, "Sb": sb, "ConfLimSup": upper, "ConfLimInf": lower,
                   "DevReg": dev_reg, "DevCurv": dev_curv, "DevErr": dev_err, "DevRes": dev_res, "VarCurv": var_curv,
                   "VarErr": var_err, "FReg": f_reg, "PReg": p_reg, "FCurv": f_curv, "PCurv": p_curv, "t1": t1, "t2": t2,
                   "D": d})
        shown = correlation, a, b, sa, sb, upper, lower
        self.results = dict(zip(self.results, map(self.shown, shown)))
        self.tabulate([self.shown(dev_reg), "1", self.shown(dev_reg), *regression],
                      [self.shown(dev_curv), str(k - 2), self.shown(var_curv), *curvature],
                      [self.shown(dev_err), str(n - k), self.shown(var_err)],
                      [self.shown(dev_res + dev_reg), str(n - 1)])
        self.tell(regression[1] == SIGNIFICANT, curvature[1] == SIGNIFICANT, a, b, d,
                  proportional=upper.sign() >= 0 and lower.sign() <= 0)
        self.draw(x, y, a, b, upper, lower)

    def t(self, gdl):
        value = student(sixteen_bits(gdl))
        return Number(value, 16 * UNIT * abs(value))

    def ratio(self, variance, var_err, gdl1, gdl2):
        """F and its tail."""
        f = variance / var_err if var_err.sign() else Number(0)
        p = tail_of_f(f.value, gdl1, gdl2)
        if p is None:
            self.messages.append({"icon": "critical", "title": "Errore", "text": "Overflow numerico !\nControllare i dati"})
            return f, Number(-1)
        # It is what its series, whose largest terms come of about -2 * ln(p) roundings, leaves of 1 or a half; and it
        # changes by up to 2 - ln(p) times the relative change of F.
        return f, Number(p, (8 - 2 * p.ln() + p * (2 - p.ln()) * f.roundings()) * UNIT)

    def judged(self, variance, var_err, p):
        """The texts of the F cell and of its significance."""
        if var_err.sign() == 0 and variance.sign() >= 0:
            text = "S" if variance.sign() else "NS"
            return centred(text, 14), SIGNIFICANT if variance.sign() else NOT_SIGNIFICANT
        return self.shown(variance / var_err), NOT_SIGNIFICANT if (p - Number("0.05")).sign() > 0 else SIGNIFICANT

    def shown(self, number):
        text = self.show(number.value)
        assert text == self.show(number.value - number.error) == self.show(number.value + number.error), \
            f"the text of {number.value} is a matter of rounding: choose other values"
        return text

    def keep(self, numbers):
        for number in numbers.values():
            self.loosen(number.roundings())
        self.values = {name: number.value for name, number in numbers.items()}

    def tell(self, linear, curved, a, b, d, proportional):
        equation = f"Y = {self.shown(a)} {'-' if b.sign() < 0 else '+'} {self.shown(abs(b))} X"
        texts = {}
        for lang, word in {"it": " NON", "en": " NOT"}.items():
            template = sentences.LINEARITY[lang] + (sentences.DISCRIMINATION[lang] if d.sign() else "")
            not_linear, not_curved, not_proportional = ("" if holds else word for holds in (linear, curved, proportional))
            texts[lang] = sentences.LINEARITY_HEADINGS[lang] + filled(
                template, not_linear, not_curved, not_linear, equation, not_proportional, None, self.shown(abs(b)),
                self.texts[3], self.shown(abs(d)) if d.sign() else None)
        self.conclude(texts)

    def draw(self, x, y, a, b, upper, lower):
        points = [[at.value, to.value] for at, group in zip(x, y) for to in group]
        zero = Number(0)
        limits = [[(upper - a) / b, upper, zero, upper],
                  [zero, a, zero, (lower + upper) / Number(2)],
                  [(lower - a) / b, lower, zero, lower]]
        for number in (number for row in limits for number in row):
            self.loosen(number.roundings())
        limits = [[number.value for number in row] for row in limits]
        for lang, title, x_title, y_title, other in (("it", "Regressione", "Concentrazioni", "Risposte", "Proporzionalità"),
                                                     ("en", "Linearity", "Concentrations", "Results", "Proportionality")):
            self.chart(lang, "VtGrafRegr", title, x_title, points, y_title)
            self.chart(lang, "VtGrafProp", other, "", limits)
