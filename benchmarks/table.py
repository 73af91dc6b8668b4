#!/usr/bin/env python3
# SPDX-FileCopyrightText: The TAMO authors
# SPDX-License-Identifier: BSD-3-Clause
"""Prints the figures of one run of tamoBenchmarks as tables of ratios beside their targets; usage: table.py RESULT.json"""

import json
import sys

AXES = ("x", "y", "z")
SIDES = (64, 256, 512)
LARGEST = 512
DENSE = "gyroid"


class Run:
    """The medians of one run, by what was measured."""

    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            found = json.load(file)["benchmarks"]
        self.medians = {self.key_of(b): b for b in found if b.get("aggregate_name") == "median"}

    @staticmethod
    def key_of(benchmark):
        # Google Benchmark appends how it measured, as parts with a colon.
        return tuple(part for part in benchmark["run_name"].split("/") if ":" not in part and part != "process_time")

    def has(self, *key):
        return tuple(map(str, key)) in self.medians

    def time(self, *key):
        """Microseconds of processor time: what others do on the machine counts as little as can be."""
        return self.medians[tuple(map(str, key))]["cpu_time"]

    def counter(self, name, *key):
        return self.medians[tuple(map(str, key))][name]

    def keys(self, what):
        return [key[1:] for key in self.medians if key[0] == what]

    def ratio(self, what, whats, *where):
        return self.time(what, *where) / self.time(whats, *where)

    def times_faster(self, what, key):
        """The plain walk's time over the library's, as text; a dash where the plain walk was not measured."""
        return f"{self.ratio(what + 'Plain', what, *key):.1f}" if self.has(what + "Plain", *key) else "-"


def print_table(title, head, rows):
    print(f"\n### {title}\n")
    print("| " + " | ".join(head) + " |")
    print("|" + "|".join(["---"] + ["---:"] * (len(head) - 1)) + "|")
    for row in rows:
        print("| " + " | ".join(row) + " |")


def at_most(name, measured, limit, unit):
    return [name, f"{measured:.2f}{unit}", f"at most {limit}{unit}", "met" if measured <= limit else "missed"]


def at_least(name, measured, limit, unit):
    return [name, f"{measured:.2f}{unit}", f"at least {limit}{unit}", "met" if measured >= limit else "missed"]


def cost_of_a_cell(run, axis):
    dense = (DENSE, LARGEST, axis, 1)
    beyond = run.time("wrap", *dense) - run.time("wrap", "ball", LARGEST, axis, 1)
    return 1000 * beyond / run.counter("cells", "wrap", *dense)


