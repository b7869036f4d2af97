#!/usr/bin/python3
"""Runs the scaler's benchmark and Pillow in turn and prints a Markdown table of both.

    bench/scaler_ratios.py build/release/bin/bench_scaler [rounds]

Every number is the median of the rounds, in milliseconds. Each round measures all columns of a row
within seconds, so that the ratios hold on a machine whose speed changes. Needs python3-pil.
"""

import json
import os
import statistics
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


def benchmark_milliseconds(program, name):
    report = subprocess.run(
        [program, f"--benchmark_filter=^{name}/", "--benchmark_format=json",
         "--benchmark_min_time=0.1"],
        check=True, capture_output=True, text=True).stdout
    return {entry["name"].split("/")[1]: entry["real_time"]
            for entry in json.loads(report)["benchmarks"]}


def measure(program, source, result, rounds):
    """The medians of each column of one row."""
    name = "{}x{}_to_{}x{}".format(*source, *result)
    noise = Image.frombytes("RGBA", source, os.urandom(4 * source[0] * source[1]))
    opaque = noise.convert("RGB")
    times = {}
    for _ in range(rounds):
        sample = benchmark_milliseconds(program, name)
        sample["pillow_alpha"] = pillow_milliseconds(noise, result)
        sample["pillow_opaque"] = pillow_milliseconds(opaque, result)
        for column, value in sample.items():
            times.setdefault(column, []).append(value)
    return {column: statistics.median(values) for column, values in times.items()}


def digits(value):
    return f"{value:.2f}" if value < 10 else f"{value:.1f}"


def print_row(*cells):
    print("| " + " | ".join(cells) + " |")


def main():
    program = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    print_row("picture", "", "memcpy", "scaler", "one core", "Qt smooth", "Pillow LANCZOS",
              "Pillow / scaler", "Pillow / one core", "scaler / memcpy")
    print_row("---", "---", *["---:"] * 8)
    for source, result in ROWS:
        medians = measure(program, source, result, rounds)
        for kind in ("alpha", "opaque"):
            ours, one = medians[kind], medians[kind + "_one_core"]
            pillow, copy = medians["pillow_" + kind], medians["copy"]
            print_row(
                "{} x {} to {} x {}".format(*source, *result), kind, digits(copy), digits(ours),
                digits(one), digits(medians["qt_" + kind]), digits(pillow),
                f"{pillow / ours:.1f}", f"{pillow / one:.1f}", f"{ours / copy:.1f}")
        sys.stdout.flush()


if __name__ == "__main__":
    main()
