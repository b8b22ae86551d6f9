#!/usr/bin/env python3
"""make_pinyin.py UNICODE_FOLDER OUTPUT: the readings of Chinese characters from the Unihan database."""

import re
import sys
import unicodedata

from tablewriter import code_points, lines, numbers, write

# Fields that list what people read today, and dictionaries, whose further readings are rare ones.
COUNTED = "kHanyuPinlu"
COMMON = "kMandarin"
RARE = ["kTGHZ2013", "kXHC1983", "kHanyuPinyin"]

RARE_MARK, LAST_MARK = 0x8000, 0x4000  # as in pinyintable.h


def letters(reading):
    """As it is typed: no tones, v for u with two dots."""
    plain = unicodedata.normalize("NFD", reading).replace("u\u0304\u0308", "v").replace("u\u0308", "v")
    plain = "".join(c for c in plain if not unicodedata.combining(c))
    assert re.fullmatch("[a-z]{1,6}", plain), reading
    return plain


def by_count(text):
    counts = {}
    for reading, count in re.findall(r"(\S+)\((\d+)\)", text):
        counts[letters(reading)] = counts.get(letters(reading), 0) + int(count)
    return sorted(counts, key=counts.get, reverse=True)


def in_dictionary(text):
    """"0442.080:háng,xíng 0443.050:hàng" """
    return [letters(reading) for entry in text.split() for reading in entry.partition(":")[2].split(",")]


def readings(fields):
    """Syllables, common ones first, and how many of them are common."""
    common = dict.fromkeys(by_count(fields.get(COUNTED, "")))
    common.update(dict.fromkeys(map(letters, fields.get(COMMON, "").split())))
    every = dict(common)
    for field in RARE:
        every.update(dict.fromkeys(in_dictionary(fields.get(field, ""))))
    return tuple(every), len(common)


def main(folder, output):
    characters = {}
    for line in lines(folder, "Unihan_Readings.txt"):
        code, field, text = line.split("\t")
        if field in (COUNTED, COMMON, *RARE):
            characters.setdefault(int(code[2:], 16), {})[field] = text
    lists = {code: readings(fields) for code, fields in characters.items()}
    syllables = sorted({syllable for every, _ in lists.values() for syllable in every})
    number = {syllable: at for at, syllable in enumerate(syllables)}
    pool, places = [0], {}
    for every, common in sorted(set(lists.values())):
        places[every, common] = len(pool)
        pool += [number[syllable] | (RARE_MARK if at >= common else 0) for at, syllable in enumerate(every)]
        pool[-1] |= LAST_MARK
    names = ", ".join('{"%s"}' % syllable for syllable in syllables)
    write(output, "pinyintable.h", [
        code_points("readingsOfCharacter", {code: places[each] for code, each in lists.items()}),
        f"const std::uint16_t readingPool[] = {numbers(pool)};\n",
        f"static constexpr Syllable everySyllable[] = {{{names}}};\n",
        "constinit const std::span<const Syllable> syllables = everySyllable;\n"])


if __name__ == "__main__":
    main(*sys.argv[1:])