def target_rows(run):
    for axis in AXES:
        ball, dense = ("ball", LARGEST, axis, 1), (DENSE, LARGEST, axis, 1)
        where = f", 512³, {axis} contiguous"
        yield at_most("`wrapGlobal`, ball" + where + ": memory passes", run.ratio("wrap", "memory", *ball), 5, "")
        yield at_least("... times faster than the plain walk", run.ratio("wrapPlain", "wrap", *ball), 12, "")
        yield at_most("`wrapGlobal`, dense" + where + ": beyond the ball, a cell", cost_of_a_cell(run, axis), 5, " ns")
        yield at_least("... times faster than the plain walk", run.ratio("wrapPlain", "wrap", *dense), 5, "")
        yield at_most("`getGLDataInfo`, ball" + where + ": memory passes", run.ratio("info", "memory", *ball), 3, "")
        yield at_least("`getGLDataInfo`, dense" + where + ": times faster than the plain count",
                       run.ratio("infoPlain", "info", *dense), 10, "")
    large = [key for key in run.keys("wrap") if int(key[1]) in SIDES and key[2] in AXES]
    slowest = max(large, key=lambda key: run.ratio("info", "wrap", *key))
    yield at_most(f"`getGLDataInfo`, 64³ to 512³: times the time of `wrapGlobal`; worst: {' '.join(slowest)}",
                  run.ratio("info", "wrap", *slowest), 1, "")
    cubes = [key for key in run.keys("wrapPlain") if key[2] in AXES]
    small = [key for key in cubes if int(key[1]) < 64]
    slowest = max(small, key=lambda key: run.ratio("info", "wrap", *key))
    yield at_most(f"... 2³ to 32³; worst: {' '.join(slowest)}", run.ratio("info", "wrap", *slowest), 1, "")
    for name, fast, plain in (("wrapGlobal", "wrap", "wrapPlain"), ("getGLDataInfo", "info", "infoPlain")):
        small = [key for key in cubes if int(key[1]) <= 64]
        slowest = min(small, key=lambda key: run.ratio(plain, fast, *key))
        yield at_least(f"`{name}`, 2³ to 64³: times faster than the plain walk; worst: {' '.join(slowest)}",
                       run.ratio(plain, fast, *slowest), 1, "")
    near = [key for key in odd_layouts(run) if bytes_apart(key) <= 3]
    far = [key for key in odd_layouts(run) if bytes_apart(key) > 3]
    for apart, keys in (("up to 3 bytes apart", near), ("4 to 8 bytes apart", far)):
        for name, what in (("wrapGlobal", "wrap"), ("getGLDataInfo", "info")):
            slowest = max(keys, key=lambda key: times_contiguous(run, what, key))
            yield at_most(f"`{name}`, samples {apart}: times contiguous; worst: {name_of_layout(slowest)}",
                          times_contiguous(run, what, slowest), 3, "")
    slowest = max(run.keys("list"), key=lambda key: run.time("list", *key))
    yield at_most(f"A list; slowest: {slowest[0]}", run.time("list", *slowest) / 1000, 5, " ms")


def scan_rows(run):
    for side in SIDES:
        for pattern in ("ball", DENSE, "balls", "brain"):
            for axis in AXES:
                key = (pattern, side, axis, 1)
                if run.has("wrap", *key):
                    yield [f"{pattern}, {side}³, {axis}", f"{100 * run.counter('share', 'wrap', *key):.1f} %",
                           f"{run.time('memory', *key) / 1000:.3f}", f"{run.ratio('read', 'memory', *key):.2f}",
                           f"{run.ratio('wrap', 'memory', *key):.2f}",
                           run.times_faster("wrap", key), f"{run.ratio('info', 'memory', *key):.2f}",
                           run.times_faster("info", key), f"{run.ratio('infoAll', 'memory', *key):.2f}"]


def collect_rows(run):
    for key in run.keys("collect"):
        if key[3] == "1":
            yield [f"{key[0]}, {key[1]}³, {key[2]}", f"{run.ratio('collect', 'wrap', *key):.1f}",
                   run.times_faster("collect", key)]


def step_rows(run):
    for key in run.keys("collect"):
        if key[3] != "1":
            yield [f"{key[0]}, {key[1]}³, {key[2]}, step {key[3]}", f"{nanoseconds_a_sample(run, 'wrap', key):.2f}",
                   run.times_faster("wrap", key), f"{nanoseconds_a_sample(run, 'info', key):.2f}",
                   run.times_faster("info", key), f"{run.ratio('collect', 'wrap', *key):.1f}",
                   run.times_faster("collect", key)]


def nanoseconds_a_sample(run, what, key):
    return 1000 * run.time(what, *key) / run.counter("samples", what, *key)


def odd_layouts(run):
    """Steps, and layouts other than the contiguous ones; flat volumes, which are small, have a table of their own."""
    steps = [("ball", str(LARGEST), axis, step) for step in "23458" for axis in AXES]
    return steps + [key for key in run.keys("info") if key[2] not in AXES and "flat" not in key[2]]


def bytes_apart(key):
    """How far apart a layout's samples are along its densest axis."""
    return int(key[2].rsplit("_", 1)[1]) if "_by_" in key[2] else int(key[3])


def times_contiguous(run, what, key):
    """The cost of a sample over that of the same volume with its densest axis contiguous and no step."""
    contiguous = (key[0], key[1], key[2][0], "1")
    return nanoseconds_a_sample(run, what, key) / nanoseconds_a_sample(run, what, contiguous)


