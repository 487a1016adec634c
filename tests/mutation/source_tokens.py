"""The tokens of a C++ source as clang-format lays it out, and what surrounds each of them."""

import re
from dataclasses import dataclass

TOKEN = re.compile(
    r"""(?P<comment>//(?:\\\n|[^\n])*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
      | (?P<raw>(?:u8|[uUL])?R"(?P<fence>[^(\s]*)\(.*?\)(?P=fence)")
      | (?P<string>(?:u8|[uUL])?"(?:\\.|[^"\\\n])*")
      | (?P<character>(?:u8|[uUL])?'(?:\\.|[^'\\\n])+')
      | (?P<number>\.?[0-9](?:'?[0-9A-Za-z_.]|(?<=[eEpP])[+-])*)
      | (?P<name>[A-Za-z_][A-Za-z_0-9]*)
      | (?P<mark><=>|->\*|\.\.\.|<<=|>>=|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[^\s])""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)
OPENING = {"(": ")", "[": "]", "{": "}"}
CLOSING = set(OPENING.values())
# What may stand between the parameters of a function and its body.
BEFORE_BODY = {")", "const", "noexcept", "override", "final", "mutable", "else", "do", "try"}


@dataclass
class Token:
    kind: str
    text: str
    start: int
    end: int
    spaced: bool = False  # white space on both sides, as clang-format sets it at binary operators
    partner: int = -1  # the index of the other bracket
    block: str = ""  # of a brace: namespace, type, body or list
    inside: tuple = ()  # the kinds of the braces around it, from the outermost
    owner: str = ""  # the function or the variable that it belongs to


def read_tokens(text):
    """The tokens without comments and preprocessor lines."""
    tokens = []
    for match in TOKEN.finditer(text):
        if match.lastgroup in ("comment", "directive"):
            continue
        kind = "name" if match.lastgroup == "name" else match.lastgroup
        if kind == "fence":
            kind = "raw"
        before = text[match.start() - 1 : match.start()]
        after = text[match.end() : match.end() + 1]
        tokens.append(Token(kind, match[0], match.start(), match.end(),
                            before.isspace() and after.isspace()))
    pair_brackets(tokens)
    find_blocks(tokens)
    find_owners(tokens)
    return tokens


def pair_brackets(tokens):
    stack = []
    for index, token in enumerate(tokens):
        if token.kind != "mark":
            continue
        if token.text in OPENING:
            stack.append(index)
        elif token.text in CLOSING and stack:
            other = stack.pop()
            token.partner, tokens[other].partner = other, index


def kind_of_brace(tokens, index):
    """What the brace at the index opens."""
    start = index - 1
    while start >= 0 and tokens[start].text not in (";", "{", "}"):
        start = tokens[start].partner if tokens[start].text in (")", "]") else start
        start -= 1
    head = [token.text for token in tokens[start + 1 : index]]
    previous = tokens[index - 1].text if index else ""
    if "namespace" in head and "=" not in head:
        return "namespace"
    if previous in BEFORE_BODY:
        return "body"
    first = [text for text in head if text not in ("template", "static", "constexpr", "typedef")]
    if "(" not in head and "=" not in head and any(
            text in ("struct", "class", "union", "enum") for text in first):
        return "type"
    if "->" in head and ")" in head and previous not in ("(", ",", "return", "="):
        return "body"
    if not head and index and tokens[index - 1].text in ("{", "}", ";"):
        return "list" if tokens[index - 1].block == "list" else "body"
    if previous == ":":
        return "body"
    if previous == "}" or previous == ")":
        return "body"
    return "list"


def find_blocks(tokens):
    stack = []
    for index, token in enumerate(tokens):
        if token.kind == "mark" and token.text == "}" and stack:
            token.block = stack.pop()
        token.inside = tuple(stack)
        if token.kind == "mark" and token.text == "{":
            token.block = kind_of_brace(tokens, index)
            stack.append(token.block)


def find_owners(tokens):
    """Names the outermost function or variable around each token."""
    owner, named = "", False
    for index, token in enumerate(tokens):
        outside = all(kind in ("namespace", "type") for kind in token.inside)
        if outside:
            following = tokens[index + 1].text if index + 1 < len(tokens) else ""
            if token.kind == "name" and not named and following in ("(", "=", "{", "["):
                owner, named = qualified(tokens, index), following in ("(", "=", "[")
        token.owner = owner
        ends = token.text == ";" or (token.text == "}" and token.block in ("body", "type", "namespace"))
        if outside and token.kind == "mark" and ends:
            owner, named = "", False


def qualified(tokens, index):
    name = tokens[index].text
    while index >= 2 and tokens[index - 1].text in ("::", "~"):
        if tokens[index - 1].text == "~":
            name, index = "~" + name, index - 1
            continue
        name, index = tokens[index - 2].text + "::" + name, index - 2
    return name
