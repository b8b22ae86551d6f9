#!/usr/bin/env python3
"""Writes the registry of the wire records from the JSON description that the thrift compiler makes of the IDL.

usage: make_registry.py OUTPUT_FOLDER SERVICES AREA.json...
Makes registry_<area>.cpp for each area (its records) and registry_methods.cpp (the methods of SERVICES.json).
"""

import json
import pathlib
import sys

AREA = """// Made from {area}.thrift by make_registry.py.
#include "cloud/wire/recordoperations.h"
#include "{area}_types.h"

namespace zel::wire {{

extern const RecordType records_{area}[];
extern const unsigned recordCount_{area};
const RecordType records_{area}[] = {{
{rows}
}};
const unsigned recordCount_{area} = {count};

}} // namespace zel::wire
"""

METHODS = """// Made from {services}.thrift by make_registry.py.
#include "cloud/wire/registrytables.h"

namespace zel::wire {{

{declarations}

const RecordTable recordTables[] = {{
{tables}
}};
const unsigned recordTableCount = {table_count};

const MethodRow methodRows[] = {{
{rows}
}};
const unsigned methodRowCount = {count};

}} // namespace zel::wire
"""


def area_source(area, description):
    names = sorted(record["name"] for record in description["structs"])
    rows = "\n".join(f'    recordType<vela::{name}>("{name}", "zel::vela::{name}"),' for name in names)
    return AREA.format(area=area, rows=rows, count=len(names))


def record_name(kind, type_id):
    """The record's name without its file; empty for void and for a list of texts."""
    if type_id != "struct":
        return ""
    return kind["class"].rpartition(".")[2]


def method_rows(description):
    rows = []
    for service in description["services"]:
        for function in service["functions"]:
            argument = function["arguments"][0]
            request = record_name(argument.get("type"), argument["typeId"])
            answer = record_name(function.get("returnType"), function["returnTypeId"])
            rows.append((function["name"], request, answer, function["oneway"]))
    return sorted(rows, key=lambda row: (row[3], row[0]))


def methods_source(services, description, areas):
    def row(name, request, answer, oneway):
        return f'    {{"{name}", "{request}", "{answer}", {"true" if oneway else "false"}}},'

    rows = method_rows(description)
    return METHODS.format(
        services=services,
        declarations="\n".join(
            f"extern const RecordType records_{a}[];\nextern const unsigned recordCount_{a};" for a in areas),
        tables="\n".join(f"    {{records_{a}, &recordCount_{a}}}," for a in areas),
        table_count=len(areas),
        rows="\n".join(row(*entry) for entry in rows),
        count=len(rows))


def write(path, text):
    """Leaves an unchanged file alone, so that nothing is compiled again."""
    if not path.exists() or path.read_text(encoding="utf-8") != text:
        path.write_text(text, encoding="utf-8")


def main(output, services, *files):
    areas = []
    output = pathlib.Path(output)
    for file in map(pathlib.Path, files):
        description = json.loads(file.read_text(encoding="utf-8"))
        if file.stem == services:
            service_description = description
            continue
        areas.append(file.stem)
        write(output / f"registry_{file.stem}.cpp", area_source(file.stem, description))
    write(output / "registry_methods.cpp", methods_source(services, service_description, areas))


if __name__ == "__main__":
    main(*sys.argv[1:])
