#!/usr/bin/env python3
"""Says what the companion must print of each document of this folder, and how the document is saved again.

    recalculate.py           writes expected/NAME.json for each document
    recalculate.py --check   names the files there that are not what it would write, and fails if there are any

It shares nothing with the program and calculates with 60 digits: what differs is a fault, or the rounding of doubles,
for which "within" is the room that the required formulas leave. It needs nothing but Python's standard library.
"""
import json
import pathlib
import sys
from decimal import Context, Decimal

sys.dont_write_bytecode = True
import sentences  # noqa: E402
from calibration import Calibration  # noqa: E402
from document import LANGUAGES, Document, Ended  # noqa: E402
from formulas import (confidence, count, density, filled, general, mean_and_variance, rounded,  # noqa: E402
                      roundings_in_variance, student, tail_of_f, tail_of_t)

FOLDER = pathlib.Path(__file__).resolve().parent


class Limits(Document):
    key = "LIMI"
    header = (0, 1, 3, 2)
    own_lines = 3
    conclusions_each = 2
    size = {"nDet": "10"}

    def reset(self):
        self.option = 0
        self.results = dict.fromkeys(("StDev", "LimRil", "LimDet"), self.show(Decimal(0)))

    def take(self, _, size, option):
        self.size = {"nDet": size.strip(" ") or "Limite di rilevazione"}
        self.option = {"Vero": 0, "Falso": 1}.get(option)
        self.rows = [[None] for _ in range(count(self.size["nDet"]))]

    def give(self):
        return "0", self.size["nDet"], "Vero"

    def calculate(self):
        values = self.column(0, self.size["nDet"])
        if sum(values) == 0:
            raise Ended
        _, variance = mean_and_variance(values)
        self.loosen(roundings_in_variance(values, variance))
        s = variance.sqrt()
        self.values = {"s": s, "limRil": s + s, "limDet": s * 10}
        self.results = dict(zip(self.results, map(self.show, self.values.values())))
        self.conclusions = {lang: [filled(text, self.texts[3], self.results["LimRil"], self.results["LimDet"])
                                   for text in texts] for lang, texts in sentences.LIMITS.items()}
        self.screen = sentences.LIMITS_HEADING + "\r\n" + self.conclusions["it"][0 if self.option == 0 else 1]


class Repeatability(Document):
    key = "PREC"
    size = {"nDet": "6"}

    def reset(self):
        names = ("Media", "StDev", "CV", "GdL", "P", "T", "InfConf", "SupConf", "IntConf")
        self.results = dict.fromkeys(names, self.show(Decimal(0))) | {"GdL": "0"}

    def take(self, _, size):
        self.size = {"nDet": size.strip(" ")}
        self.rows = [[None] for _ in range(count(self.size["nDet"]))]

    def give(self):
        return "0", self.size["nDet"]

    def calculate(self):
        values = self.column(0, self.size["nDet"])
        if sum(values) == 0:
            raise Ended
        n = len(values)
        t = student(n - 1)
        mean, variance = mean_and_variance(values)
        self.loosen(roundings_in_variance(values, variance))
        s = variance.sqrt()
        lower, upper, width, p = confidence(n, mean, s, t)
        self.values = {"mean": mean, "variance": variance, "s": s, "cv": s * 100 / mean, "t": t, "gdl": n - 1,
                       "lower": lower, "upper": upper, "width": width, "P": p}
        shown = {"Media": mean, "StDev": s, "CV": s * 100 / mean, "P": Decimal("0.05"), "T": t,
                 "InfConf": lower, "SupConf": upper, "IntConf": width}
        self.results |= {name: self.show(number) for name, number in shown.items()} | {"GdL": str(n - 1)}
        precision = general(abs(p)).replace(".", self.separator)
        self.conclude({lang: filled(text, str(n), precision, self.results["StDev"])
                       for lang, text in sentences.REPEATABILITY.items()})
        self.draw(mean, s)

    def draw(self, mean, s):
        if s == 0:
            for lang in LANGUAGES:
                self.chart(lang, "VtGrafPrec", "Dev.standard = 0: grafico non disponibile", "", [[0, 0], [0, 0]],
                           noted=False)
            return
        self.loosen(1000 * (8 + abs(mean) / s))  # x is a sum of up to 1000 steps
        span = 8 * rounded(s, self.decimals)
        xs = [mean - span / 2 + row * span / 1000 for row in range(1000)]
        data = [[x, density(x, mean, s)] for x in xs]
        self.chart("it", "VtGrafPrec", "Precisione", "Curva di precisione", data)
        self.chart("en", "VtGrafPrec", "Precision", "Precision curve", data)


