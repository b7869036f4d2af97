#!/usr/bin/python3
"""Measures the property-list library and the converter beside their peers and prints Markdown.

    bench/plist_ratios.py build/release/bin [--slow]

Every number is a median over rounds; each round measures all columns within seconds, so that the
ratios hold on a machine whose speed changes. With --slow, libplist's writer of the binary form is
measured too, which takes a minute, and the largest documents. Needs python3.
"""

import concurrent.futures
import json
import os
import plistlib
import statistics
import subprocess
import sys
import tempfile
import time

ROUNDS = 5
RECORDS = 80_000
BENCHMARKS = ['Load', 'Save', 'Release', 'Find', 'LibplistReadMemory', 'LibplistWriteToFile',
              'LibplistReadBinaryAndWriteXmlMemory', 'PugixmlReadMemory', 'PugixmlWriteMemory']
GROWTH = [('records', [1_350, 13_500, 135_000]), ('keys', [10_000, 100_000, 1_000_000]),
          ('numbers', [100_000, 1_000_000, 10_000_000]), ('levels', [10_000, 100_000, 1_000_000]),
          ('string', [5_000_000, 50_000_000, 500_000_000]),
          ('line', [140_000, 1_400_000, 14_000_000])]
STEPS = ['load', 'search', 'copy', 'save', 'release']


def benchmark(program, name):
    """The milliseconds of a benchmark, from a process of its own that is warm: what a virtual machine
    takes to come by memory that nobody has used for a while is left out, for all alike."""
    report = subprocess.run(
        [program, '--benchmark_format=json', '--benchmark_min_time=0.7',
         '--benchmark_min_warmup_time=0.5', f'--benchmark_filter=^{name}/'],
        check=True, capture_output=True, text=True).stdout
    return json.loads(report)['benchmarks'][0]['real_time']


def convert(plutil, form, file):
    """The milliseconds of a conversion, and the peak memory of the converter in MB. What the disk
    still has to write for others is waited for first, since the converter waits for the disk."""
    os.sync()
    begin = time.perf_counter()
    process = subprocess.Popen([plutil, '-convert', form, file])
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise RuntimeError('the converter failed')
    return 1000 * (time.perf_counter() - begin), usage.ru_maxrss * 1024 / 1e6


def python_times(file, result):
    """The milliseconds of plistlib's reading of a file and of writing it again."""
    with open(file, 'rb') as stream, open(result, 'wb') as output:
        begin = time.perf_counter()
        document = plistlib.load(stream)
        middle = time.perf_counter()
        plistlib.dump(document, output)
    return 1000 * (middle - begin), 1000 * (time.perf_counter() - middle)


def in_own_process(work, *arguments):
    """A child's peak memory counts what its parent has when it is started, so this one stays small."""
    with concurrent.futures.ProcessPoolExecutor(max_workers=1) as pool:
        return pool.submit(work, *arguments).result()


def one_round(folder, scratch):
    """All numbers of one round: times in ms and memory in MB."""
    file = os.path.join(scratch, 'records.plist')
    subprocess.run([os.path.join(folder, 'bench_scale'), 'make', 'records', str(RECORDS), file],
                   check=True)
    numbers = {'MB': os.path.getsize(file) / 1e6}
    for name in BENCHMARKS:
        numbers[name] = benchmark(os.path.join(folder, 'bench_plist'), name)
    numbers['PythonRead'], numbers['PythonWrite'] = in_own_process(
        python_times, file, os.path.join(scratch, 'python.plist'))
    numbers['peak'] = scale(folder, file)['peak']
    plutil = os.path.join(folder, 'plutil')
    for name, form in (('ToBinary', 'binary1'), ('ToXml', 'xml1')):
        numbers[name], numbers[name + 'Peak'] = convert(plutil, form, file)
    return numbers


def scale(folder, file, *options):
    """What bench_scale prints of a file."""
    printed = subprocess.run([os.path.join(folder, 'bench_scale'), file, *options], check=True,
                             capture_output=True, text=True).stdout
    return {name: float(value) for name, value in (line.split() for line in printed.splitlines())}


def print_row(*cells):
    print('| ' + ' | '.join(str(cell) for cell in cells) + ' |')


def ratio(peer, own):
    return f'{peer / own:.1f}'


def print_peers(numbers):
    print(f'A document of {numbers["MB"]:.1f} MB; milliseconds.\n')
    print_row('', 'Morvantile', 'libplist', 'pugixml, no types', "Python's plistlib",
              'libplist / Morvantile')
    print_row('---', *['---:'] * 5)

    def row(name, own, libplist, pugixml='', python=''):
        shown = [f'{numbers[key]:.0f}' if key else '' for key in (own, libplist, pugixml, python)]
        print_row(name, *shown, ratio(numbers[libplist], numbers[own]) if libplist else '')

    row('read a file', 'Load', 'LibplistReadMemory', 'PugixmlReadMemory', 'PythonRead')
    row('write a file', 'Save', 'LibplistWriteToFile', 'PugixmlWriteMemory', 'PythonWrite')
    row('the converter, binary to XML', 'ToXml', 'LibplistReadBinaryAndWriteXmlMemory')
    row('the converter, XML to binary', 'ToBinary', '')
    row('a search that finds nothing', 'Find', '')
    row('release', 'Release', '')
    print(f'\nRelease / load: {numbers["Release"] / numbers["Load"]:.2f}. '
          f'Peak memory of a loaded document: {numbers["peak"] / numbers["MB"]:.1f} times its file; '
          f'of the converter, in times the larger file: {numbers["ToXmlPeak"] / numbers["MB"]:.1f} '
          f'to XML, {numbers["ToBinaryPeak"] / numbers["MB"]:.1f} to binary.\n')


def print_growth(folder, scratch, slow):
    print_row('document', 'count', 'MB', *(step + ', ms' for step in STEPS), 'load, ns a byte')
    print_row('---', *['---:'] * (len(STEPS) + 3))
    for shape, counts in GROWTH:
        for count in counts if slow else counts[:2]:
            file = os.path.join(scratch, 'document.plist')
            subprocess.run([os.path.join(folder, 'bench_scale'), 'make', shape, str(count), file],
                           check=True)
            size = os.path.getsize(file)
            # The indentation of a million levels would be half a terabyte.
            times = scale(folder, file, *(['unsaved'] if shape == 'levels' else []))
            print_row(shape, count, f'{size / 1e6:.1f}',
                      *(f'{times[step]:.0f}' if step in times else '' for step in STEPS),
                      f'{1e6 * times["load"] / size:.1f}')
            sys.stdout.flush()
    print()


def main():
    folder = os.path.abspath(sys.argv[1])
    slow = '--slow' in sys.argv[2:]
    with tempfile.TemporaryDirectory() as scratch:
        rounds = [one_round(folder, scratch) for _ in range(ROUNDS)]
        medians = {name: statistics.median(numbers[name] for numbers in rounds)
                   for name in rounds[0]}
        print_peers(medians)
        print_growth(folder, scratch, slow)
    if slow:
        report = subprocess.run(
            [os.path.join(folder, 'bench_plist'), '--benchmark_filter=LibplistWriteBinaryMemory',
             '--benchmark_format=json'], check=True, capture_output=True, text=True,
            env={**os.environ, 'MORVANTILE_BENCH_SLOW': '1'}).stdout
        slow_writer = json.loads(report)['benchmarks'][0]['real_time']
        print(f"libplist's writer of the binary form takes {slow_writer:.0f} ms, "
              f'{slow_writer / medians["ToBinary"]:.0f} times the converter.')


if __name__ == '__main__':
    main()
