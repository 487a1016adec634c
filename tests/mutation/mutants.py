"""The mutants of a source: one small change each, of the kinds that a programmer gets wrong."""

import random
import re
from collections import defaultdict
from dataclasses import dataclass

from source_tokens import OPENING, read_tokens

# Each is replaced only where clang-format sets spaces around it: there it is a binary operator.
BOUNDS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
OPERATORS = {"==": "!=", "!=": "==", "&&": "||", "||": "&&", "+": "-", "-": "+", "*": "/",
             "/": "*", "%": "*", "|": "&", "&": "|", "+=": "-=", "-=": "+=", "*=": "/=",
             "/=": "*=", "|=": "&=", "&=": "|=", "<<": ">>", ">>": "<<"}
STEPS = {"++": "--", "--": "++"}
WORDS = {"true": "false", "false": "true"}
# They begin no statement that could be left out: the rest would not compile, or have no result.
NOT_DROPPED = {"return", "if", "for", "while", "switch", "case", "default", "do", "else", "using",
               "const", "auto", "constexpr", "static", "struct", "class", "enum", "union", "try",
               "catch", "public", "private", "protected", "static_assert", "typedef", "friend",
               "template", "namespace", "assert", "[", "}", "{", ";", ")", "extern"}


@dataclass(frozen=True)
class Mutant:
    """A change of `start` to `end` of the file into `text`. The other members are its key, which
    lives through changes elsewhere in the file."""

    file: str
    function: str
    kind: str
    before: str  # the line, or the statement, in one line
    after: str
    number: int  # counts equal changes of a function from 1
    start: int
    end: int
    text: str
    line: int

    @property
    def key(self):
        return (self.file, self.function, self.before, self.after, self.number)

    def applied(self, source):
        return source[: self.start] + self.text + source[self.end :]


def squeezed(text):
    return " ".join(text.split())


def end_of_statement(tokens, index):
    """The index of the semicolon that ends the statement, or None."""
    while index < len(tokens):
        text = tokens[index].text
        if tokens[index].kind == "mark":
            if text == ";":
                return index
            if text in ("(", "[", "{"):
                index = tokens[index].partner
                if index < 0:
                    return None
            elif text in (")", "]", "}"):
                return None
        index += 1
    return None


def begins_statement(tokens, index):
    token, previous = tokens[index], tokens[index - 1]
    if not index or not token.inside or token.inside[-1] != "body":
        return False
    if previous.text in (";", "{", "}", "else") or previous.text == ":":
        return previous.text != "}" or previous.block == "body"
    if previous.text == ")" and previous.partner > 0:
        return tokens[previous.partner - 1].text in ("if", "for", "while", "constexpr")
    return False


def has_other_change(tokens, start, end):
    """Whether a change of its own negates what stands from start to end: a single comparison, or a
    single operand after an exclamation mark."""
    marks = []
    at = start
    while at < end:
        if tokens[at].kind == "mark":
            marks.append(tokens[at].text)
        at = (tokens[at].partner if tokens[at].text in OPENING else at) + 1
    if "&&" in marks or "||" in marks or "?" in marks:
        return False
    return tokens[start].text == "!" or "==" in marks or "!=" in marks


def condition_changes(tokens, index, source):
    """Negates what stands in the brackets of an `if` or a `while`."""
    opening = index + 1
    if tokens[opening].text == "constexpr" or tokens[opening].text != "(":
        return
    closing = tokens[opening].partner
    start = opening + 1
    at = start
    while at < closing:  # behind an initialisation
        if tokens[at].text in ("(", "[", "{"):
            at = tokens[at].partner
        elif tokens[at].text == ";":
            start = at + 1
        at += 1
    inner = source[tokens[start].start : tokens[closing].start]
    assigned = next((at for at in range(start, closing)
                     if tokens[at].text == "=" and tokens[at].inside == tokens[index].inside), None)
    if assigned is None:
        if has_other_change(tokens, start, closing):
            return
        yield tokens[start].start, tokens[closing].start, f"!({inner})"
    elif tokens[assigned - 1].kind == "name":
        yield tokens[start].start, tokens[closing].start, f"{inner}; !{tokens[assigned - 1].text}"


def choice_changes(tokens, index, source):
    """Negates the condition before a question mark."""
    at = index - 1
    while at >= 0 and tokens[at].text not in ("(", "[", "{", ",", ";", "=", "return", "?", ":", "+", "<<"):
        at = tokens[at].partner if tokens[at].text in (")", "]", "}") else at
        at -= 1
    if has_other_change(tokens, at + 1, index):
        return
    start, end = tokens[at + 1].start, tokens[index - 1].end
    yield start, end, f"!({source[start:end]})"


def return_changes(tokens, index, source):
    end = end_of_statement(tokens, index)
    if end is None or end - index < 3:  # literals and names have changes of their own
        return
    start, stop = tokens[index + 1].start, tokens[end].start
    if tokens[index + 1].text == "{" or has_other_change(tokens, index + 1, end):
        return
    yield start, stop, f"!({source[start:stop]})"


