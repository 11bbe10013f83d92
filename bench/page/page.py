#!/usr/bin/env python3
"""Makes the tables and plots of docs/performance.md from what the benchmarks write: page.py [PATTERN]

Each table stands between a comment that has its recipe and `<!-- end -->`:

    <!-- table
    run: vornbench --benchmark_filter=Many
    columns: ours/s, bare/s, ours/bare
    plot: images/many.svg, pictures a second: ours/s, bare/s
    -->

`run` is a program below build/release/bench, or a script from the project's root. Without `columns`, it
writes the table itself. With PATTERN, only tables with a match in `run` are made.
"""
import functools
import json
import pathlib
import re
import shlex
import subprocess
import sys

import plot

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs/performance.md"
PROGRAMS = ROOT / "build/release/bench"
TABLE = re.compile(r"(<!-- table\n(.*?)\n-->\n).*?(<!-- end -->)", re.DOTALL)


@functools.lru_cache(maxsize=None)  # Several tables may be of the same run.
def output_of(command):
    name, *options = shlex.split(command)
    program = next((path for path in PROGRAMS.rglob(name) if path.is_file()), ROOT / name)
    print(f"page: {command}", file=sys.stderr)
    result = subprocess.run([program, *options], capture_output=True, text=True)
    if result.returncode != 0:
        sys.exit(f"page: {command} fails:\n{result.stderr}")
    return result.stdout


def number(value, column):
    """Ratios with two decimals, the rest with three digits."""
    is_ratio = "/" in column and not column.endswith("/s")
    decimals = 2 if is_ratio or value == 0 else sum(abs(value) < limit for limit in (1, 10, 100))
    return f"{value:.{decimals}f}"


def markdown(rows, columns):
    lines = ["| | " + " | ".join(columns) + " |", "|---|" + "--:|" * len(columns)]
    for row in rows:
        cells = [number(row[column], column) for column in columns]
        lines.append(f"| {row['label']} | " + " | ".join(cells) + " |")
    return "\n".join(lines)


def machine(context):
    return (f"*{context['num_cpus']} cores, {context['GL']}; load {context['load_avg'][0]:.0f};"
            f" {context['date'][:10]}*")


def rows_of(report):
    rows = [row for row in report["benchmarks"] if not row.get("error_occurred")]
    if not rows:
        sys.exit("page: nothing was measured")
    return rows


def draw(recipe, rows):
    place, unit, columns = re.fullmatch(r"([^,]+), ([^:]+): (.+)", recipe).groups()
    (PAGE.parent / place).write_text(plot.svg(rows, unit, columns.split(", ")))


def make(recipe):
    output = output_of(recipe["run"])
    if "columns" not in recipe:
        return output.strip()
    report = json.loads(output)
    rows = rows_of(report)
    if "plot" in recipe:
        draw(recipe["plot"], rows)
    return markdown(rows, recipe["columns"].split(", ")) + "\n\n" + machine(report["context"])


def main():
    pattern = sys.argv[1] if len(sys.argv) > 1 else ""

    def remake(match):
        head, text, end = match.groups()
        recipe = dict(line.split(": ", 1) for line in text.splitlines())
        if not re.search(pattern, recipe["run"]):
            return match.group()
        if "columns" in recipe:
            recipe["run"] += " --benchmark_format=json"
        return f"{head}\n{make(recipe)}\n\n{end}"

    PAGE.write_text(TABLE.sub(remake, PAGE.read_text()))


if __name__ == "__main__":
    main()
