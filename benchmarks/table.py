#!/usr/bin/env python3
# SPDX-FileCopyrightText: The TAMO authors
# SPDX-License-Identifier: BSD-3-Clause
"""Turns the figures of one run of tamoBenchmarks, a JSON file that scripts/bench makes, into tables.

Usage: table.py RESULT.json             prints the whole page of results
       table.py RESULT.json DOCUMENT.md puts the run's tables in place of those that the document quotes

A quoted table follows a line `<!-- benchmarks/table.py: TITLE -->`. Figures are medians of processor time.
"""

import re
import sys
from pathlib import Path

from bench_run import (AXES, LARGEST, Run, bytes_apart, name_of_layout, name_of_slices, name_of_volume,
                       odd_layouts, times_contiguous)

SIDES = (64, 256, 512)
DENSE = "gyroid"


class Table:
    def __init__(self, title, note, head, rows):
        self.title = title
        self.note = note
        self.lines = ["| " + " | ".join(head) + " |", "|" + "|".join(["---"] + ["---:"] * (len(head) - 1)) + "|"]
        self.lines += ["| " + " | ".join(row) + " |" for row in rows]


def milliseconds(microseconds):
    value = microseconds / 1000
    return f"{value:.0f} ms" if value >= 10 else f"{value:.2g} ms"


# What a user asks.


def summary_rows(run):
    for pattern in ("brain", DENSE):
        for side in SIDES:
            key = (pattern, side, "x", 1)
            if run.has("wrap", *key):
                yield [f"{pattern}, {side}³", f"{run.counter('cells', 'wrap', *key) / 1000:,.0f} thousand",
                       *(milliseconds(run.time(what, *key)) for what in ("wrap", "info", "memory")),
                       f"{run.counter('workspace', 'wrap', *key) / 1024:.0f} KiB"]


# Targets.


def judged(measured, is_met, unit=""):
    return f"{measured:.2f}{unit}" + ("" if is_met else ", **missed**")


def cost_per_cell(run, axis):
    """Nanoseconds for each cut cell of the dense pattern, beyond what the ball, of the same size, takes."""
    dense = (DENSE, LARGEST, axis, 1)
    beyond = run.time("wrap", *dense) - run.time("wrap", "ball", LARGEST, axis, 1)
    return 1000 * beyond / run.counter("cells", "wrap", *dense)


def target_rows(run):
    def row(name, limit, figure, at_most=True, unit=""):
        measured = [figure(axis) for axis in AXES]
        bound = f"at {'most' if at_most else 'least'} {limit}{unit}"
        return [name, bound, *(judged(m, (m <= limit) == at_most, unit) for m in measured)]

    def ratio(what, whats, pattern):
        return lambda axis: run.ratio(what, whats, pattern, LARGEST, axis, 1)

    yield row("Scan, ball: memory passes", 5, ratio("wrap", "memory", "ball"))
    yield row("Scan, ball: times faster than the plain walk", 12, ratio("wrapPlain", "wrap", "ball"), False)
    yield row("Scan, dense: beyond the ball, per cut cell", 5, lambda axis: cost_per_cell(run, axis), unit=" ns")
    yield row("Scan, dense: times faster than the plain walk", 5, ratio("wrapPlain", "wrap", DENSE), False)
    yield row("Count, ball: memory passes", 3, ratio("info", "memory", "ball"))
    yield row("Count, dense: times faster than the plain count", 10, ratio("infoPlain", "info", DENSE), False)


def worst_rows(run):
    def row(name, keys, figure, limit, at_most=True, unit="", name_of=name_of_volume):
        worst = (max if at_most else min)(keys, key=figure)
        measured = figure(worst)
        bound = f"at {'most' if at_most else 'least'} {limit}{unit}"
        return [name, bound, judged(measured, (measured <= limit) == at_most, unit), name_of(worst)]

    def ratio(what, whats):
        return lambda key: run.ratio(what, whats, *key)

    cubes = [key for key in run.keys("wrap") if key[2] in AXES]
    large = [key for key in cubes if int(key[1]) in SIDES]
    small = [key for key in cubes if int(key[1]) < 64]
    plain = [key for key in run.keys("wrapPlain") if key[2] in AXES and int(key[1]) <= 64]
    yield row("Count, 64³ to 512³: times the scan", large, ratio("info", "wrap"), 1)
    yield row("Count, 2³ to 32³: times the scan", small, ratio("info", "wrap"), 1)
    yield row("Scan, 2³ to 64³: times faster than the plain walk", plain, ratio("wrapPlain", "wrap"), 1, False)
    flat = [key for key in run.keys("wrapPlain") if key[2].endswith(("flat_1", "flat_2"))]
    yield row("Scan, one or two slices: times faster than the plain walk", flat, ratio("wrapPlain", "wrap"), 1, False,
              name_of=name_of_slices)
    yield row("Count, 2³ to 64³: times faster than the plain count", plain, ratio("infoPlain", "info"), 1, False)
    near = [key for key in odd_layouts(run) if bytes_apart(key) <= 3]
    far = [key for key in odd_layouts(run) if bytes_apart(key) > 3]
    for apart, keys in (("up to 3 bytes apart", near), ("4 to 8 bytes apart", far)):
        for name, what in (("Scan", "wrap"), ("Count", "info")):
            yield row(f"{name}, samples {apart}: times contiguous", keys,
                      lambda key, w=what: times_contiguous(run, w, key), 3, name_of=name_of_layout)
    yield row("A list", run.keys("list"), lambda key: run.time("list", *key) / 1000, 5, unit=" ms",
              name_of=" ".join)


