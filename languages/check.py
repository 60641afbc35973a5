#!/usr/bin/env python3
"""Checks the translations of all texts.

    check.py [CODE ...]

Without a code it checks every language of languages.txt that has all texts itself or differs from its base. Reports
each mistake as "file:line: what" and ends with 1 if there are any.

A translation must have every number of English and no other, its placeholders, line breaks, accelerator, file patterns
and "..."; it has an access key wherever English has one, and no two texts of one line of windows.txt share a key. A text
is the same as in English only if the glossary of the language allows it.
"""

import os
import re
import sys

import build
from languages import FOLDER, read_languages

_PLACEHOLDER = re.compile(r"%[0-9]%|%part%|@[A-Z]+@")
_PATTERN = re.compile(r"\*\.[a-z*]+")
_ACCESS_KEY = re.compile(r"&([^&\s])")
# Words of English that none of the other languages has.
_ENGLISH_WORD = re.compile(r"\b(the|could|cannot|does|which|should|with|this|that|these|choose|was not)\b", re.IGNORECASE)
_WORDS = re.compile(r"[A-Za-z]{2}")
# Texts that hold the access keys of buttons whose captions cannot, and the numbers of these captions in order.
_KEYS_OF = {34476: (32066, 32065, 32066, 32065), 35205: (32066, 32065)}


def read_windows():
    """The lines of windows.txt: name, and a list of groups of numbers of which one is seen at a time."""
    windows = []
    with open(os.path.join(FOLDER, "windows.txt"), encoding="utf-8") as file:
        for line in file:
            if line.strip() and not line.startswith("#"):
                name, numbers = line.split(":")
                windows.append((name, [[int(n) for n in group.split("/")] for group in numbers.split()]))
    return windows


def read_glossary(code):
    """What the glossary of a language says: its terms by the English ones, and the numbers of the texts that are the
    same as in English."""
    terms, same = {}, set()
    path = os.path.join(FOLDER, code, "glossary.txt")
    if not os.path.exists(path):
        return terms, same
    with open(path, encoding="utf-8") as file:
        for line in file:
            line = line.strip()
            if not line or line.startswith("#"):
                continue
            english, own = (part.strip() for part in line.split("=", 1))
            if english == "same":
                same.update(int(number) for number in own.split())
            else:
                terms[english] = own
    return terms, same


def access_keys(number, text):
    """The access keys of a text, in lower case."""
    if number in _KEYS_OF:
        return list(text.lower())
    return [key.lower() for key in _ACCESS_KEY.findall(text.replace("&&", ""))]


def accelerator(text):
    return text.partition("\t")[2]


def compare(number, own, english):
    """What is wrong with a text, compared with the English one."""
    for what, of in (("placeholders", lambda text: sorted(_PLACEHOLDER.findall(text))),
                     ("file patterns", lambda text: _PATTERN.findall(text)),
                     ("line breaks", lambda text: text.count("\n")),
                     ('"|"', lambda text: text.count("|")),
                     ("accelerator", accelerator),
                     ('"..."', lambda text: text.partition("\t")[0].endswith("...")),
                     ("access key", lambda text: len(access_keys(0, text)))):
        if of(own) != of(english):
            yield f"not the {what} of the English text: {build.escape(english)}"
    if any(not key.isalnum() for key in access_keys(0, own)):
        yield "the access key is neither a letter nor a digit"


def check_keys(texts, complain):
    """Complains of access keys that two texts of one window share."""
    for name, groups in read_windows():
        taken = {}
        for group in groups:
            keys = {(key, number) for number in group for key in access_keys(number, texts.get(number, ""))}
            for key, number in sorted(keys):
                if key in taken:
                    complain(number, f'{name}: the access key "{key}" is also that of {taken[key]}')
            taken.update(keys)
    for number, captions in _KEYS_OF.items():
        keys = texts.get(number, "").lower()
        if len(keys) != len(captions) or len(set(keys)) != len(keys):
            complain(number, f"{len(captions)} different keys are needed")


def check(language, languages):
    """The mistakes of one language."""
    problems = []
    try:
        tables = build.read_tables(language)
    except build.TableError as error:
        return error.problems
    english = build.all_texts(languages[build.REFERENCE], languages.values())
    shared = build.all_texts(languages[language.base], languages.values()) if language.base else {}
    texts = {number: text for table in tables.values() for number, text in table.strings.items()}
    _, same = read_glossary(language.code)
    is_english = build.REFERENCE in (language.code, language.base)

    def complain(number, what):
        table = tables.get(number // build.BLOCK_SIZE * build.BLOCK_SIZE)
        place = f"{table.path}:{table.lines[number]}" if table and number in table.lines else language.code
        problems.append(f"{place}: {number}: {what}")

    for number in sorted(texts.keys() - english.keys()):
        complain(number, "English has no such text")
    for number in sorted(english.keys() - texts.keys() - shared.keys()):
        complain(number, f"the text is missing: {build.escape(english[number])}")
    for number in sorted(texts.keys() & english.keys()):
        text = texts[number]
        for what in compare(number, text, english[number]):
            complain(number, what)
        if text == shared.get(number):
            complain(number, f"the text is the same as that of {language.base}; leave it out")
        if is_english or number in same or number in _KEYS_OF:
            continue
        if text == english[number] and _WORDS.search(_PLACEHOLDER.sub("", text)):
            complain(number, f'the text is the same as in English; translate it, or add {number} to "same" of the glossary')
        if word := _ENGLISH_WORD.search(text):
            complain(number, f'"{word[0]}" is English')
    check_keys({**shared, **texts}, complain)
    return problems


def main(arguments):
    languages = {language.code: language for language in read_languages() if language.code}
    codes = arguments or [code for code in languages if code != build.PSEUDO_LANGUAGE]
    unknown = [code for code in codes if code not in languages]
    if unknown:
        print(f"languages.txt has no {', '.join(unknown)}", file=sys.stderr)
        return 2
    problems = [problem for code in codes for problem in check(languages[code], languages)]
    print("\n".join(problems) if problems else f"Languages without mistakes: {', '.join(codes)}",
          file=sys.stderr if problems else sys.stdout)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
