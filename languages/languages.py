"""Reads languages.txt, the list of the languages that the program knows."""

import os
import re
from dataclasses import dataclass

FOLDER = os.path.dirname(os.path.abspath(__file__))

_ROW = re.compile(r"(-?[0-9]+) +([A-Z]{3}|-) +([A-Z]{3}|-) +([0-9]+) +(\S+) +([^|]+) \| (.+)")


@dataclass
class Language:
    """A row of the list. `code` and `base` are empty when there is none."""

    identifier: int
    code: str
    base: str
    code_page: int
    locales: list
    english_name: str
    own_name: str


def read_languages(path=os.path.join(FOLDER, "languages.txt")):
    """The rows of the list in their order. ValueError names the file, the line and what is wrong there."""
    languages = []
    seen = set()
    with open(path, encoding="utf-8") as file:
        for line_number, line in enumerate(file, start=1):
            line = line.rstrip("\r\n")
            if not line.strip() or line.startswith("#"):
                continue

            def wrong(what):
                return ValueError(f"{path}:{line_number}: {what}")

            row = _ROW.fullmatch(line)
            if not row:
                raise wrong("expected identifier, code, base, code page, locales, English name | own name")
            none_as_empty = ["" if field == "-" else field for field in row.groups()]
            identifier, code, base, code_page, locales, english_name, own_name = none_as_empty
            language = Language(int(identifier), code, base, int(code_page),
                                locales.split(",") if locales else [], english_name.strip(), own_name.strip())
            if languages and language.identifier <= languages[-1].identifier:
                raise wrong(f"the identifier {identifier} does not come after {languages[-1].identifier}")
            for name in [code, *language.locales]:
                if name and name in seen:
                    raise wrong(f"{name} stands in two rows")
                seen.add(name)
            if base and not code:
                raise wrong("a language without a code cannot have a base")
            languages.append(language)
    codes = {language.code: language for language in languages if language.code}
    for language in languages:
        if language.base and (language.base not in codes or codes[language.base].base):
            raise ValueError(f"{path}: {language.code} has the base {language.base}, which is no language with all texts")
    return languages
