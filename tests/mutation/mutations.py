"""What can be changed in a line of C++: one operator, constant, condition or statement at a time."""

import re

TOKEN = re.compile(
    r"""(?P<comment>//.*)
      | (?P<text>u?"(?:\\.|[^"\\])*")
      | (?P<number>\d(?:[\w.']|(?<=[eEpP])[-+])*)
      | (?P<unit>u?'(?:\\.|[^'\\])+')
      | (?P<word>[A-Za-z_]\w*)
      | (?P<operator><<=|>>=|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||->|::|[-+*/%&|^]=|\S)""",
    re.VERBOSE,
)

# Where blanks stand on both sides: not the brackets of a template, nor a pointer's star.
BINARY = {
    "<": "<=",
    "<=": "<",
    ">": ">=",
    ">=": ">",
    "==": "!=",
    "!=": "==",
    "+": "-",
    "-": "+",
    "*": "/",
    "/": "*",
    "%": "/",
    "<<": ">>",
    ">>": "<<",
    "&": "|",
    "|": "&",
    "^": "|",
    "&&": "||",
    "||": "&&",
    "+=": "-=",
    "-=": "+=",
    "|=": "&=",
    "&=": "|=",
    "<<=": ">>=",
    ">>=": "<<=",
}
OTHERS = {"++": "--", "--": "++", "!": "", "~": "", "true": "false", "false": "true"}

# What a line cannot be changed in: nothing of it runs.
NO_CODE = re.compile(r"\s*(#|using\b|template\b|namespace\b|static_assert\b|//)")

# A statement that does something and declares nothing.
STATEMENT = re.compile(
    r"(?:\+\+|--|\*)*[A-Za-z_][\w.:]*(?:->\w+|\[[^\]]*\])*(?:\(.*\)|\+\+|--| [-+*/%&|^<>]*= .*)?;$"
)


NUMBER = re.compile(r"(0[xX][\dA-Fa-f']+|\d[\d']*)(\.\d+)?([eEpP][-+]?)?(\d*)([uUlLfF]*)")


def next_number(text, step):
    """The number changed by a step, of its exponent if it has one; None if it would be negative."""
    whole, fraction, exponent, power, suffix = (group or "" for group in NUMBER.fullmatch(text).groups())
    if exponent:
        return f"{whole}{fraction}{exponent}{int(power) + step}{suffix}"
    value = int(whole.replace("'", ""), 0) + step
    if value < 0:
        return None
    return (f"0x{value:X}" if whole[:2] in ("0x", "0X") else str(value)) + fraction + suffix


def next_unit(text):
    """The text with another last unit."""
    quote = text[-1]
    head, body = text[: text.index(quote) + 1], text[text.index(quote) + 1 : -1]
    if not body:
        return f"{head}?{quote}"
    last = "1" if body.endswith(r"\0") else chr(ord(body[-1]) + 1)
    return f"{head}{body[:-1]}{last}{quote}"


def replacements(token, before, after):
    """What a token may become. before, after: the rest of its line."""
    kind, text = token.lastgroup, token.group()
    if kind == "number":
        return [next_number(text, 1), next_number(text, -1)]
    if kind in ("text", "unit"):
        return [next_unit(text)]
    if text in OTHERS and not before.endswith("::"):
        return [OTHERS[text]]
    if text == "-" and before.endswith((" ", "(", "{")) and not after.startswith(" "):
        return [""]
    if text in BINARY and before.endswith(" ") and (after.startswith(" ") or not after):
        return [BINARY[text]]
    return []


def condition(code):
    """Where the condition of an "if" or a "while" stands in a line that holds all of it, or None."""
    start = re.search(r"\b(?:if|while) \(", code)
    if not start:
        return None
    depth = 1
    for at in range(start.end(), len(code)):
        depth += {"(": 1, ")": -1}.get(code[at], 0)
        if depth == 0:
            return start.end(), at
    return None


def of_line(line, previous):
    """All mutants of a line, each once. previous: the line before it, as far as it is code."""
    if NO_CODE.match(line):
        return []
    mutants = []
    code = line
    for token in TOKEN.finditer(line):
        if token.lastgroup == "comment":
            code = line[: token.start()].rstrip()
            break
        before, after = line[: token.start()], line[token.end() :]
        for other in replacements(token, before, after):
            if other is not None:
                mutants.append(before + other + after)
    span = condition(code)
    if span:
        for outcome in ("true", "false"):
            mutants.append(line[: span[0]] + outcome + line[span[1] :])
    statement = code.strip()
    begins = not previous or previous[-1] in ";{}:" or previous.endswith((")", "else", "]]"))
    if begins and STATEMENT.fullmatch(statement):
        mutants.append(code[: len(code) - len(statement)] + ";")
    return [mutant for mutant in dict.fromkeys(mutants) if mutant != line]


def of_file(text):
    """All mutants of a file: the number of a line, from 0, and what it becomes."""
    previous = ""
    for number, line in enumerate(text.splitlines()):
        for mutant in of_line(line, previous):
            yield number, mutant
        code = line.split("//")[0].strip()
        previous = code or previous