# Everything.


def scan_rows(run):
    for side in SIDES:
        for pattern in ("ball", DENSE, "balls", "brain"):
            for axis in AXES:
                key = (pattern, side, axis, 1)
                if run.has("wrap", *key):
                    yield [name_of_volume(key), f"{100 * run.counter('share', 'wrap', *key):.1f} %",
                           f"{run.time('memory', *key) / 1000:.3f}", f"{run.ratio('read', 'memory', *key):.2f}",
                           f"{run.ratio('wrap', 'memory', *key):.2f}", run.times_faster("wrap", key),
                           f"{run.ratio('info', 'memory', *key):.2f}", run.times_faster("info", key),
                           f"{run.ratio('infoAll', 'memory', *key):.2f}"]


def collect_rows(run):
    for key in run.keys("collect"):
        if key[3] == "1":
            yield [name_of_volume(key), f"{run.ratio('collect', 'wrap', *key):.1f}", run.times_faster("collect", key)]


def step_rows(run):
    for key in run.keys("collect"):
        if key[3] != "1":
            yield [name_of_volume(key), f"{run.nanoseconds_per_sample('wrap', key):.2f}", run.times_faster("wrap", key),
                   f"{run.nanoseconds_per_sample('info', key):.2f}", run.times_faster("info", key),
                   f"{run.ratio('collect', 'wrap', *key):.1f}", run.times_faster("collect", key)]


def layout_rows(run):
    contiguous = [("ball", str(side), axis, "1") for side in (LARGEST, 256) for axis in AXES]
    for key in contiguous + odd_layouts(run):
        row = [f"{name_of_layout(key)}, {key[1]}³"]
        for what in ("wrap", "info"):
            # With a step, much of what a pass over memory sums are no samples.
            passes = f"{run.ratio(what, 'memory', *key):.1f}" if key[3] == "1" else "-"
            row += [f"{run.nanoseconds_per_sample(what, key):.2f}", f"{times_contiguous(run, what, key):.1f}", passes]
        yield row


def small_rows(run):
    for key in run.keys("wrap"):
        is_cube = int(key[1]) <= 64 and key[2:] == ("x", "1")
        if (is_cube or "flat" in key[2]) and run.has("wrapPlain", *key):
            yield [f"{key[0]}, {key[1]}³" if is_cube else name_of_slices(key), f"{run.time('wrap', *key):.2f}",
                   f"{run.ratio('wrapPlain', 'wrap', *key):.2f}", f"{run.time('info', *key):.2f}",
                   f"{run.ratio('infoPlain', 'info', *key):.2f}"]


def display_rows(run):
    if not run.has("display", "compile"):
        return
    compiled, polygons = run.time("display", "compile"), run.counter("polygons", "display", "move")
    names = {"compile": "Scan into a display list, `GLPolygonConsumer`",
             "compilePrepared": "The same calls of OpenGL from a prepared array",
             "move": "Scan and copies of the polygons, no OpenGL", "draw": "Draw the list once"}
    for what, name in names.items():
        time = run.time("display", what)
        yield [name, f"{time / 1000:.0f}", f"{1000 * time / polygons:.0f}", f"{100 * time / compiled:.0f} %"]


def file_rows(run):
    names = {"raw": "Bare voxels, 512³ of 16 bits", "foreign": "The same in the other byte order",
             "box": "A box of 100³ of them", "brain": "The brain, gzip, 35 million voxels"}
    for what, name in names.items():
        if run.has("file", what, "library"):
            # The least to do for voxels in the other byte order is to read them.
            plain = (("file", "raw", "plain") if what == "foreign" else ("file", what, "plain"))
            least = [f"{run.time(*plain) / 1000:.0f}", f"{run.time('file', what, 'library') / run.time(*plain):.2f}"]
            yield [name, f"{run.time('file', what, 'library') / 1000:.1f}",
                   *(least if run.has(*plain) else ["-", "-"])]