class Specificity(Document):
    key = "SPEC"
    digits = (6, 3)
    columns = 2
    own_lines = 5
    size = {"GruppoA": "5", "GruppoB": "5"}

    def reset(self):
        names = ("MediaA", "MediaB", "InfConfA", "InfConfB", "SupConfA", "SupConfB", "SA", "SB", "F", "GdL", "T", "P")
        self.results = {name: "0" if "Conf" in name or name == "GdL" else self.show(Decimal(0)) for name in names}
        self.results["Giudizio"] = "Giudizio"
        self.verdict = dict.fromkeys(LANGUAGES, "")

    def take(self, _, size_a, __, ___, size_b):
        self.size = {"GruppoA": size_a.strip(" "), "GruppoB": size_b.strip(" ")}
        sizes = [count(size) for size in self.size.values()]
        self.rows = [[Decimal(0) if row < size else None for size in sizes] for row in range(max(sizes))]

    def give(self):
        return "0", self.size["GruppoA"], "", "0", self.size["GruppoB"]

    def calculate(self):
        group_a, group_b = groups = [self.column(index, size) for index, size in enumerate(self.size.values())]
        refusal = "I risultati di un gruppo sono tutti {}. Non è possibile effettuare un' elaborazione statistica corretta!"
        if any(sum(group) == 0 for group in groups):
            raise Ended("exclamation", "Quorel 2006", refusal.format("nulli"))
        # What a cell shows is compared with what the cell above it holds.
        if any(all(group[row] == self.rows[row - 1][index] for row in range(1, len(group)))
               for index, group in enumerate(groups)):
            raise Ended("exclamation", "Quorel 2006", refusal.format("uguali"))
        n_a, n_b = map(len, groups)
        t_a, t_b = student(n_a - 1), student(n_b - 1)
        (mean_a, var_a), (mean_b, var_b) = map(mean_and_variance, groups)
        self.results["T"] = "0"  # from here on also without results
        if var_a == 0 and var_b == 0:
            raise Ended("critical", "Errore", "Dati non validi !\nControllare i dati")
        larger, smaller = sorted([(var_a, n_a), (var_b, n_b)], reverse=True)
        f = larger[0] / smaller[0] if smaller[0] else Decimal(0)
        p_f = tail_of_f(f, larger[1] - 1, smaller[1] - 1)
        if p_f is None:
            raise Ended("critical", "Errore", "Overflow numerico !\nControllare i dati")

        difference, parts = abs(mean_a - mean_b), (var_a / n_a, var_b / n_b)
        equal_variances = p_f >= Decimal("0.05")
        if equal_variances:
            gdl = n_a + n_b - 2
            pooled = (((n_b - 1) * var_b + (n_a - 1) * var_a) / gdl).sqrt()
            t = difference / ((Decimal(1) / n_b + Decimal(1) / n_a).sqrt() * pooled)
        else:
            t = difference / sum(parts).sqrt()
            gdl = int(sum(parts) ** 2 / (parts[0] ** 2 / n_a + parts[1] ** 2 / n_b) + Decimal("0.5"))
        p_t = tail_of_t(t, gdl)
        lower_a, upper_a, *_ = confidence(n_a, mean_a, var_a.sqrt(), t_a)
        lower_b, upper_b, *_ = confidence(n_b, mean_b, var_b.sqrt(), t_b)
        self.values = {"meanA": mean_a, "meanB": mean_b, "varA": var_a, "varB": var_b, "pF": p_f, "F": f, "t": t,
                       "gdl": gdl, "pT": p_t, "lowerA": lower_a, "upperA": upper_a, "lowerB": lower_b, "upperB": upper_b}
        self.loosen(roundings_in_variance(group_a, var_a))
        self.loosen(roundings_in_variance(group_b, var_b))
        self.loosen(8 / p_f)  # both are what is left of 1 or a half
        self.loosen(8 / p_t)
        self.loosen(8 * max(abs(mean_a), abs(mean_b)) / difference if difference else 0)

        self.decide(significant=p_t <= Decimal("0.05"), open_end=not equal_variances and p_t >= Decimal("0.05"))
        shown = {"MediaA": mean_a, "MediaB": mean_b, "InfConfA": lower_a, "InfConfB": lower_b, "SupConfA": upper_a,
                 "SupConfB": upper_b, "SA": var_a, "SB": var_b, "F": f, "T": t, "P": p_t}
        self.results |= {name: self.show(number) for name, number in shown.items()}
        self.results |= {"GdL": str(gdl), "Giudizio": self.verdict["it"]}
        data = [[rounded(number, self.decimals) for number in row]
                for row in ((upper_a, lower_a, mean_a), (upper_b, lower_b, mean_b))]
        self.chart("it", "VtGrafSpec", "Specificità: medie", "Gruppi", data, row_labels=["A", "B"])
        self.chart("en", "VtGrafSpec", "Specificity: means", "Groups", data, row_labels=["A", "B"])

    def decide(self, significant, open_end):
        if open_end:
            texts = {lang: filled(text, *self.size.values()) for lang, text in sentences.UNDETERMINED.items()}
            self.verdict = {"it": "Dispersione dei dati elevata.\r\nSpecificità statisticamente non determinabile",
                            "en": "High dispertion data.\r\nSpecificity statistically not determinable"}
        else:
            no = {"it": " NON" if significant else "", "en": " NOT" if significant else ""}
            texts = {lang: filled(text, self.texts[0], no[lang], self.texts[1])
                     for lang, text in sentences.DETERMINED.items()}
            self.verdict = {"it": f"Differenza {'' if significant else 'NON '}SIGNIFICATIVA (P = 95%)",
                            "en": f"Difference {'' if significant else 'NOT '}SIGNIFICANT (P = 95%)"}
        self.conclude({lang: sentences.SPECIFICITY_HEADINGS[lang] + text for lang, text in texts.items()})


