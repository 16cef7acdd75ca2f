#!/usr/bin/env python3
"""Runs every call of tests/calls/*.calls through `orvel batch` and checks the rows that carry an expectation.

A row is a call in the orvel call syntax, optionally followed by `=>` and what `orvel batch` must print for
it after the function's name: the result, each output, and err_code, comma-separated.

    ok_cpn_freq 3 => 0,600              result 0, err_code 600
    d_trunc_rnd 2.5 0 1 => 3,           result 3, no err_code argument
    bond_ai 4/15/2020 7/1/2025 0/0/0 0/0/0 8 2 0 2 1          a sample call without an expectation

usage: check_calls.py [--dump FILE] [--against FILE] [--parse-only] CALLS_DIR COMMAND...
  COMMAND is the batch command, e.g. `build/orvel batch` or `wine64 build-win64/orvel.exe batch`.
  --dump FILE writes the batch output (one line a call, in file and line order) for a byte-for-byte
  comparison between two builds.
  --against FILE compares the output with another build's dump, line by line and byte for byte.
  --parse-only checks that every call parses but not the expectations: for `batch --exact`, whose 17
  significant digits are not the 15 that the expectations are written with.
Exits 1 listing every row whose output differs from its expectation (or from the other dump), or when the
command fails to run.
"""
import argparse
import pathlib
import subprocess
import sys


def read_rows(folder):
    """(where, call, expected or None) for every call line of every .calls file, in file and line order."""
    rows = []
    for path in sorted(pathlib.Path(folder).glob("*.calls")):
        for number, line in enumerate(path.read_text().splitlines(), 1):
            text = line.split("#", 1)[0]
            call, arrow, expected = text.partition("=>")
            call = call.strip()
            if not call:
                continue
            rows.append((f"{path.name}:{number}", call, expected.strip() if arrow else None))
    return rows


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--dump")
    parser.add_argument("--against")
    parser.add_argument("--parse-only", action="store_true")
    parser.add_argument("calls_dir")
    parser.add_argument("command", nargs=argparse.REMAINDER)
    args = parser.parse_args()
    if not args.command:
        parser.error("the batch command is missing")

    rows = read_rows(args.calls_dir)
    batch_input = "".join(call + "\n" for _, call, _ in rows)
    run = subprocess.run(args.command, input=batch_input, capture_output=True, text=True)
    # Windows' runtime may write CR LF; the comparison is on the text of each line.
    lines = [line.rstrip("\r") for line in run.stdout.splitlines()]
    if args.dump:
        pathlib.Path(args.dump).write_text("".join(line + "\n" for line in lines))
    if len(lines) != len(rows):
        print(f"{' '.join(args.command)}: {len(lines)} output lines for {len(rows)} calls (exit {run.returncode})")
        print(run.stderr[-2000:])
        return 1

    wrong = 0
    for (where, call, expected), got in zip(rows, lines):
        if got.startswith("error,"):
            print(f"{where}: {call}\n    does not parse: {got}")
            wrong += 1
            continue
        if expected is None or args.parse_only:
            continue
        name = call.split()[0]
        if got != f"{name},{expected}":
            print(f"{where}: {call}\n    expected {name},{expected}\n    got      {got}")
            wrong += 1
    checked = 0 if args.parse_only else sum(1 for _, _, e in rows if e is not None)
    print(f"{len(rows)} calls, {checked} with an expectation, {wrong} wrong")
    differ = 0
    if args.against:
        name_of_other = pathlib.Path(args.against).name
        other = pathlib.Path(args.against).read_text().splitlines()
        other += ["(no line)"] * (len(lines) - len(other))
        for (where, call, _), got, theirs in zip(rows, lines, other):
            if got != theirs:
                print(f"{where}: {call}\n    {name_of_other}: {theirs}\n    here: {got}")
                differ += 1
        if len(other) > len(lines):
            print(f"{args.against}: {len(other) - len(lines)} more lines than calls")
            differ += 1
        print(f"{differ} of {len(rows)} calls differ from {args.against}")
    return 1 if wrong or differ else 0


if __name__ == "__main__":
    sys.exit(main())
