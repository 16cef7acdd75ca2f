#!/usr/bin/env python3
"""The orvel command end to end: exit statuses, reports, usage errors, list and batch. What each export
prints is checked row by row in tests/calls (tools/check_calls.py)."""
import pathlib
import subprocess
import sys

failures = []


def run(*args, stdin=None):
    p = subprocess.run([sys.argv[1], *args], input=stdin, capture_output=True, text=True, timeout=60)
    return p.returncode, p.stdout, p.stderr


def check(what, condition, detail=""):
    if not condition:
        failures.append(f"{what}: {detail}")


# (arguments, exit status, text the output must contain): 0 success, 1 err_code set, 2 a usage error.
CALLS = [
    ("call ZEBA_vers", 0, "major = 1\nminor = 32\nrel_month = 3\nrel_day = 19\nrel_year = 97\n"
                          "spare1 = 0\nspare2 = 0\nspare3 = 0\nspare4 = 0\n"),
    ("call rslt_fix_plc 3 2 5.123456", 0, "rslt_fix_plc = 5.123\nerr_code = 0 (no error)\n"),
    ("call rslt_fix_plc 9 2 1.5", 1, "rslt_fix_plc = 1.5\nerr_code = 300 (security type or method not known)\n"),
    ("call err_2_text 2171 5", 0, "err_2_text = 44\ntext = sett\n"),
    ("call julian_2_MDY 2451545", 0, "julian_2_MDY = 2000\ndate = 1/1/2000\n"),
    ("call no_such_fn", 2, "unknown function 'no_such_fn'"),
    ("call d_trunc_rnd abc 3 1", 2, "argument 'num' of d_trunc_rnd: expected a number, got 'abc'"),
    ("call", 2, "name a function"),
    ("frobnicate", 2, "unknown command 'frobnicate'"),
    ("--help", 0, "orvel call d_trunc_rnd 1.23456 3 1"),
    ("", 2, "usage: orvel list"),
    ("call days_b_MDYs 1/15/2024 7/15/2024 ACT_360 1", 0, "days_b_MDYs = 182\n"),        # named codes,
    ("call days_b_MDYs 1/15/2024 7/15/2024 ORVEL_DC_30E_360 1", 0, "days_b_MDYs = 180\n"),  # with the prefix
    ("call get_sec_dflt UKGB -1 -1 -1 -1 -1 -1 -1 -1 -1 -1", 0, "get_sec_dflt = 410\nday_type = 12\n"),
    ("call ok_cpn_freq QUARTERLY", 0, "ok_cpn_freq = 1\n"),
    ("call ok_cpn_freq WEEKLY", 2, "expected an integer (32-bit) or a named code"),
]
for args, status, text in CALLS:
    code, out, err = run(*args.split()) if args else run()
    check(args, code == status and text in (out if status < 2 else err), f"exit {code}, stdout {out!r}, stderr {err!r}")

# list: one line per export of exports/*.list as the generator reads it (members on a shape included).
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import gen_exports  # noqa: E402


def listed(a):
    kind = a["kind"]
    if kind.endswith("[]"):
        kind = kind[:-2] + f"[{a['count']}{'+1' if a['offset'] else ''}]"
    return f"{a['name']}:{kind}"


entries = [" ".join([e["name"], e["result"]] + [listed(a) for a in e["args"]])
           for e in gen_exports.read_entries(pathlib.Path(__file__).resolve().parents[2] / "exports")]
out, narrowed = run("list")[1].splitlines(), run("list", "ok_")[1].splitlines()
check("list", sorted(entries) == sorted(out), set(entries) ^ set(out))
check("list ok_", narrowed == [l for l in out if l.startswith("ok_")], narrowed)

# batch: one CSV line per call, comments and blank lines skipped, a bad line reported and the batch goes on.
batch_in = ("# a comment\n\n  d_trunc_rnd\t1.23456  3 1   # half up\r\nno_such_fn 1\nrslt_fix_plc 9 2 1.5\n"
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
check("batch --exact", code == 0 and out == "d_trunc_rnd,0.10000000000000001,\nrslt_fix_plc,1.5,300\n", out)
code, _, err = run("batch", "--fast")
check("batch --fast", code == 2 and "no argument but --exact and --header" in err, err)
# --header: a header row before the first call of each function, named by its outputs.
code, out, _ = run("batch", "--header", stdin="ok_MDY 2/29/1900 0\nZEBA_vers\nZEBA_vers\n")
check("batch --header", code == 0 and out.splitlines() == [
    "function,result,err_code", "ok_MDY,0,1300",
    "function,result,major,minor,rel_month,rel_day,rel_year,spare1,spare2,spare3,spare4,err_code",
    "ZEBA_vers,,1,32,3,19,97,0,0,0,0,", "ZEBA_vers,,1,32,3,19,97,0,0,0,0,"], out)

print("".join(f"FAIL {f}\n" for f in failures), end="")
sys.exit(1 if failures else 0)
