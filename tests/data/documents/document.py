"""What the tests' documents share: how a file is read, shown and saved again."""
from decimal import Decimal

from formulas import Failure, count, rounded, val

MARKER = "Quorel for Windows"
LANGUAGES = ("it", "en")


class Ended(Exception):
    """A calculation that ends without results, with a message (icon, title, text) or without a word."""

    def __init__(self, *message):
        super().__init__(*message)
        self.messages = [dict(zip(("icon", "title", "text"), message))] if message else []


class Reader:
    """Fields and lines of a file."""

    def __init__(self, text):
        self.text = text.replace("\r\n", "\n").replace("\r", "\n")
        self.at = 0

    def _until(self, ends):
        if self.at >= len(self.text):
            raise Failure(62)
        end = min((at for end in ends if (at := self.text.find(end, self.at)) >= 0), default=len(self.text))
        result, self.at = self.text[self.at:end], end + 1
        return result

    def field(self):
        while self.text[self.at:self.at + 1] == " ":
            self.at += 1
        return self._until(",\n")

    def line(self):
        return self._until("\n")


class Document:
    """What the tests share. A cell holds a number or None."""

    digits = (3, 3)           # of a new document and of the older kind
    columns = 1
    header = (0, 1, None, 2)  # the places of method, analyte, unit and sample among the header texts
    own_lines = 2             # how many lines follow the header
    conclusions_each = 1      # how many conclusions a language has

    def __init__(self, text, separator):
        self.separator = separator
        self.texts = [""] * (max(place or 0 for place in self.header) + 1)
        self.grid_digits, self.decimals = self.digits, self.digits[1]  # the latter those of the results
        self.rows = [[None] * self.columns for _ in range(self.rows_at_first())]
        self.option, self.verdict, self.screen, self.messages, self.values = None, None, "", [], {}
        self.charts = {lang: [] for lang in LANGUAGES}
        self.conclusions = {lang: [""] * self.conclusions_each for lang in LANGUAGES}
        self.within = Decimal("1e-12")
        self.reset()
        stopped = failed = None
        try:
            self.read(Reader(text))
        except Failure as failure:
            stopped = failure.json
        try:
            self.calculate()
        except Ended as ended:
            self.messages += ended.messages
        except Failure as failure:
            failed = failure.json
        self.complete = not stopped
        self.failure = None if self.values else stopped or failed

    def rows_at_first(self):
        return int(next(iter(self.size.values())))

    def read(self, file):
        first, digits = file.field(), self.digits
        if first == MARKER:
            digits = count(file.field()), count(file.field())
            if digits[0] < 1 or digits[1] < 0:
                raise Failure(5)
            first = file.field()
        fields = count(first)
        self.decimals = digits[1]
        lines = [file.line() for _ in range(4 + self.own_lines)]  # all are read before any is shown
        for place, line in zip(self.header, lines):
            if place is not None:
                self.texts[place] = line.strip(" ")
        self.take(*lines[4:])
        self.read_headers(file)
        for row in self.rows:
            file.field()
            for column in range(fields - 1 if type(self).columns > 1 else 1):
                text = file.field().strip(" ")
                if column < self.columns:
                    row[column] = None if text == "NIL" else val(text)
        self.grid_digits = digits  # of a file alone that was read to its end

    def read_headers(self, file):
        """What a test has between the lines of the header and the rows."""

    def cell(self, number, separator="."):
        return "" if number is None else f"{rounded(number, self.grid_digits[1]):f}".replace(".", separator)

    def show(self, number):
        return f"{rounded(number, self.decimals):f}".replace(".", self.separator)

    def column(self, index, size):
        """The numbers that the cells show, which need not be those that they hold."""
        texts = [self.cell(row[index]) for row in self.rows[:max(0, count(size))]]
        if "" in texts:
            raise Failure(13)
        return [Decimal(text) for text in texts]

    def loosen(self, roundings):
        while self.within < roundings * Decimal(2) ** -53:
            self.within *= 10

    def conclude(self, texts):
        self.conclusions = {lang: [text] for lang, text in texts.items()}
        self.screen = texts["it"]

    def chart(self, lang, name, title, x_title, data, y_title="", row_labels=None, noted=True):
        labels = {"it": ("Metodo analitico", "Analita", "Campione", "U.M. della conc. dell'analita"),
                  "en": ("Analytical method", "Analyte", "Sample", "Measure unit of the analyte concentration")}
        footnote = "\r\n".join(f"{label}: {text}" for label, text in zip(labels[lang], self.texts)) if noted else ""
        self.charts[lang].append({"name": name, "title": title, "footnote": footnote, "xTitle": x_title, "yTitle": y_title,
                                  "seriesNames": None, "rowLabels": row_labels, "data": data})

    def json(self, lang):
        """The object that is printed, but for the file's name."""
        return {
            "key": self.key,
            "read": "complete" if self.complete else "partial",
            "interi": self.grid_digits[0],
            "decimali": self.grid_digits[1],
            "aInputData": self.texts,
            "size": self.size,
            "option": self.option,
            "headers": None,
            "grids": [[[self.cell(number, self.separator) for number in row] for row in self.rows]],
            "results": self.results,
            "table": None,
            "means": None,
            "cConcl": self.screen,
            "conclusions": self.conclusions,
            "verdict": self.verdict,
            "values": self.values,
            "messages": self.messages,
            "failure": self.failure,
            "charts": self.charts[lang],
        }

    def saved(self):
        """The lines of the document saved again."""
        header = ["" if place is None else self.texts[place] for place in self.header]
        rows = [",".join([str(number), *("NIL      " if x is None else self.cell(x) for x in row)])
                for number, row in enumerate(self.rows, 1)]
        rows[:1] = [" " + row for row in rows[:1]]
        return [MARKER, *map(str, self.grid_digits), str(self.columns + 1), *header, *self.give(), *rows]
