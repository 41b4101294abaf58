"""Makes field_names.inc from the field enums of pn10gdi.h: number, name, what it reads as, unit.

usage: make_field_names.py pn10gdi.h > field_names.inc
A test makes the file again and compares, so the two cannot drift apart.
"""
import re
import sys

UNITS = {
    "cubic feet per hour": "cf/h", "feet per second": "ft/s", "cubic feet": "cf", "radians": "rad", "Rankine": "R",
    "psi": "psi", "inches": "in", "feet": "ft", "map units": "map units", "in percent": "%",
}
BOTH = {"PDT_VOL_UNITS", "PDT_EQ_NAME"}
NUMERIC = {"PDT_INSIDE_D"}


def unit_of(name, doc, numbers):
    units = re.search(r"\bin (\w+_UNITS)\b", doc)
    if units:
        return f"@{numbers[name[:4] + units.group(1)]}"
    for words, unit in UNITS.items():
        if re.search(rf"\b{words}\b", doc):
            return unit
    return ""


def main():
    header = open(sys.argv[1], encoding="utf-8").read()
    print("/* Made by make_field_names.py from pn10gdi.h. */")
    for kind, enum in (("Node", "NdtField"), ("Pipe", "PdtField"), ("Customer", "CdtField")):
        body = re.search(rf"typedef enum {enum} \{{(.*?)\}} {enum};", header, re.S).group(1)
        rows = [(m[1], int(m[2]), " ".join(m[3].split())) for m in re.finditer(r"([NPC]DT_\w+) = (\d+),?\s*/\* (.*?) \*/", body, re.S)]
        numbers = {name: number for name, number, _ in rows}
        for name, number, doc in rows:
            if "R" not in doc.split()[0]:
                continue
            reads = "Both" if name in BOTH else "Text" if re.search(r"\btext\b", doc) and name not in NUMERIC else "Number"
            print(f'FIELD({kind}, {number}, "{name[4:]}", {reads}, "{unit_of(name, doc, numbers)}")')


if __name__ == "__main__":
    main()