def tables_of(run):
    volume = "Volume, contiguous axis"
    return [
        Table("In short", "x contiguous. Cut cells are those that the receiver gets; here it counts them.",
              ("Volume", "Cut cells", "Scan", "Count", "Memory pass", "Work space"), summary_rows(run)),
        Table("Targets, 512³", f"Dense is the {DENSE}.",
              ("What", "Target", *(f"{axis} contiguous" for axis in AXES)), target_rows(run)),
        Table("Targets over many volumes", "Of all that were measured, the one farthest from the target.",
              ("What", "Target", "Worst", "Where"), worst_rows(run)),
        Table("Scans", "Reading alone stops where the samples are bits. A dash: the plain walk was not measured.",
              (volume, "Cut cells", "Memory pass, ms", "Reading alone, passes", "Scan, passes", "than plain",
               "Count, passes", "than plain", "... of all cells, passes"), scan_rows(run)),
        Table("Collecting cells", "With a receiver that keeps each cell's object and position.",
              (volume, "Times the scan", "Times faster than plain"), collect_rows(run)),
        Table("Steps", "With a step of k, every k-th voxel along each axis is a sample.",
              (volume + ", step", "Scan, ns per sample", "than plain", "Count, ns per sample", "than plain",
               "Collecting, times the scan", "than plain"), step_rows(run)),
        Table("Other layouts", "The ball. x by 3: samples 3 bytes apart; gaps: 27 unused bytes after each row; back: "
              "falling addresses; y z x: the axes from the fastest; thin 8: 8 voxels along the densest axis.",
              ("Densest axis", "Scan, ns per sample", "times contiguous", "memory passes", "Count, ns per sample",
               "times contiguous", "memory passes"), layout_rows(run)),
        Table("Small volumes", "x contiguous.", ("Volume", "Scan, µs", "Times faster than plain", "Count, µs",
                                                 "Times faster than plain"), small_rows(run)),
        Table("Lists", "Time to build the list of a system.", ("System", "ms"),
              ([key[0], f"{run.time('list', *key) / 1000:.2f}"] for key in run.keys("list"))),
        Table("Reading volumes", "From files that the system holds in memory. The least to do: one call of the system into "
              "fresh memory, or zlib's expansion alone.",
              ("Volume", "ms", "The least to do, ms", "Ratio"), file_rows(run)),
        Table("A display list", "Of the brain, 256³, in Mesa without a graphics card.",
              ("What", "ms", "ns per polygon", "Share"), display_rows(run)),
    ]


def print_page(run, tables):
    machine = run.context
    caches = [f"level {cache['level']} {cache['size'] // 1024} KiB" for cache in machine["caches"]
              if cache["type"] != "Instruction"]
    print(f"# Results: {machine['machine']}\n\nWritten by `{machine['command']}`; "
          "[docs/performance.md](../../docs/performance.md) explains the words.\n")
    print(f"- Processor: {machine['cpu']}, {machine['num_cpus']} cores, {machine['mhz_per_cpu']} MHz\n"
          f"- Caches: {', '.join(caches)}\n- Compiler: {machine['compiler']}, preset `bench`\n"
          "- Figures: medians of processor time")
    for table in tables:
        print(f"\n## {table.title}\n\n{table.note}\n\n" + "\n".join(table.lines))


def refresh_quotes(document, tables):
    lines_of = {table.title: "".join(line + "\n" for line in table.lines) for table in tables}

    def renewed(quote):
        if quote[2] not in lines_of:
            raise ValueError(f"{document}: quotes {quote[2]}: no such table")
        return quote[1] + lines_of[quote[2]]

    text = document.read_text(encoding="utf-8")
    quotes = r"(<!-- benchmarks/table\.py: (.*) -->\n)(?:\|.*\n)*"
    document.write_text(re.sub(quotes, renewed, text), encoding="utf-8")


def main():
    if not 2 <= len(sys.argv) <= 3:
        print("table.py: expected the JSON file of a run of tamoBenchmarks, and at most a document", file=sys.stderr)
        return 2
    try:
        run = Run(sys.argv[1])
        tables = tables_of(run)
        if len(sys.argv) == 2:
            print_page(run, tables)
        else:
            refresh_quotes(Path(sys.argv[2]), tables)
    except (OSError, ValueError) as error:
        print(f"table.py: {error}", file=sys.stderr)
        return 1
    except KeyError as error:
        print(f"{sys.argv[1]}: expected the file that scripts/bench makes: {error} is missing", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
