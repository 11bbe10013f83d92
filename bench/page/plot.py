"""Line plots of a table as SVG, for light and dark pages."""
import math
import re

WIDTH, HEIGHT = 640, 340
LEFT, RIGHT, BOTTOM = 60, 620, 300
ROW = 18
COLORS = ("#2f81f7", "#e0823d", "#3fa45b", "#a371f7")
DASHES = ("none", "7 5", "2 4")
STYLE = "font: 13px system-ui, sans-serif; fill: #7d8590"


def series(rows, columns):
    """Labels are a number, then what is counted, then a comma and the variant of the line.

    \\return {(variant, column): [(x, y), ...]}
    """
    lines = {}
    for row in rows:
        count, variant = re.fullmatch(r"(\d+)[^,]*(?:, (.+))?", row["label"]).groups()
        for column in columns:
            lines.setdefault((variant or "", column), []).append((int(count), row[column]))
    return lines


def ticks(low, high):
    """Round values, logarithmic for values far from each other, else in steps from zero."""
    steps = [factor * 10.0**power for power in range(-3, 6) for factor in (1, 2, 5)]
    if high / low > 10:
        return [step for step in steps if low / 2 < step < high * 2]
    step = next(step for step in steps if high / step <= 6)
    return [step * index for index in range(math.ceil(high / step) + 1)]


def scale(values, start, end, logarithmic):
    """Maps from values[0]..values[-1] to start..end."""
    convert = math.log if logarithmic else float
    low, high = convert(values[0]), convert(values[-1])
    return lambda value: start + (end - start) * (convert(value) - low) / (high - low)


def text(x, y, words, anchor="middle"):
    return f'<text x="{x:.0f}" y="{y:.0f}" text-anchor="{anchor}">{words}</text>'


def line(points, color, dash):
    path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
    return (f'<polyline points="{path}" fill="none" stroke="{color}" stroke-width="2.5"'
            f' stroke-dasharray="{dash}"/>')


def grid(xs, ys, to_x, to_y):
    parts = []
    for y in ys:
        parts.append(f'<path d="M{LEFT} {to_y(y):.1f}H{RIGHT}" stroke="#7d8590" stroke-opacity=".3"/>')
        parts.append(text(LEFT - 8, to_y(y) + 4, f"{y:g}", "end"))
    return parts + [text(to_x(x), BOTTOM + 20, x) for x in xs]


def key(variant, columns, dash, y):
    """A row that names the lines of a variant, from right to left."""
    parts = [text(RIGHT, y, variant, "end")] if variant else []
    x = RIGHT - (7 * len(variant) + 16 if variant else 0)
    for column in reversed(columns):
        name = column.split("/")[0].removesuffix(" ms")
        parts.append(text(x, y, name, "end"))
        x -= 7 * len(name) + 8
        parts.append(line([(x - 24, y - 4), (x, y - 4)], COLORS[columns.index(column)], dash))
        x -= 40
    return parts


def svg(rows, unit, columns):
    """\\param rows with a label and a value for each column; \\param unit of the values"""
    lines = series(rows, columns)
    xs = sorted({x for points in lines.values() for x, _ in points})
    values = [y for points in lines.values() for _, y in points]
    variants = list(dict.fromkeys(variant for variant, _ in lines))
    ys = ticks(min(values), max(values))
    to_x = scale(xs, LEFT + 20, RIGHT - 20, True)
    to_y = scale(ys, BOTTOM, ROW * (len(variants) + 2), ys[0] > 0)
    parts = [text(LEFT, 16, unit, "start"), *grid(xs, ys, to_x, to_y)]
    for index, variant in enumerate(variants):
        parts += key(variant, columns, DASHES[index], 16 + ROW * (index + 1))
    for (variant, column), points in lines.items():
        color, dash = COLORS[columns.index(column)], DASHES[variants.index(variant)]
        parts.append(line([(to_x(x), to_y(y)) for x, y in points], color, dash))
    subject = re.sub(r"^\d+ |,.*", "", rows[-1]["label"])
    parts.append(text((LEFT + RIGHT) / 2, HEIGHT - 6, subject))
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" style="{STYLE}">\n'
            + "\n".join(parts) + "\n</svg>\n")
