"""Makes the texts of the pseudo-language from the English ones.

Each word is put into pig Latin and gets accents, which makes it longer: a text that is cut, or that does not come from
a string table, is seen at a glance. Placeholders, accelerators and file patterns stay, and so do the access keys.
"""

import os
import re

from languages import FOLDER

# What stays as it is: placeholders, file patterns with what follows them, names of files, keys and programs.
_KEPT = re.compile(r"%[0-9]%|%part%|@[A-Z]+@|\|[^|]*|\*\.[a-z*;.]+|\\[a-z]|Ctrl\+\w+|[\w-]+\.[a-z]{2,4}\b|[A-Z_]{4,}|\bF[0-9]+\b")
_WORD = re.compile(r"(&?)([A-Za-z&']+)")
_ACCENTS = str.maketrans("aeiouAEIOU", "äéïôüÄÉÏÔÜ")

# Texts with the access keys of buttons, the captions of these, and the window in which they stand.
_KEYS = {34476: ((32066, 32065, 32066, 32065), "FormEditPart"), 35205: ((32066, 32065), "FormEditMenu")}


def _pig_word(word):
    """A word in pig Latin; with an access key, the letter after "&" stays without an accent."""
    key = word[word.index("&") + 1] if "&" in word and not word.endswith("&") else ""
    plain = word.replace("&", "")
    if not plain:
        return word
    start = re.match(r"[^aeiouAEIOU']*", plain).end()
    if start == 0:
        result = plain + "way"
    elif start == len(plain):
        result = plain + "ay"
    else:
        result = plain[start:] + plain[:start].lower() + "ay"
    if plain[0].isupper():
        result = result[0].upper() + result[1:]
    if not key:
        return result.translate(_ACCENTS)
    at = result.lower().index(key.lower())
    return result[:at].translate(_ACCENTS) + "&" + result[at] + result[at + 1:].translate(_ACCENTS)


def _pig_text(text):
    label, tab, accelerator = text.partition("\t")
    result, position = "", 0
    for kept in _KEPT.finditer(label):
        result += _WORD.sub(lambda word: _pig_word(word[0]), label[position:kept.start()]) + kept[0]
        position = kept.end()
    return result + _WORD.sub(lambda word: _pig_word(word[0]), label[position:]) + tab + accelerator


def _keys(texts, captions, window):
    """Letters of some captions that no other text of their window has as its access key."""
    with open(os.path.join(FOLDER, "windows.txt"), encoding="utf-8") as file:
        numbers = next(line for line in file if line.startswith(window + ":")).split(":")[1].split()
    taken = {key.lower() for number in numbers for key in re.findall("&(.)", texts[int(number)])}
    keys = ""
    for number in captions:
        keys += next(letter for letter in texts[number] if letter.isascii() and letter.isalpha()
                     and letter.lower() not in taken and letter.lower() not in keys.lower())
    return keys


def pig_latin(texts):
    """The texts of the pseudo-language, by number, made from `texts`."""
    result = {number: _pig_text(text) for number, text in texts.items()}
    for number, (captions, window) in _KEYS.items():
        result[number] = _keys(result, captions, window)
    return result
