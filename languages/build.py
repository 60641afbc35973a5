#!/usr/bin/env python3
"""Builds a language library from its string table.

    build.py SOURCE OUTPUT
    build.py --resource-script SOURCE OUTPUT

A string table holds the texts of one language and one block of a thousand numbers. Its name says which:
ENU32000.txt is English, numbers 32000 to 32999. It is UTF-8 text:

    # a comment
    32014 The text up to the end of the line, with \\n for a new line, \\t for a tab and \\\\ for a backslash.

The library is UTF-8 text too: a first line that names the format, then one line a text, number, tab, text, with
the same escapes, sorted by number. A Windows library is a module with a string table, which the resource compiler
makes of the resource script.
"""

import os
import re
import sys
import tempfile
from dataclasses import dataclass, field

FORMAT_LINE = "NeskManager string table 1"
BLOCK_SIZE = 1000
# A text is read through a buffer of 1,024 bytes; one byte is the terminator.
MAX_BYTES = 1023

DEFAULT_CODE_PAGE = 1252
CODE_PAGES = {"CHT": 950, "JPN": 932, "KOR": 949}

_NAME = re.compile(r"([A-Z]{3})([0-9]{2}000)")
_ENTRY = re.compile(r"([0-9]{5}) (.*)")
_ESCAPES = {"n": "\n", "t": "\t", "\\": "\\"}


class TableError(Exception):
    """What is wrong in a table, one "file:line: what" an entry of `problems`."""

    def __init__(self, problems):
        super().__init__("\n".join(problems))
        self.problems = problems


@dataclass
class Table:
    """A checked string table."""

    language: str
    base: int
    code_page: int
    strings: dict = field(default_factory=dict)


def unescape(text):
    """Replaces the escapes of a table line. ValueError says what is wrong with them."""
    result = []
    position = 0
    while position < len(text):
        character = text[position]
        position += 1
        if character == "\\":
            if position == len(text):
                raise ValueError("a \\ stands alone at the end of the text; write \\\\ for a backslash")
            escape = text[position]
            position += 1
            if escape not in _ESCAPES:
                raise ValueError(f"unknown escape \\{escape}; known are \\n, \\t and \\\\")
            character = _ESCAPES[escape]
        result.append(character)
    return "".join(result)


def escape(text):
    """The reverse of unescape."""
    return text.replace("\\", "\\\\").replace("\n", "\\n").replace("\t", "\\t")


def _text_problem(text, code_page):
    """What is wrong with a text that has been unescaped; None when nothing is."""
    if not text:
        return "the text is empty"
    if text != text.rstrip(" "):
        return "the text ends in a blank"
    for character in text:
        if ord(character) < 32 and character not in "\n\t" or 0x7F <= ord(character) < 0xA0:
            return f"the text holds the control character U+{ord(character):04X}"
    try:
        size = len(text.encode(f"cp{code_page}"))
    except UnicodeEncodeError as error:
        character = text[error.start]
        return f'code page {code_page} has no "{character}" (U+{ord(character):04X})'
    if size > MAX_BYTES:
        return f"the text takes {size:,} bytes, allowed are {MAX_BYTES:,}"
    return None


def read_table(path):
    """Reads and checks the string table in the file `path`. TableError lists everything that is wrong."""
    name = os.path.splitext(os.path.basename(path))[0]
    match = _NAME.fullmatch(name)
    if not match:
        raise TableError([f"{path}:1: the file name is no language code and block number, as ENU32000.txt"])
    base = int(match[2])
    table = Table(match[1], base, CODE_PAGES.get(match[1], DEFAULT_CODE_PAGE))

    with open(path, "rb") as file:
        content = file.read()
    try:
        lines = content.decode("utf-8").split("\n")
    except UnicodeDecodeError as error:
        line = content.count(b"\n", 0, error.start) + 1
        raise TableError([f"{path}:{line}: the line is not UTF-8 text"]) from None
    if lines[0].startswith("\ufeff"):
        raise TableError([f"{path}:1: the file begins with a byte order mark"])

    problems = []
    first_lines = {}
    for line_number, line in enumerate(lines, start=1):
        line = line.removesuffix("\r")
        if not line.strip() or line.startswith("#"):
            continue

        def complain(what):
            problems.append(f"{path}:{line_number}: {what}")

        entry = _ENTRY.fullmatch(line)
        if not entry:
            complain("expected five digits, one blank and a text")
            continue
        number = int(entry[1])
        if not base <= number < base + BLOCK_SIZE:
            complain(f"number {number} is outside the block {base} to {base + BLOCK_SIZE - 1}")
            continue
        if number in first_lines:
            complain(f"number {number} stands already in line {first_lines[number]}")
            continue
        first_lines[number] = line_number
        try:
            text = unescape(entry[2])
        except ValueError as error:
            complain(str(error))
            continue
        problem = _text_problem(text, table.code_page)
        if problem:
            complain(problem)
            continue
        # Without the placeholder, the lookup of a missing text would look up another missing text.
        if number == base and "%0%" not in text:
            complain(f"the base text {base} lacks the placeholder %0%")
            continue
        table.strings[number] = text

    if base not in first_lines:
        problems.append(f"{path}:{len(lines)}: the base text {base} is missing")
    if problems:
        raise TableError(problems)
    return table


def library_bytes(table):
    """The language library that holds `table`."""
    lines = [FORMAT_LINE]
    lines += [f"{number}\t{escape(table.strings[number])}" for number in sorted(table.strings)]
    return ("\n".join(lines) + "\n").encode("utf-8")


def resource_script(table):
    """The resource script that holds `table`. Characters that are not ASCII are written as their UTF-16 units, so
    that no code page matters."""
    # The neutral language is found on systems of every language. Only the library's name specifies its language.
    lines = ["LANGUAGE 0, 0", "STRINGTABLE", "BEGIN"]
    for number in sorted(table.strings):
        units = table.strings[number].encode("utf-16-le")
        text = ""
        for low, high in zip(units[::2], units[1::2]):
            plain = high == 0 and 32 <= low < 127 and chr(low) not in '"\\'
            # Always write four digits, so that a following digit is not read as a fifth.
            text += chr(low) if plain else f"\\x{high:02X}{low:02X}"
        lines.append(f'  {number}, L"{text}"')
    lines.append("END")
    return ("\r\n".join(lines) + "\r\n").encode("ascii")


def write_whole(path, content):
    """Writes a file so that `path` is complete or untouched."""
    folder = os.path.dirname(os.path.abspath(path))
    descriptor, temporary = tempfile.mkstemp(prefix=os.path.basename(path) + ".", dir=folder)
    try:
        with os.fdopen(descriptor, "wb") as file:
            file.write(content)
        umask = os.umask(0)
        os.umask(umask)
        os.chmod(temporary, 0o666 & ~umask)
        os.replace(temporary, path)
    except BaseException:
        os.unlink(temporary)
        raise


def main(arguments):
    form = library_bytes
    if arguments[:1] == ["--resource-script"]:
        form = resource_script
        arguments = arguments[1:]
    if len(arguments) != 2:
        print("usage: build.py [--resource-script] SOURCE OUTPUT", file=sys.stderr)
        return 2
    source, output = arguments
    try:
        write_whole(output, form(read_table(source)))
    except TableError as error:
        print(error, file=sys.stderr)
        return 1
    except OSError as error:
        print(f"{error.filename or output}: {error.strerror}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
