#!/usr/bin/env python3
"""The generated VBA module declares every export once for 64-bit Office (ORVEL64.dll) and once for 32-bit
Office (ORVEL.dll), each with as many parameters as the C function has (a date is three Longs).
Usage: vba_module_test.py SOURCE_DIR Orvel.bas"""
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(sys.argv[1]) / "tools"))
from gen_exports import c_params, read_entries  # noqa: E402

entries = read_entries(pathlib.Path(sys.argv[1]) / "exports")
text = pathlib.Path(sys.argv[2]).read_text()
win64, win32 = text.split("#If Win64 Then", 1)[1].split("#Else", 1)
problems = []
for lib, block in (("ORVEL64.dll", win64), ("ORVEL.dll", win32.split("#End If")[0])):
    declared = {}
    for m in re.finditer(r'Public Declare PtrSafe (?:Function|Sub) (\w+) Lib "([\w.]+)" \((.*)\)', block):
        if m.group(2) != lib:
            problems.append(f"{m.group(1)}: Lib {m.group(2)} in the {lib} block")
        declared.setdefault(m.group(1), []).append(len(m.group(3).split(", ")) if m.group(3) else 0)
    for e in entries:
        counts = declared.pop(e["name"], [])
        if counts != [len(c_params(e))]:
            problems.append(f"{lib}: {e['name']} declared {counts}, expected once with {len(c_params(e))} parameters")
    problems += [f"{lib}: {name} declared but not listed" for name in declared]
print("\n".join(problems) or f"{len(entries)} exports declared once in each block with their parameter counts")
sys.exit(1 if problems else 0)