def number_changes(text):
    match = re.fullmatch(r"(0[xX][0-9a-fA-F']+|[0-9']+)([uUlLzZ]*)", text)
    if not match:
        return
    digits = match[1].replace("'", "")
    value = int(digits, 0) if not digits.startswith("0") or digits[1:2] in ("x", "X") else int(digits, 8)
    write = hex if digits[1:2] in ("x", "X") else str
    yield write(value + 1) + match[2]
    if value > 0:
        yield write(value - 1) + match[2]


def text_change(text):
    """Another text of the same length; of an empty one, a text."""
    opening = text.index('"')
    inner = text[opening + 1 : -1]
    if not inner or re.search(r"\\([^0-9x]|[0-7]{1,3}|x[0-9a-fA-F]+)$", inner):
        return f'{text[:-1]}~"'
    return text[:-2] + ("!" if inner[-1] == "~" else "~") + '"'


def character_change(text):
    opening = text.index("'")
    return text[:opening] + ("'!'" if text[opening:] == "'~'" else "'~'")


def is_skipped(tokens, index):
    """Within an attribute, an alias or an assertion of the compiler, or part of another name."""
    if index and tokens[index - 1].text in ("operator", "template", "extern"):
        return True
    at = index
    while at >= 0 and tokens[at].text not in (";", "{", "}"):
        if tokens[at].text in ("static_assert", "using", "template"):
            return True
        if tokens[at].text == "[" and tokens[at + 1].text == "[" and tokens[at].partner > index:
            return True
        at -= 1
    return False


def changes(tokens, source):
    """All changes as (kind, start, end, text, whether the key names the whole change)."""
    for index in range(len(tokens)):
        found = [*changes_at(tokens, index, source)]
        if found and not is_skipped(tokens, index):
            yield from found


def changes_at(tokens, index, source):
    token = tokens[index]
    span = (token.start, token.end)
    text = token.text
    if token.kind == "mark":
        if token.spaced and text in BOUNDS:
            yield "bound", *span, BOUNDS[text], False
        elif token.spaced and text in OPERATORS:
            yield "operator", *span, OPERATORS[text], False
        elif text in STEPS:
            yield "operator", *span, STEPS[text], False
        elif text == "!":
            yield "negation", *span, "", False
        elif text == "?":
            for change in choice_changes(tokens, index, source):
                yield "negation", *change, False
    elif token.kind == "number":
        for changed in number_changes(text):
            yield "bound", *span, changed, False
    elif token.kind == "string":
        yield "text", *span, text_change(text), False
    elif token.kind == "character":
        yield "text", *span, character_change(text), False
    elif text in WORDS:
        yield "operator", *span, WORDS[text], False
    elif text in ("if", "while") and token.inside:
        for change in condition_changes(tokens, index, source):
            yield "negation", *change, False
    elif text == "return":
        for change in return_changes(tokens, index, source):
            yield "negation", *change, False
    yield from dropped_statement(tokens, index, source)


def dropped_statement(tokens, index, source):
    token = tokens[index]
    if not begins_statement(tokens, index):
        return
    end = end_of_statement(tokens, index)
    if end is None:
        return
    statement = tokens[index:end]
    texts = {part.text for part in statement}
    alone = token.text in ("break", "continue") or (token.text == "return" and end == index + 1)
    if token.text in NOT_DROPPED and not alone:
        return
    # No result depends on how much memory is set aside.
    if "reserve" in texts or not (alone or texts & {"(", "=", "++", "--", "+=", "-=", "|=", "&="}):
        return
    yield "statement", token.start, tokens[end].end, ";", True


def mutants_of(file, source):
    """Every mutant of a source, in the order of the text."""
    tokens = read_tokens(source)
    owners = {token.start: token.owner for token in tokens}
    seen = defaultdict(int)
    found = []
    for kind, start, end, text, whole in changes(tokens, source):
        first = source.rfind("\n", 0, start) + 1
        last = source.find("\n", end)
        last = len(source) if last < 0 else last
        if whole:
            before, after = squeezed(source[start:end]), text
        else:
            before = squeezed(source[first:last])
            after = squeezed(source[first:start] + text + source[end:last])
        function = owners.get(start, "")
        seen[function, before, after] += 1
        found.append(Mutant(file, function, kind, before, after, seen[function, before, after],
                            start, end, text, source.count("\n", 0, start) + 1))
    return found


def ordered(mutants, seed):
    """The mutants of one file in the order in which they are tried: the kinds take turns."""
    chance = random.Random(f"{seed} {mutants[0].file if mutants else ''}")
    queues = defaultdict(list)
    for mutant in mutants:
        queues[mutant.kind].append(mutant)
    for kind in sorted(queues):
        chance.shuffle(queues[kind])
    result = []
    while any(queues.values()):
        for kind in sorted(queues):
            if queues[kind]:
                result.append(queues[kind].pop())
    return result


def shares(sizes, count):
    """Divides the count in proportion to the sizes; each of them gets one at least."""
    total = sum(sizes.values())
    exact = {name: count * size / total for name, size in sizes.items()}
    result = {name: max(1, int(share)) for name, share in exact.items()}
    rest = sorted(exact, key=lambda name: (int(exact[name]) - exact[name], name))
    for name in rest:
        if sum(result.values()) >= count:
            break
        result[name] += exact[name] >= 1
    return result
