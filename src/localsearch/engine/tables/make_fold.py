#!/usr/bin/env python3
"""make_fold.py UNICODE_FOLDER OUTPUT: what each character is compared as, from the Unicode database."""

import re
import sys

from tablewriter import code_points, lines, numbers, write

VOICING = {0x3099, 0x309A}  # they make another syllable, so they are no accents
# Letters that no decomposition and no name takes apart.
PLAIN = {
    "LATIN SMALL LETTER AE": "ae", "LATIN SMALL LIGATURE OE": "oe", "LATIN SMALL LETTER DOTLESS I": "i",
    "LATIN SMALL LETTER DOTLESS J": "j", "LATIN SMALL LETTER ETH": "d", "LATIN SMALL LETTER THORN": "th",
}
WITH = re.compile(r"LATIN SMALL LETTER ([A-Z]) WITH ")


class Characters:
    def __init__(self, folder):
        self.decomposed, self.names, self.classes = {}, {}, {}
        for line in lines(folder, "UnicodeData.txt"):
            code, name, category, combining, _, decomposition, *_ = line.split(";")
            code = int(code, 16)
            self.names[code] = name
            if category == "Mn":
                self.classes[code] = int(combining)
            if decomposition:
                self.decomposed[code] = [int(c, 16) for c in decomposition.split() if not c.startswith("<")]
        self.voiced = [(*parts, code) for code, parts in self.decomposed.items()
                       if len(parts) == 2 and parts[1] in VOICING]
        self.case_folded = {}
        for line in lines(folder, "DerivedNormalizationProps.txt"):
            codes, field, *text = [part.strip() for part in line.partition("#")[0].split(";")]
            if field == "NFKC_CF":
                first, _, last = codes.partition("..")
                for code in range(int(first, 16), int(last or first, 16) + 1):
                    self.case_folded[code] = [int(c, 16) for c in text[0].split()]

    def is_accent(self, code):
        """Marks above, below, through and of the pointed scripts; not the vowels, tones and viramas of others."""
        combining = self.classes.get(code, 0)
        return combining == 1 or 10 <= combining <= 36 or combining >= 200

    def in_parts(self, code):
        if code not in self.decomposed:
            return [code]
        return [part for each in self.decomposed[code] for part in self.in_parts(each)]

    def plain(self, code):
        name = self.names.get(code, "")
        stroke = WITH.match(name)
        return PLAIN.get(name) or (stroke.group(1).lower() if stroke else chr(code))

    def fold(self, code):
        folded = self.case_folded.get(code, [code])
        parts = [part for each in folded for part in self.in_parts(each)]
        text = "".join(self.plain(part) for part in parts if not self.is_accent(part))
        for base, mark, composed in self.voiced:
            text = text.replace(chr(base) + chr(mark), chr(composed))
        return text


def main(folder, output):
    characters = Characters(folder)
    pool, places, values = [0], {}, {}
    for code in sorted(set(characters.names) | set(characters.case_folded)):
        if 0xD800 <= code <= 0xDFFF:
            continue
        folded = characters.fold(code)
        if folded == chr(code):
            continue
        if folded not in places:
            places[folded] = len(pool)
            text = folded.encode()
            pool += [len(text)] + [byte if byte < 0x80 else byte - 0x100 for byte in text]
        values[code] = places[folded]
    voiced = ", ".join("{%d, %d, %d}" % row for row in sorted(characters.voiced))
    write(output, "foldtable.h", [
        code_points("foldedCharacter", values),
        f"const char foldPool[] = {numbers(pool)};\n",
        f"static constexpr VoicedKana everyVoicedKana[] = {{{voiced}}};\n",
        "constinit const std::span<const VoicedKana> voicedKana = everyVoicedKana;\n"])


if __name__ == "__main__":
    main(*sys.argv[1:])
