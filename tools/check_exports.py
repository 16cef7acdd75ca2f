#!/usr/bin/env python3
"""The shared library defines exactly the listed names as dynamic symbols, every one under the version node
ORVEL_1 of the version script, and carries the SONAME liborvel.so.1."""
import subprocess
import sys

lib, names_file = sys.argv[1], sys.argv[2]
listed = set(open(names_file).read().split())
out = subprocess.run(["nm", "-D", "--defined-only", lib], check=True, capture_output=True, text=True).stdout
exported, unversioned = set(), []
for line in out.splitlines():
    parts = line.split()
    if len(parts) >= 3 and parts[1] in "TtWiDdBbRrVv" and parts[1].isupper():
        name, _, version = parts[2].partition("@")
        if name != "ORVEL_1":
            exported.add(name)
            if version.lstrip("@") != "ORVEL_1":
                unversioned.append(name)
missing, extra = sorted(listed - exported), sorted(exported - listed)
for n in missing:
    print(f"listed but not exported: {n}")
for n in extra:
    print(f"exported but not listed: {n}")
for n in unversioned:
    print(f"exported without the version ORVEL_1: {n}")
dynamic = subprocess.run(["objdump", "-p", lib], check=True, capture_output=True, text=True).stdout
soname = [l.split()[1] for l in dynamic.splitlines() if l.split()[:1] == ["SONAME"]]
if soname != ["liborvel.so.1"]:
    print(f"SONAME is {soname or 'missing'}, expected liborvel.so.1")
print(f"{len(listed)} listed, {len(exported)} exported, SONAME {soname}")
sys.exit(1 if missing or extra or unversioned or soname != ["liborvel.so.1"] else 0)
