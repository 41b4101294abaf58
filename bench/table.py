"""One table of all benchmarks with their ratios, and the same as CSV.

usage: table.py OUT.csv RESULT.json...
Each result file is Google Benchmark's JSON. references.csv beside this file says which benchmark is measured against
which, and which must not cost more per record as it grows; a benchmark without a row there is a reference or a plain
figure.
"""
import csv
import json
import os
import sys

UNIT = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


def references():
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), "references.csv")
    rows = {}
    with open(path, encoding="utf-8") as file:
        for row in csv.reader(line for line in file if line.strip() and not line.startswith("#")):
            rows.setdefault(row[0], []).append((row[1], row[2], int(row[3]) if len(row) > 3 else 0))
    return rows


def records(size):
    return int(size.split("/")[0])


def reference_time(found, program, name, size, reference):
    """What a benchmark is divided by: its reference at the same size, or itself at the smallest, grown in proportion."""
    if reference != "per record":
        return found.get((program, reference, size)), reference
    smallest = min((s for p, n, s in found if (p, n) == (program, name)), key=records)
    if size == smallest:
        return None, ""
    return found[program, name, smallest] * records(size) / records(smallest), f"{name}/{records(smallest)} per record"


def times(paths):
    """(program, benchmark, size) to seconds of elapsed time, in the order of the runs."""
    found = {}
    for path in paths:
        with open(path, encoding="utf-8") as file:
            text = file.read()
        if not text.strip():
            continue
        result = json.loads(text)
        program = os.path.basename(result["context"]["executable"])
        for run in result["benchmarks"]:
            if run.get("run_type") == "aggregate" or run.get("error_occurred"):
                continue
            name, _, size = run["name"].partition("/")
            found[program, name, size] = run["real_time"] * UNIT[run["time_unit"]]
    return found


def seconds(value):
    for unit in ("s", "ms", "us"):
        if value >= UNIT[unit]:
            return f"{value / UNIT[unit]:.3g} {unit}"
    return f"{value / UNIT['ns']:.3g} ns"


def main():
    out, paths = sys.argv[1], sys.argv[2:]
    limits, found = references(), times(paths)
    print(f"{'benchmark':44}{'time':>12}{'reference':>34}{'ratio':>8}{'limit':>8}")
    with open(out, "w", newline="", encoding="utf-8") as file:
        rows = csv.writer(file)
        rows.writerow(["program", "benchmark", "size", "seconds", "reference", "ratio", "limit"])
        for (program, name, size), value in found.items():
            for reference, limit, least in limits.get(name, [("", "", 0)]):
                base, shown = reference_time(found, program, name, size, reference)
                if not base and reference == "per record":
                    continue
                ratio = f"{value / base:.2f}" if base else ""
                if not base or (least and records(size) < least):
                    limit = ""
                print(f"{name + '/' + size if size else name:44}{seconds(value):>12}{shown if base else '':>34}{ratio:>8}{limit:>8}")
                rows.writerow([program, name, size, value, shown, ratio, limit])
    print(f"written to {out}")


if __name__ == "__main__":
    main()
