#!/usr/bin/env python3
"""Writes the bindings of every export from the export list (exports/*.list) and the documentation blocks
of the public headers (include/orvel/*.h); nothing here repeats a signature by hand.

  python/orvel/_exports.py   the Python package's table: kinds of every argument, result, docstring
  python/orvel/__init__.py   the package itself (copied from bindings/python/orvel)
  dotnet/Orvel.cs            a C# class of P/Invoke declarations
  vba/Orvel.bas              a VBA module of Declare PtrSafe statements for 32- and 64-bit Office

usage: gen_bindings.py SOURCE_DIR OUT_DIR LIBRARY_DIR
"""
import pathlib
import pprint
import re
import shutil
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
from gen_exports import CTYPES, read_entries  # noqa: E402

DECL_RE = re.compile(r"ORVEL_EXPORT\(\s*[\w ]+\)\s*(\w+)\s*\(")


def header_docs(include_dir):
    """name -> the documentation block that stands before its declaration (a block serves every declaration
    that follows it until the next block)."""
    docs = {}
    for header in sorted(include_dir.glob("*.h")):
        text = header.read_text()
        last = ""
        for m in re.finditer(r"/\*(.*?)\*/|" + DECL_RE.pattern, text, re.S):
            if m.group(1) is not None:
                body = m.group(1)
                if not body.lstrip().startswith("-"):  # section rulers are not documentation
                    lines = [re.sub(r"^\s*\* ?", "", line) for line in body.splitlines()]
                    last = "\n".join(lines).strip()
            else:
                docs[m.group(2)] = last
    return docs


def named_codes(include_dir):
    """Every named code of orvel/conventions.h: ORVEL_DC_ACT_ACT, and its short forms DC_ACT_ACT, ACT_ACT."""
    codes = {}
    for name, value in re.findall(r"X\((ORVEL_\w+), (-?\d+)", (include_dir / "conventions.h").read_text()):
        for alias in (name, name[6:], re.sub(r"^ORVEL_(DC_|MKT_)", "", name)):
            codes[alias] = int(value)
    return codes


def python_table(entries, docs, library_dir, codes):
    table = {}
    for e in entries:
        args = [(a["name"], a["kind"], a["count"] or "", a["offset"]) for a in e["args"]]
        table[e["name"]] = (e["result"], args, docs.get(e["name"], ""))
    return ("# Generated from exports/*.list and include/orvel/*.h by tools/gen_bindings.py. Do not edit.\n"
            f"LIBRARY_DIR = {str(library_dir)!r}\n"
            f"CODES = {pprint.pformat(codes, width=110)}\n"
            f"EXPORTS = {pprint.pformat(table, width=110, sort_dicts=False)}\n")


CS_TYPES = {"int32_t": "int", "double": "double", "int32_t*": "ref int", "double*": "ref double",
            "uint32_t*": "ref uint", "const int32_t*": "int[]", "const double*": "double[]", "char*": "byte[]"}
CS_ARRAY_OUT = {"out_i32[]": "[Out] int[]", "out_f64[]": "[Out] double[]", "io_i32[]": "[In, Out] int[]",
                "io_f64[]": "[In, Out] double[]", "out_chr[]": "[Out] byte[]"}
CS_RESULT = {"void": "void", "i32": "int", "f64": "double"}


def c_names(arg):
    """The C parameter names of one argument of the list (a date is three)."""
    if arg["kind"] in ("date", "out_date", "io_date"):
        return [arg["name"] + "_m", arg["name"] + "_d", arg["name"] + "_y"]
    return [arg["name"]]


def cs_params(e):
    params = []
    for a in e["args"]:
        for name, ctype in zip(c_names(a), CTYPES[a["kind"]]):
            ty = CS_ARRAY_OUT.get(a["kind"], CS_TYPES[ctype])
            params.append(f"{ty} {'@' + name if name in ('ref', 'out', 'in', 'fixed', 'base') else name}")
    return params


def dotnet_class(entries):
    lines = ["// Generated from exports/*.list by tools/gen_bindings.py. Do not edit.",
             "// P/Invoke declarations of every ORVEL export. Dates are three ints (month, day, year); outputs",
             "// are ref arguments; err_code is a ref uint, set to 0 before a call and tested after.",
             "// Compile with -define:ORVEL64 for 64-bit Windows hosts (ORVEL64.dll); 32-bit hosts load ORVEL.dll",
             "// (stdcall) and Linux liborvel.so.",
             "using System.Runtime.InteropServices;", "",
             "public static class Orvel", "{",
             "#if ORVEL64", '    public const string Library = "ORVEL64";', "#else",
             '    public const string Library = "orvel";', "#endif"]
    for e in entries:
        lines.append(f"    [DllImport(Library, CallingConvention = CallingConvention.StdCall, EntryPoint = \"{e['name']}\")]")
        lines.append(f"    public static extern {CS_RESULT[e['result']]} {e['name']}({', '.join(cs_params(e))});")
    lines.append("}")
    return "\n".join(lines) + "\n"


VBA_TYPES = {"int32_t": "ByVal {} As Long", "double": "ByVal {} As Double", "int32_t*": "ByRef {} As Long",
             "double*": "ByRef {} As Double", "uint32_t*": "ByRef {} As Long", "const int32_t*": "ByRef {} As Long",
             "const double*": "ByRef {} As Double", "char*": "ByVal {} As String"}
VBA_RESULT = {"void": ("Sub", ""), "i32": ("Function", " As Long"), "f64": ("Function", " As Double")}


def vba_module(entries):
    def block(lib):
        out = []
        for e in entries:
            params = []
            for a in e["args"]:
                for name, ctype in zip(c_names(a), CTYPES[a["kind"]]):
                    params.append(VBA_TYPES[ctype].format("x_" + name))
            kind, ret = VBA_RESULT[e["result"]]
            out.append(f'Public Declare PtrSafe {kind} {e["name"]} Lib "{lib}" ({", ".join(params)}){ret}')
        return out
    lines = ["Attribute VB_Name = \"Orvel\"",
             "' Generated from exports/*.list by tools/gen_bindings.py. Do not edit.",
             "' Every ORVEL export. Dates are three Longs (month, day, year); an array is passed as its first",
             "' element (ByRef a(0)); err_code is a Long set to 0 before a call. ORVEL.dll (32-bit Office) or",
             "' ORVEL64.dll (64-bit Office) must lie on the DLL search path.",
             "Option Explicit", "", "#If Win64 Then"] + block("ORVEL64.dll") + ["#Else"] + block("ORVEL.dll") + ["#End If"]
    return "\r\n".join(lines) + "\r\n"


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    src, dst, library_dir = (pathlib.Path(a) for a in sys.argv[1:4])
    entries = read_entries(src / "exports")
    docs = header_docs(src / "include/orvel")
    package = dst / "python/orvel"
    package.mkdir(parents=True, exist_ok=True)
    for f in (src / "bindings/python/orvel").glob("*.py"):
        shutil.copyfile(f, package / f.name)
    (package / "_exports.py").write_text(python_table(entries, docs, library_dir, named_codes(src / "include/orvel")))
    (dst / "dotnet").mkdir(parents=True, exist_ok=True)
    (dst / "dotnet/Orvel.cs").write_text(dotnet_class(entries))
    (dst / "vba").mkdir(parents=True, exist_ok=True)
    (dst / "vba/Orvel.bas").write_bytes(vba_module(entries).encode("ascii", "replace"))


if __name__ == "__main__":
    main()
