"""What the table makers share: reading the Unicode files, and writing a table over all code points in two steps, so that
the many blocks that are alike (mostly empty) stand once."""

import bz2
import pathlib

BLOCK = 64


def lines(folder, name):
    """The lines of a Unicode data file that say something, packed by the distribution or not."""
    plain = pathlib.Path(folder) / name
    packed = plain.with_name(name + ".bz2")
    text = bz2.decompress(packed.read_bytes()).decode() if packed.exists() else plain.read_text(encoding="utf-8")
    return [line for line in text.splitlines() if line and not line.startswith("#")]


def numbers(values):
    return "{\n" + ",\n".join(", ".join(map(str, values[at:at + 24])) for at in range(0, len(values), 24)) + "}"


def code_points(name, values):
    """A CodePointTable (codepointtable.h) of the code points in `values`; all others have 0."""
    first, blocks, second = [], {}, []
    for start in range(0, max(values) + 1, BLOCK):
        block = tuple(values.get(code, 0) for code in range(start, start + BLOCK))
        if block not in blocks:
            blocks[block] = len(blocks)
            second += block
        first.append(blocks[block])
    assert max(*first, *second) < 0x10000
    return (f"static constexpr std::uint16_t {name}Blocks[] = {numbers(first)};\n"
            f"static constexpr std::uint16_t {name}Values[] = {numbers(second)};\n"
            f"constinit const CodePointTable {name} = {{{name}Blocks, {name}Values}};\n")


def write(output, header, definitions):
    with open(output, "w", encoding="utf-8") as file:
        file.write(f'#include "localsearch/engine/tables/{header}"\n\nnamespace zel::localsearch::table {{\n')
        file.writelines(definitions)
        file.write("}\n")
