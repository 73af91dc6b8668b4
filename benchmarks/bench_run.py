# SPDX-FileCopyrightText: The TAMO authors
# SPDX-License-Identifier: BSD-3-Clause
"""Reads one run of tamoBenchmarks; the benchmarks' names are what/pattern/side/layout/step."""

import json
from pathlib import Path

AXES = ("x", "y", "z")
LARGEST = 512


class Run:
    """The medians of one run, by what was measured."""

    def __init__(self, path):
        content = json.loads(Path(path).read_text(encoding="utf-8"))
        self.context = content["context"]
        medians = [b for b in content["benchmarks"] if b.get("aggregate_name") == "median"]
        self.medians = {self.key_of(b): b for b in medians}

    @staticmethod
    def key_of(benchmark):
        # Google Benchmark appends how it measured, as parts with a colon.
        return tuple(part for part in benchmark["run_name"].split("/") if ":" not in part and part != "process_time")

    def has(self, *key):
        return tuple(map(str, key)) in self.medians

    def time(self, *key):
        """Microseconds of processor time, on which other programs of the machine have the least influence."""
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

    def nanoseconds_per_sample(self, what, key):
        return 1000 * self.time(what, *key) / self.counter("samples", what, *key)


def name_of_volume(key):
    pattern, side, axis, step = key
    return f"{pattern}, {side}³, {axis}" + (f", step {step}" if str(step) != "1" else "")


def name_of_slices(key):
    return f"{key[0]}, {key[1]} x {key[1]} x {key[2].rsplit('_', 1)[1]}"


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
    return run.nanoseconds_per_sample(what, key) / run.nanoseconds_per_sample(what, contiguous)


def name_of_layout(key):
    name = key[2].replace("_", " ")
    return f"{name}, step {key[3]}" if key[3] != "1" else name
