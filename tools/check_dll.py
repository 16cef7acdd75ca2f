#!/usr/bin/env python3
"""Checks ORVEL.dll (or ORVEL64.dll) with the cross objdump: every listed export under its plain and its
decorated name at one address (ORVEL64.dll: its plain name; x86-64 has no decoration) and no other export, system DLLs only among the imports, and DllMain linked (it is the only code
that imports DisableThreadLibraryCalls).

usage: check_dll.py OBJDUMP ORVEL.dll orvel.def export_names.txt
       check_dll.py OBJDUMP ORVEL64.dll orvel64.def export_names.txt
"""
import re
import subprocess
import sys

# DLLs that every Windows installation has; the C and C++ runtimes of the compiler must be linked in.
SYSTEM_DLLS = {"kernel32.dll", "msvcrt.dll", "ntdll.dll", "user32.dll", "advapi32.dll", "ucrtbase.dll"}


def read_dump(objdump, dll):
    return subprocess.run([objdump, "-p", dll], check=True, capture_output=True, text=True).stdout


def exports_by_name(dump):
    """name -> address, from the export address table and the name table."""
    addresses, names, section = {}, {}, None
    for line in dump.splitlines():
        if line.startswith("Export Address Table --"):
            section = "eat"
        elif line.startswith("[Ordinal/Name Pointer] Table"):
            section = "names"
        elif not line.strip() or not line.startswith("\t"):
            if section == "names":
                section = None
            continue
        m = re.match(r"\s*\[\s*(\d+)\]\s+\+base\[\s*\d+\]\s+([0-9a-fA-F]+)", line)
        if section == "eat" and m:
            addresses[int(m.group(1))] = m.group(2)
        m = re.match(r"\s*\[\s*(\d+)\]\s+(\S+)$", line)
        if section == "names" and m:
            names[m.group(2)] = int(m.group(1))
    return {name: addresses.get(index) for name, index in names.items()}


def imports(dump):
    """DLL name -> imported function names."""
    result, current = {}, None
    for line in dump.splitlines():
        m = re.match(r"\s*DLL Name: (\S+)", line)
        if m:
            current = m.group(1)
            result[current] = []
            continue
        m = re.match(r"\s*[0-9a-f]+\s+\d+\s+(\S+)", line)
        if current and m:
            result[current].append(m.group(1))
        elif current and not line.strip():
            current = None
    return result


def decorated_names(def_file):
    """plain name -> decorated name, from the `_name@N = name@N` lines of the module definition."""
    pairs = {}
    for line in open(def_file):
        m = re.match(r"\s*_(\w+)@(\d+)\s*=\s*(\w+)@(\d+)\s*$", line)
        if m and m.group(1) == m.group(3) and m.group(2) == m.group(4):
            pairs[m.group(1)] = f"_{m.group(1)}@{m.group(2)}"
    return pairs


def main():
    objdump, dll, def_file, names_file = sys.argv[1:5]
    dump = read_dump(objdump, dll)
    exported = exports_by_name(dump)
    decorated = decorated_names(def_file)
    listed = open(names_file).read().split()
    plain_only = "LIBRARY ORVEL64" in open(def_file).read()
    module = "ORVEL64.dll" if plain_only else "ORVEL.dll"
    problems = []
    expected = set()
    for name in listed:
        if plain_only:
            expected.add(name)
            if name not in exported:
                problems.append(f"{name}: not exported")
            continue
        dec = decorated.get(name)
        if dec is None:
            problems.append(f"{name}: no decorated name in the module definition")
            continue
        expected |= {name, dec}
        missing = [n for n in (name, dec) if n not in exported]
        if missing:
            problems.append(f"{name}: {' and '.join(missing)} not exported")
        elif exported[name] != exported[dec]:
            problems.append(f"{name}: {name} at {exported[name]} but {dec} at {exported[dec]}")
    for extra in sorted(set(exported) - expected):
        problems.append(f"{extra}: exported but not listed")
    imported = imports(dump)
    for name in sorted(imported):
        if name.lower() not in SYSTEM_DLLS:
            problems.append(f"imports {name}, which is not a system DLL (link the runtime statically)")
    if not any("DisableThreadLibraryCalls" in funcs for funcs in imported.values()):
        problems.append("DisableThreadLibraryCalls not imported: DllMain is not linked")
    for p in problems:
        print(f"{module}: {p}")
    print(f"{module}: {len(listed)} listed exports, {len(exported)} names exported, imports {', '.join(sorted(imported))}")
    sys.exit(1 if problems else 0)


if __name__ == "__main__":
    main()
