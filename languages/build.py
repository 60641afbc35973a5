#!/usr/bin/env python3
"""Builds the language libraries of one language from its string tables.

    build.py CODE FOLDER
    build.py --resource-scripts CODE FOLDER
    build.py --rows FILE

A string table holds the texts of one language and one block of a thousand numbers. Its name says which:
ENU/ENU32000.txt is English, numbers 32000 to 32999. It is UTF-8 text:

    # a comment
    32014 The text up to the end of the line, with \\n for a new line, \\t for a tab and \\\\ for a backslash.

The tables of a language with a base (languages.txt) hold only the texts that differ from those of its base. The pseudo-
language has no tables; its texts are made from the English ones.

A library is UTF-8 text too: a first line that names the format, then one line a text, number, tab, text, with the same
escapes, sorted by number. A Windows library is a module with a string table, which the resource compiler makes of the
resource script. FOLDER receives one file for each block.

The last form writes the rows of languages.txt as initialisers of a C++ array.
"""

import os
import re
import sys
import tempfile
from dataclasses import dataclass, field

from languages import FOLDER, read_languages
from pig import pig_latin

FORMAT_LINE = "NeskManager string table 1"
BLOCK_SIZE = 1000
BLOCKS = (32000, 33000, 34000, 35000)
REFERENCE = "ENU"
PSEUDO_LANGUAGE = "PIG"
# A text is read through a buffer of 1,024 bytes; one byte is the terminator.
MAX_BYTES = 1023

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

    path: str
    base: int
    strings: dict = field(default_factory=dict)
    lines: dict = field(default_factory=dict)  # the line of each number


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


def text_problem(text, code_page):
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


def read_table(path, language):
    """Reads and checks a string table of `language`. TableError lists everything that is wrong."""
    name = os.path.splitext(os.path.basename(path))[0]
    match = _NAME.fullmatch(name)
    if not match or match[1] != language.code:
        raise TableError([f"{path}:1: the file name is not {language.code} and a block number, as in ENU32000.txt"])
    table = Table(path, int(match[2]))

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
        if not table.base <= number < table.base + BLOCK_SIZE:
            complain(f"number {number} is outside the block {table.base} to {table.base + BLOCK_SIZE - 1}")
            continue
        if number in table.lines:
            complain(f"number {number} stands already in line {table.lines[number]}")
            continue
        table.lines[number] = line_number
        try:
            text = unescape(entry[2])
        except ValueError as error:
            complain(str(error))
            continue
        problem = text_problem(text, language.code_page)
        if problem:
            complain(problem)
            continue
        # Without the placeholder, the lookup of a missing text would look up another missing text.
        if number == table.base and "%0%" not in text:
            complain(f"the base text {table.base} lacks the placeholder %0%")
            continue
        table.strings[number] = text

    if not language.base and table.base not in table.lines:
        problems.append(f"{path}:{len(lines)}: the base text {table.base} is missing")
    if problems:
        raise TableError(problems)
    return table


def read_tables(language):
    """The tables of a language, by block. One that shares texts need not have all of them."""
    tables, problems = {}, []
    for block in BLOCKS:
        path = os.path.join(FOLDER, language.code, f"{language.code}{block}.txt")
        if language.base and not os.path.exists(path):
            continue
        try:
            tables[block] = read_table(path, language)
        except TableError as error:
            problems += error.problems
    if problems:
        raise TableError(problems)
    return tables


def all_texts(language, languages):
    """All texts of a language by number, with those of its base."""
    texts = {}
    if language.base:
        base = next(other for other in languages if other.code == language.base)
        texts = all_texts(base, languages)
    if language.code == PSEUDO_LANGUAGE:
        return pig_latin(texts)
    for table in read_tables(language).values():
        texts.update(table.strings)
    return texts


def library_bytes(strings):
    """The language library that holds `strings`."""
    lines = [FORMAT_LINE]
    lines += [f"{number}\t{escape(strings[number])}" for number in sorted(strings)]
    return ("\n".join(lines) + "\n").encode("utf-8")


def resource_script(strings):
    """The resource script that holds `strings`. Characters that are not ASCII are written as their UTF-16 units, so
    that no code page matters."""
    # The neutral language is found on systems of every language. Only the library's name specifies its language.
    lines = ["LANGUAGE 0, 0", "STRINGTABLE", "BEGIN"]
    for number in sorted(strings):
        units = strings[number].encode("utf-16-le")
        text = ""
        for low, high in zip(units[::2], units[1::2]):
            plain = high == 0 and 32 <= low < 127 and chr(low) not in '"\\'
            # Always write four digits, so that a following digit is not read as a fifth.
            text += chr(low) if plain else f"\\x{high:02X}{low:02X}"
        lines.append(f'  {number}, L"{text}"')
    lines.append("END")
    return ("\r\n".join(lines) + "\r\n").encode("ascii")


def rows(languages):
    """The initialisers of a C++ array with all languages."""

    def literal(text):
        return '"' + "".join(chr(b) if 32 <= b < 127 and chr(b) not in '"\\' else f"\\{b:03o}"
                             for b in text.encode("utf-8")) + '"'

    lines = [f"{{{language.identifier}, {literal(language.code)}, {literal(language.base)}, {language.code_page}, "
             f"{literal(','.join(language.locales))}, {literal(language.english_name)}, {literal(language.own_name)}}},"
             for language in languages]
    return ("\n".join(lines) + "\n").encode("ascii")


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


def write_libraries(code, folder, form, extension):
    """Writes a file for each block of a language."""
    languages = read_languages()
    language = next((language for language in languages if code and language.code == code), None)
    if not language:
        raise ValueError(f"languages.txt has no language with the code {code}")
    texts = all_texts(language, languages)
    for block in BLOCKS:
        strings = {number: text for number, text in texts.items() if block <= number < block + BLOCK_SIZE}
        write_whole(os.path.join(folder, f"{code}{block}{extension}"), form(strings))


def main(arguments):
    try:
        if len(arguments) == 2 and arguments[0] == "--rows":
            write_whole(arguments[1], rows(read_languages()))
        elif len(arguments) == 3 and arguments[0] == "--resource-scripts":
            write_libraries(arguments[1], arguments[2], resource_script, ".rc")
        elif len(arguments) == 2 and not arguments[0].startswith("-"):
            write_libraries(arguments[0], arguments[1], library_bytes, ".DLL")
        else:
            print("usage: build.py [--resource-scripts] CODE FOLDER | --rows FILE", file=sys.stderr)
            return 2
    except (TableError, ValueError) as error:
        print(error, file=sys.stderr)
        return 1
    except OSError as error:
        print(f"{error.filename or arguments[-1]}: {error.strerror}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
