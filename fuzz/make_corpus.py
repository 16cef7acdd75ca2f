#!/usr/bin/env python3
"""Writes the fuzzer's seed corpus: one input per sample call line of tests/calls/*.calls, plus one plain
input for every export that has no sample yet, in the input layout that fuzz/fuzz_exports.cpp reads.

usage: make_corpus.py SOURCE_DIR OUT_DIR

The argument kinds come from the export list itself (tools/gen_exports.py reads it), so a new export gets
its seed without any change here. A sample line is written as the command-line tool takes it: the name,
then every typed argument (dates as M/D/YYYY or YYYY-MM-DD, arrays as comma-separated lists); outputs,
err_code and the count of an input array are not typed, the capacity of an output array is; [] is an empty
list, and a 1-based table is typed from its element 1.
"""
import pathlib
import re
import struct
import sys

MAX_COUNT = 64
INPUT_ARRAYS = {"i32[]", "f64[]", "io_i32[]", "io_f64[]"}
ARRAYS = INPUT_ARRAYS | {"out_i32[]", "out_f64[]", "out_chr[]"}
UNTYPED = {"out_i32", "out_f64", "out_date", "err", "out_i32[]", "out_f64[]", "out_chr[]"}

# Tags of the scalar encodings (see Input::read_i32, read_f64, read_date in fuzz_exports.cpp).
I32_LITERAL, F64_LITERAL, DATE_LITERAL = 0, 0, 0
I32_ONE, F64_SMALL_INT, F64_HUNDREDTHS, DATE_VALID = 4, 9, 10, 2


class SampleError(Exception):
    pass


def load_entries(source):
    sys.path.insert(0, str(source / "tools"))
    import gen_exports  # noqa: E402  (the one reader of the export list)
    return gen_exports.read_entries(source / "exports")


def derived_counts(entry):
    """Indexes of count arguments that the tool takes from an input list's length."""
    return {a["count_index"] for a in entry["args"] if a["kind"] in INPUT_ARRAYS}


def all_counts(entry):
    return {a["count_index"] for a in entry["args"] if a["kind"] in ARRAYS}


def parse_date(text):
    m = re.fullmatch(r"(-?\d+)/(-?\d+)/(-?\d+)", text)
    if m:
        return int(m[1]), int(m[2]), int(m[3])
    m = re.fullmatch(r"(\d{4})-(\d{1,2})-(\d{1,2})", text)
    if m:
        return int(m[2]), int(m[3]), int(m[1])
    raise SampleError(f"bad date '{text}'")


def parse_list(text, convert):
    if text == "[]":
        return []
    return [convert(x) for x in text.split(",")]


def encode_i32(v):
    return bytes([I32_LITERAL]) + struct.pack("<i", v)


def encode_f64(v):
    return bytes([F64_LITERAL]) + struct.pack("<d", v)


def encode_date(m, d, y):
    return bytes([DATE_LITERAL]) + struct.pack("<iii", m, d, y)


def encode_count(n):
    return bytes([max(-MAX_COUNT, min(MAX_COUNT, n)) & 0xFF])


def header(name):
    return bytes([len(name)]) + name.encode()


def encode_sample(entry, tokens):
    """The fuzz input that repeats one sample call."""
    args = entry["args"]
    derived = derived_counts(entry)
    counts = all_counts(entry)
    typed = [i for i, a in enumerate(args) if a["kind"] not in UNTYPED and i not in derived]
    if len(tokens) != len(typed):
        raise SampleError(f"{entry['name']}: {len(tokens)} arguments typed, {len(typed)} expected")
    given = dict(zip(typed, tokens))
    count_value, lists = {}, {}
    for i, a in enumerate(args):
        if a["kind"] in INPUT_ARRAYS:
            convert = float if a["kind"].endswith("f64[]") else int
            values = parse_list(given[i], convert)
            count_value[a["count_index"]] = len(values)
            lists[i] = [convert(0)] * a["offset"] + values  # a 1-based table is typed from element 1
    out = bytearray(header(entry["name"]))
    for i, a in enumerate(args):
        kind = a["kind"]
        if i in counts:
            out += encode_count(count_value[i] if i in derived else int(given[i]))
        elif a["name"] == "validate":
            out += bytes([int(given[i]) % 3 if int(given[i]) >= 0 else 2])
        elif kind in ("i32", "io_i32"):
            out += encode_i32(int(given[i]))
        elif kind in ("f64", "io_f64"):
            out += encode_f64(float(given[i]))
        elif kind in ("date", "io_date"):
            out += encode_date(*parse_date(given[i]))
    for i, a in enumerate(args):
        if i in lists:
            n = max(0, min(MAX_COUNT, count_value[a["count_index"]]) + a["offset"])
            encode = encode_f64 if a["kind"].endswith("f64[]") else encode_i32
            for v in lists[i][:n]:
                out += encode(v)
    return bytes(out)


def encode_plain(entry):
    """A harmless call for an export without a sample: ones, small rates, valid dates, three elements."""
    args = entry["args"]
    counts = all_counts(entry)
    out = bytearray(header(entry["name"]))
    for i, a in enumerate(args):
        kind = a["kind"]
        if i in counts:
            out += encode_count(3)
        elif a["name"] == "validate":
            out += bytes([1])
        elif kind in ("i32", "io_i32"):
            out += bytes([I32_ONE])
        elif kind in ("f64", "io_f64"):
            out += bytes([F64_HUNDREDTHS]) + struct.pack("<h", 500)
        elif kind in ("date", "io_date"):
            out += bytes([DATE_VALID, 5, 14]) + struct.pack("<H", 200 + 7 * i)
    for a in args:
        if a["kind"] in INPUT_ARRAYS:
            element = bytes([I32_ONE]) if a["kind"].endswith("i32[]") else bytes([F64_SMALL_INT, 2])
            out += element * (3 + a["offset"])
    return bytes(out)


def sample_lines(source):
    for path in sorted((source / "tests" / "calls").glob("*.calls")):
        for lineno, raw in enumerate(path.read_text().splitlines(), 1):
            line = raw.split("#", 1)[0].split("=>", 1)[0].strip()  # the call, without its expected output
            if line:
                yield f"{path.name}:{lineno}", line.split()


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: make_corpus.py SOURCE_DIR OUT_DIR")
    source, dest = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    dest.mkdir(parents=True, exist_ok=True)
    entries = {e["name"]: e for e in load_entries(source)}
    seeded, written = set(), 0
    for where, words in sample_lines(source):
        entry = entries.get(words[0])
        if entry is None:
            print(f"{where}: no export '{words[0]}', line skipped", file=sys.stderr)
            continue
        try:
            data = encode_sample(entry, words[1:])
        except (SampleError, ValueError, KeyError) as err:
            print(f"{where}: {err}, line skipped", file=sys.stderr)
            continue
        stem, lineno = where.split(".calls:")
        (dest / f"{entry['name']}-{stem}-{lineno}").write_bytes(data)
        seeded.add(entry["name"])
        written += 1
    for name, entry in entries.items():
        if name not in seeded:
            (dest / f"{name}-plain").write_bytes(encode_plain(entry))
            written += 1
    print(f"{written} seeds for {len(entries)} exports ({len(entries) - len(seeded)} without a sample) in {dest}")


if __name__ == "__main__":
    main()
