"""Random property lists as Python values, for the comparisons with plistlib."""

import datetime
import random

XML_TEXTS = ("a", " ", "\n", "\t", "&", "<", ">", '"', "\\", "]]>", "é", "e\u0301", "ı", "日本", "😀")
INTEGERS = (0, 1, -1, 255, 256, 65536, 2**31, 2**32, 2**63 - 1, -(2**63), 2**63, 2**64 - 1)
FINITE_REALS = (0.5, 3.0, -1e300, 1 / 3, 5e-324)
FIRST_DATE = datetime.datetime(1, 1, 1)
SECONDS_TO_YEAR_10000 = 315537897600


class Source(random.Random):
    """Random content, the same for the same seed."""

    def __init__(self, seed, texts=XML_TEXTS, reals=FINITE_REALS):
        super().__init__(seed)
        self.texts = texts
        self.reals = reals

    def text(self):
        return "".join(self.choices(self.texts, k=self.randrange(12)))

    def value(self, depth):
        kind = self.randrange(8 if depth else 6)
        if kind == 0:
            return self.text()
        if kind == 1:
            return self.random() < 0.5
        if kind == 2:
            return self.choice((*INTEGERS, self.randrange(-(2**63), 2**64)))
        if kind == 3:
            return self.choice((*self.reals, self.uniform(-1e6, 1e6)))
        if kind == 4:
            return self.randbytes(self.randrange(300))
        if kind == 5:
            return FIRST_DATE + datetime.timedelta(seconds=self.randrange(SECONDS_TO_YEAR_10000))
        if kind == 6:
            return [self.value(depth - 1) for _ in range(self.randrange(18))]
        return self.dictionary(depth - 1)

    def dictionary(self, depth=2):
        return {self.text(): self.value(depth) for _ in range(self.randrange(18))}
