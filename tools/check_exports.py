#!/usr/bin/env python3
"""The set of dynamic symbols that the shared library defines must equal the export list."""
import subprocess
import sys

lib, names_file = sys.argv[1], sys.argv[2]
listed = set(open(names_file).read().split())
out = subprocess.run(["nm", "-D", "--defined-only", lib], check=True, capture_output=True, text=True).stdout
exported = set()
for line in out.splitlines():
    parts = line.split()
    if len(parts) >= 3 and parts[1] in "TtWiDdBbRrVv" and parts[1].isupper():
        name = parts[2].split("@")[0]
        if name != "ORVEL_1":
            exported.add(name)
missing, extra = sorted(listed - exported), sorted(exported - listed)
for n in missing:
    print(f"listed but not exported: {n}")
for n in extra:
    print(f"exported but not listed: {n}")
print(f"{len(listed)} listed, {len(exported)} exported")
sys.exit(1 if missing or extra else 0)