def name_of_layout(key):
    name = key[2].replace("_", " ")
    return f"{name}, step {key[3]}" if key[3] != "1" else name


def layout_rows(run):
    contiguous = [("ball", str(side), axis, "1") for side in (LARGEST, 256) for axis in AXES]
    for key in contiguous + odd_layouts(run):
        row = [f"{name_of_layout(key)}, {key[1]}³"]
        for what in ("wrap", "info"):
            # With a step, much of what a pass over memory sums are no samples.
            passes = f"{run.ratio(what, 'memory', *key):.1f}" if key[3] == "1" else "-"
            row += [f"{nanoseconds_a_sample(run, what, key):.2f}", f"{times_contiguous(run, what, key):.1f}", passes]
        yield row


def small_rows(run):
    for key in run.keys("wrap"):
        is_cube = int(key[1]) <= 64 and key[2:] == ("x", "1")
        if (is_cube or "flat" in key[2]) and run.has("wrapPlain", *key):
            size = f"{key[1]}³" if is_cube else f"{key[1]} x {key[1]} x {key[2][-1]}"
            yield [f"{key[0]}, {size}", f"{run.time('wrap', *key):.2f}",
                   f"{run.ratio('wrapPlain', 'wrap', *key):.2f}", f"{run.time('info', *key):.2f}",
                   f"{run.ratio('infoPlain', 'info', *key):.2f}"]


def display_rows(run):
    compiled = run.time("display", "compile")
    polygons = run.counter("polygons", "display", "move")
    for what, name in (("compile", "Scan into a display list, `GLPolygonConsumer`"),
                       ("compilePrepared", "The same calls of OpenGL from a prepared array"),
                       ("move", "Scan and copies of the polygons, no OpenGL"), ("draw", "Draw the list once")):
        time = run.time("display", what)
        yield [name, f"{time / 1000:.0f}", f"{1000 * time / polygons:.0f}", f"{100 * time / compiled:.0f} %"]


def main():
    if len(sys.argv) != 2:
        print("table.py: expected one argument, the JSON file of a run of tamoBenchmarks", file=sys.stderr)
        return 2
    try:
        run = Run(sys.argv[1])
    except (OSError, ValueError, KeyError) as error:
        print(f"{sys.argv[1]}: expected the JSON file of a run of tamoBenchmarks: {error}", file=sys.stderr)
        return 1
    print_table("Targets", ("What", "Measured", "Target", ""), target_rows(run))
    print_table("Scans: memory passes, and times faster than the plain walk",
                ("Volume, contiguous axis", "Cells fetched", "Memory pass, ms", "Reading alone, passes",
                 "`wrapGlobal`, passes", "than plain", "`getGLDataInfo`, passes", "than plain",
                 "... of all cells, passes"), scan_rows(run))
    print_table("Collecting positions", ("Volume", "Times counting", "Times faster than plain"), collect_rows(run))
    print_table("Steps: `wrapGlobal`, `getGLDataInfo`, collecting positions",
                ("Volume, contiguous axis, step", "`wrapGlobal`, ns a sample", "than plain",
                 "`getGLDataInfo`, ns a sample", "than plain", "Collecting, times counting", "than plain"),
                step_rows(run))
    print_table("Other layouts and steps, ball: `wrapGlobal`, then `getGLDataInfo`",
                ("Densest axis", "ns a sample", "Times contiguous", "Memory passes",
                 "ns a sample", "Times contiguous", "Memory passes"), layout_rows(run))
    print_table("Small volumes", ("Volume", "`wrapGlobal`, µs", "Times faster than plain", "`getGLDataInfo`, µs",
                                  "Times faster than plain"), small_rows(run))
    print_table("Lists", ("System", "ms"),
                ([key[0], f"{run.time('list', *key) / 1000:.2f}"] for key in run.keys("list")))
    if run.has("display", "compile"):
        print_table("A display list of the brain, 256³", ("What", "ms", "ns a polygon", "Share"), display_rows(run))
    return 0


if __name__ == "__main__":
    sys.exit(main())
