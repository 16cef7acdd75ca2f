#!/usr/bin/env python3
"""The orvel command end to end: results, exit statuses, usage errors, list and batch."""
import pathlib
import subprocess
import sys
import time

ORVEL = sys.argv[1]
failures = []


def run(*args, stdin=None):
    p = subprocess.run([ORVEL, *args], input=stdin, capture_output=True, text=True, timeout=60)
    return p.returncode, p.stdout, p.stderr


def check(what, condition, detail=""):
    if not condition:
        failures.append(f"{what}: {detail}")


# (arguments, exit status, text the output must contain)
CALLS = [
    (["call", "ZEBA_vers"], 0,
     "major = 1\nminor = 32\nrel_month = 3\nrel_day = 19\nrel_year = 97\n"),
    (["call", "d_trunc_rnd", "1.23456", "3", "1"], 0, "d_trunc_rnd = 1.235\n"),
    (["call", "d_trunc_rnd", "1.23456", "3", "0"], 0, "d_trunc_rnd = 1.234\n"),
    (["call", "d_trunc_rnd", "-1.25", "1", "1"], 0, "d_trunc_rnd = -1.3\n"),
    (["call", "rslt_fix_plc", "9", "2", "1.5"], 1, "err_code = 300 (security type or method not known)"),
    (["call", "rslt_fix_plc", "1", "6", "1.5"], 1, "err_code = 200 ("),
    (["call", "rslt_fix_plc", "3", "2", "5.123456"], 0, "rslt_fix_plc = 5.123\nerr_code = 0 (no error)"),
    (["call", "dec_2_frac", "99.5", "32"], 0, "dec_2_frac = 99.16\n"),
    (["call", "frac_2_dec", "99.5", "8"], 0, "frac_2_dec = 99.625\n"),
    (["call", "ok_MDY", "0/0/1900", "0"], 0, "ok_MDY = 1\n"),
    (["call", "ok_MDY", "2400-02-29", "0"], 1, "err_code = 1100"),
    (["call", "err_2_text", "1207", "200"], 0, "text = month outside 1..12 (settlement date)"),
]
for args, status, text in CALLS:
    code, out, err = run(*args)
    check(" ".join(args), code == status and text in out, f"exit {code}, stdout {out!r}, stderr {err!r}")

# Usage errors: status 2 and a message naming the argument and what was expected.
USAGE = [
    (["call", "no_such_fn"], "unknown function 'no_such_fn'"),
    (["call", "d_trunc_rnd", "abc", "3", "1"], "argument 'num' of d_trunc_rnd: expected a number, got 'abc'"),
    (["call", "d_trunc_rnd", "1.5"], "takes 3 arguments"),
    (["call", "ok_MDY", "31.12.1999", "1"], "argument 'date' of ok_MDY: expected a date"),
    (["call"], "name a function"),
    (["frobnicate"], "unknown command 'frobnicate'"),
]
for args, text in USAGE:
    code, out, err = run(*args)
    check(" ".join(args), code == 2 and text in err and "Traceback" not in err, f"exit {code}, stderr {err!r}")

for args in ([], ["--help"]):
    code, out, err = run(*args)
    check(f"usage {args}", code == 0 and "orvel call d_trunc_rnd 1.23456 3 1" in out, f"exit {code}")

# list: one line per export as the list file has it; a prefix narrows it.
code, out, _ = run("list")
lines = out.splitlines()
check("list", code == 0 and "d_trunc_rnd f64 num:f64 places:i32 rnd:i32" in lines, out[:200])
check("list has err_2_text", "err_2_text i32 number:i32 text:out_chr[size] size:i32" in lines)
# Every entry of exports/*.list, continuation lines joined and comments dropped, is one line of orvel list.
EXPORTS = pathlib.Path(__file__).resolve().parents[2] / "exports"
entries = []
for path in EXPORTS.glob("*.list"):
    for raw in path.read_text().splitlines():
        line = raw.split("#", 1)[0].rstrip()
        if not line.strip():
            continue
        if line[0].isspace():
            entries[-1] += " " + " ".join(line.split())
        else:
            entries.append(" ".join(line.split()))
check("list equals the export list", sorted(entries) == sorted(lines),
      f"only in the list files: {sorted(set(entries) - set(lines))[:5]}, only in orvel list: {sorted(set(lines) - set(entries))[:5]}")
code, out, _ = run("list", "ok_")
check("list ok_", code == 0 and out and all(l.startswith("ok_") for l in out.splitlines()), out)

# batch: one CSV line per call, comments and blank lines skipped, a bad line reported and the batch goes on.
batch_in = ("# a comment\n\nd_trunc_rnd 1.23456 3 1\nno_such_fn 1\nrslt_fix_plc 9 2 1.5\n"
            "err_2_text 2171 100\nd_trunc_rnd 1 2\nZEBA_vers\n")
code, out, _ = run("batch", stdin=batch_in)
expected = [
    "d_trunc_rnd,1.235,",
    "error,4,\"unknown function 'no_such_fn' (orvel list shows every export)\"",
    "rslt_fix_plc,1.5,300",
    "err_2_text,44,settlement date must be before maturity date,",
    "error,7,\"d_trunc_rnd takes 3 arguments (num:f64 places:i32 rnd:i32), got 2\"",
    "ZEBA_vers,,1,32,3,19,97,0,0,0,0,",
]
check("batch", out.splitlines() == expected and code == 2, f"exit {code}\n{out}")
# --exact: 17 significant digits, enough to give back the double (0.1 is 0.1000000000000000055...).
code, out, _ = run("batch", "--exact", stdin="d_trunc_rnd 0.1 3 1\nrslt_fix_plc 9 2 1.5\n")
check("batch --exact", code == 0 and out.splitlines() == ["d_trunc_rnd,0.10000000000000001,", "rslt_fix_plc,1.5,300"], out)
code, _, err = run("batch", "--fast")
check("batch --fast", code == 2 and "no argument but --exact" in err, err)

# 100,000 calls in a batch: well under a second (printed for the record, bounded generously here).
big = "d_trunc_rnd 1.23456 3 1\nrslt_fix_plc 9 2 1.5\nok_MDY 2/29/1900 0\nerr_2_text 2171 100\n" * 25000
start = time.perf_counter()
code, out, _ = run("batch", stdin=big)
seconds = time.perf_counter() - start
check("big batch", code == 0 and out.count("\n") == 100000, f"exit {code}, {out.count(chr(10))} lines")
print(f"batch of 100000 calls: {seconds:.3f} s")

for f in failures:
    print("FAIL", f)
sys.exit(1 if failures else 0)
