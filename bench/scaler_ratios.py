#!/usr/bin/python3
"""Runs the scaler's benchmark and Pillow in turn and prints a Markdown table of both.

    bench/scaler_ratios.py build/release/bin/bench_scaler [--before PROGRAM] [--rounds N]

Every number is the minimum of the rounds, in milliseconds: what others do on the machine only adds
to it. Each round measures all columns of a row within seconds, so that the ratios hold on a machine
whose speed changes. The second PROGRAM is the bench_scaler of an older version, for columns of its
own. Needs python3-pil.
"""

import argparse
import json
import os
import subprocess
import sys
import time

from PIL import Image

ROWS = [
    ((3840, 2160), (1920, 1080)),
    ((3840, 2160), (300, 168)),
    ((3840, 2160), (3456, 1944)),
    ((100, 100), (600, 600)),
    ((7680, 4320), (3840, 2160)),
    ((15360, 8640), (7680, 4320)),
]


def pillow_milliseconds(image, size):
    start = time.perf_counter()
    image.resize(size, Image.LANCZOS)
    return (time.perf_counter() - start) * 1000


def benchmark_milliseconds(program, name, columns):
    report = subprocess.run(
        [program, f"--benchmark_filter=^{name}/({columns})/", "--benchmark_format=json",
         "--benchmark_min_time=0.02"],
        check=True, capture_output=True, text=True).stdout
    return {entry["name"].split("/")[1]: entry["real_time"]
            for entry in json.loads(report)["benchmarks"]}


def measure(options, source, result):
    """The minima of each column of one row."""
    name = "{}x{}_to_{}x{}".format(*source, *result)
    noise = Image.frombytes("RGBA", source, os.urandom(4 * source[0] * source[1]))
    opaque = noise.convert("RGB")
    times = {}
    for _ in range(options.rounds):
        sample = benchmark_milliseconds(options.program, name, ".*")
        if options.before:
            before = benchmark_milliseconds(options.before, name, "(alpha|opaque).*")
            sample.update({"before_" + column: value for column, value in before.items()})
        sample["pillow_alpha"] = pillow_milliseconds(noise, result)
        sample["pillow_opaque"] = pillow_milliseconds(opaque, result)
        for column, value in sample.items():
            times.setdefault(column, []).append(value)
    return {column: min(values) for column, values in times.items()}


def digits(value):
    return f"{value:.2f}" if value < 10 else f"{value:.1f}"


def print_row(*cells):
    print("| " + " | ".join(cells) + " |")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--before")
    parser.add_argument("--rounds", type=int, default=7)
    options = parser.parse_args()
    before = ["before", "before, one core"] if options.before else []
    heads = ["memcpy", *before, "scaler", "one core", "Qt smooth", "Pillow LANCZOS",
             "one core / scaler", "Pillow / scaler", "scaler / memcpy"]
    print_row("picture", "", *heads)
    print_row("---", "---", *["---:"] * len(heads))
    for source, result in ROWS:
        minima = measure(options, source, result)
        for kind in ("alpha", "opaque"):
            ours, one = minima[kind], minima[kind + "_one_core"]
            pillow, copy = minima["pillow_" + kind], minima["copy"]
            older = ["before_" + kind, f"before_{kind}_one_core"] if options.before else []
            print_row(
                "{} x {} to {} x {}".format(*source, *result), kind, digits(copy),
                *[digits(minima[column]) for column in older], digits(ours), digits(one),
                digits(minima["qt_" + kind]), digits(pillow), f"{one / ours:.1f}",
                f"{pillow / ours:.1f}", f"{ours / copy:.1f}")
        sys.stdout.flush()


if __name__ == "__main__":
    main()