TESTS = {".LIM": Limits, ".PRE": Repeatability, ".SPC": Specificity, ".TAR": Calibration}


def laid_out(value, indent=""):
    """JSON: a list or an object with others in it has a line for each, and so has one that is too long for a line."""
    if isinstance(value, Decimal):
        return str(Context(prec=20).plus(value).normalize()).lower() if value else "0"
    if not isinstance(value, (dict, list)):
        return json.dumps(value, ensure_ascii=False)
    named = isinstance(value, dict)
    inner = indent + " "
    members = ([f"{json.dumps(key)}: {laid_out(member, inner)}" for key, member in value.items()] if named
               else [laid_out(member, inner) for member in value])
    left, right = "{}" if named else "[]"
    if sum(map(len, members)) < 100 and not any(isinstance(x, (dict, list)) for x in (value.values() if named else value)):
        return left + ", ".join(members) + right
    return f"{left}\n{inner}" + f",\n{inner}".join(members) + f"\n{indent}{right}"


def sampled(charts):
    """A long list of points as its length, the sums of its columns and some of the points."""
    return [chart | {"data": {"rows": len(data), "sums": [sum(column) for column in zip(*data)],
                              **{str(row): data[row - 1] for row in (1, 2, 251, 500, 501, 778, len(data))
                                 if row <= len(data)}}}
            if len(data := chart["data"]) > 150 else chart for chart in charts]


def expectation(file):
    """The object in Italian with a comma, whole; of the others the members that differ from it."""
    data = file.read_bytes()
    documents = {separator: TESTS[file.suffix](data.decode("cp1252"), separator) for separator in ",."}
    objects = {lang + separator: document.json(lang) for separator, document in documents.items() for lang in LANGUAGES}
    for printed in objects.values():
        printed["charts"] = sampled(printed["charts"])
    whole = objects["it,"]
    other = {way: {key: member for key, member in objects[way].items() if member != whole[key]} for way in ("it.", "en,")}
    assert objects["en."] == whole | other["it."] | other["en,"]
    saved = "not saved, since it was not read whole"
    if documents[","].complete:
        lines = documents[","].saved()
        saved = "the same" if "".join(line + "\r\n" for line in lines).encode("cp1252") == data else lines
    return laid_out({"within": documents[","].within, "it,": whole, **other, "saved": saved}) + "\n"


def main():
    folder = FOLDER / "expected"
    wanted = {folder / (file.name + ".json"): expectation(file) for file in FOLDER.iterdir() if file.suffix in TESTS}
    there = {file: file.read_text(encoding="utf-8") for file in folder.glob("*")}
    wrong = sorted(file for file in there.keys() | wanted.keys() if there.get(file) != wanted.get(file))
    if sys.argv[1:] == ["--check"]:
        print("".join(f"{file} is not what recalculate.py says\n" for file in wrong), end="")
        return 1 if wrong else 0
    folder.mkdir(exist_ok=True)
    for file in wrong:
        if file in wanted:
            file.write_text(wanted[file], encoding="utf-8")
        else:
            file.unlink()
    return 0


if __name__ == "__main__":
    sys.exit(main())
