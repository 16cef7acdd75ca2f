#!/usr/bin/env python3
"""The export list's shapes: a member takes its shape's arguments (option slots renamed, shapes spliced),
and every malformed use is refused with the line it is on."""
import pathlib
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import gen_exports  # noqa: E402

SHAPE = "@shape s_ai f64 settle:date cpn:f64 opt1:i32 opt2:i32 out:out_f64 validate:i32 err_code:err\n"
CASES = [  # list text, expected (name, args) of the last entry or the start of the error
    ("a_ai = s_ai\n", ("a_ai", "settle cpn opt1 opt2 out validate err_code")),
    ("a_ai = s_ai opt2:odd_day_type\n", ("a_ai", "settle cpn opt1 odd_day_type out validate err_code")),
    ("@shape u_ai f64 method:i32 ...s_ai\nu = u_ai\n", ("u", "method settle cpn opt1 opt2 out validate err_code")),
    ("a = nope\n", "x.list:2: unknown shape 'nope'"),
    ("a = s_ai cpn:rate\n", "x.list:2: bad rename 'cpn:rate'"),
    ("a = s_ai opt9:x\n", "x.list:2: shape s_ai has no option slot opt9"),
    ("a = s_ai opt1:cpn\n", "x.list:2: repeated argument name"),
    ("@shape u f64 ...nope\n", "x.list:2: unknown shape 'nope'"),
    ("@shape s_ai f64 err_code:err\n", "x.list:2: shape s_ai already declared"),
]
failed = 0
for text, expected in CASES:
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "x.list").write_text(SHAPE + text)
        try:
            e = gen_exports.read_entries(pathlib.Path(folder))[-1]
            got = (e["name"], " ".join(a["name"] for a in e["args"]))
            ok = got == expected and e["result"] == "f64"
        except gen_exports.ListError as err:
            got = str(err)
            ok = isinstance(expected, str) and got.startswith(expected)
    if not ok:
        failed += 1
        print(f"FAIL {text!r}: expected {expected!r}, got {got!r}")
sys.exit(1 if failed else 0)
