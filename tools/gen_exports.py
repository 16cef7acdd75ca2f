#!/usr/bin/env python3
"""Turns the export list (exports/*.list) into everything that enumerates the exports.

The list is the only hand-kept enumeration of the library's functions. From it this script writes:
  export_table.inc   the C++ table: names, argument kinds, decorated sizes and a call thunk per export
                     (used by the command-line tool, the tests, the fuzzer)
  header_check.inc   static_asserts that every header declaration has exactly the listed signature
  orvel.def          the 32-bit Windows module definition: plain and decorated name of every export
  orvel64.def        the 64-bit Windows module definition: plain names (x86-64 has one calling convention)
  orvel.map          the ELF version script: only the listed names are visible
  export_names.txt   one name a line, for the export-set test

List syntax (one export per entry; an indented line continues the entry above; '#' starts a comment):
  name  result  arg:kind arg:kind ...
result: void | i32 | f64
kind:   i32 f64                       by value
        date                          month, day, year as three int32 (name_m, name_d, name_y)
        out_i32 out_f64               written through a pointer
        io_i32 io_f64                 read and written through a pointer
        out_date io_date              three int32 pointers
        i32[n] f64[n]                 caller array read, n = count argument (n+1 for 1-based tables)
                                      an io_i32 count is a table the export may grow by one entry in
                                      place: its arrays have room for n + 1 elements
        out_i32[n] out_f64[n]         caller array written
        io_i32[n] io_f64[n]           caller array read and written
        out_chr[n]                    caller text buffer of n bytes
        err                           the err_code pointer, always last

Shapes: members of the market families share a few argument lists. A shape is declared once and entries
take it, so that no member can drift from the others of its kind:
  @shape shape_name  result  arg:kind ...     a shape (continuation lines as for an entry)
  name = shape_name [slot:new_name ...]       an export with the shape's result and arguments; a slot whose
                                              name starts with 'opt' (a market-option slot, i32) may be
                                              renamed for this member
  ...shape_name                               in an argument list (of a shape or an entry): the arguments of
                                              a shape declared before, in place (a family whose members
                                              open with an argument of their own)
A shape must come before its first use; an unknown shape, a rename of a slot that is not an option slot
of the shape, or a new name that repeats another argument is refused.
"""
import pathlib
import re
import sys

ORDER = ["frame", "calendar", "schedule", "bond", "markets", "money", "mortgage", "cashflow", "perf"]

SCALAR = {"i32", "f64", "date", "out_i32", "out_f64", "io_i32", "io_f64", "out_date", "io_date", "err"}
ARRAY = {"i32", "f64", "out_i32", "out_f64", "io_i32", "io_f64", "out_chr"}

# C parameter types of one argument of each kind (a date is three parameters)
CTYPES = {
    "i32": ["int32_t"], "f64": ["double"], "date": ["int32_t"] * 3,
    "out_i32": ["int32_t*"], "io_i32": ["int32_t*"], "out_f64": ["double*"], "io_f64": ["double*"],
    "out_date": ["int32_t*"] * 3, "io_date": ["int32_t*"] * 3, "err": ["uint32_t*"],
    "i32[]": ["const int32_t*"], "f64[]": ["const double*"], "out_i32[]": ["int32_t*"],
    "out_f64[]": ["double*"], "io_i32[]": ["int32_t*"], "io_f64[]": ["double*"], "out_chr[]": ["char*"],
}
KIND_ENUM = {
    "i32": "I32", "f64": "F64", "date": "Date", "out_i32": "OutI32", "out_f64": "OutF64", "io_i32": "IoI32",
    "io_f64": "IoF64", "out_date": "OutDate", "io_date": "IoDate", "err": "Err", "i32[]": "ArrI32",
    "f64[]": "ArrF64", "out_i32[]": "OutArrI32", "out_f64[]": "OutArrF64", "io_i32[]": "IoArrI32",
    "io_f64[]": "IoArrF64", "out_chr[]": "OutChr",
}
RESULT = {"void": ("void", "Void"), "i32": ("int32_t", "I32"), "f64": ("double", "F64")}
MAX_PARAMS = 64  # max_params of the call frame in exports/export_table.h
ARG_RE = re.compile(r"^([A-Za-z_][A-Za-z0-9_]*):([a-z_0-9]+)(?:\[([A-Za-z_][A-Za-z0-9_]*)(\+1)?\])?$")


class ListError(Exception):
    pass


def read_entries(folder):
    files = sorted(folder.glob("*.list"), key=lambda p: (ORDER.index(p.stem) if p.stem in ORDER else 99, p.stem))
    entries = []
    shapes = {}
    for path in files:
        current = None
        for lineno, raw in enumerate(path.read_text().splitlines(), 1):
            line = raw.split("#", 1)[0].rstrip()
            if not line.strip():
                continue
            where = f"{path.name}:{lineno}"
            if line[0].isspace():
                if current is None:
                    raise ListError(f"{where}: continuation line without an entry")
                current["words"] += line.split()
            else:
                current = {"where": where, "words": line.split(), "section": path.stem}
                entries.append(current)
    parsed = []
    for e in entries:
        words = splice(e, shapes)
        e = {**e, "words": words}
        if words[0] == "@shape":
            shape = parse_entry({**e, "words": words[1:]})
            shape["arg_words"] = words[3:]
            if shape["name"] in shapes:
                raise ListError(f"{e['where']}: shape {shape['name']} already declared")
            shapes[shape["name"]] = shape
        elif len(words) >= 3 and words[1] == "=":
            parsed.append(instantiate(e, shapes))
        else:
            parsed.append(parse_entry(e))
    return parsed


def splice(e, shapes):
    """The words of an entry with every ...shape_name replaced by that shape's argument words."""
    words = []
    for w in e["words"]:
        if w.startswith("..."):
            shape = shapes.get(w[3:])
            if shape is None:
                raise ListError(f"{e['where']}: unknown shape '{w[3:]}' in '{w}'")
            words += shape["arg_words"]
        else:
            words.append(w)
    return words


def instantiate(e, shapes):
    """An entry on a shape: the shape's result and arguments, option slots renamed as asked."""
    words, where = e["words"], e["where"]
    shape = shapes.get(words[2])
    if shape is None:
        raise ListError(f"{where}: unknown shape '{words[2]}' (declare it with @shape before its use)")
    renames = {}
    for w in words[3:]:
        m = re.match(r"^(opt[A-Za-z0-9_]*):([A-Za-z_][A-Za-z0-9_]*)$", w)
        if not m:
            raise ListError(f"{where}: bad rename '{w}' (only option slots opt...:new_name)")
        renames[m.group(1)] = m.group(2)
    args = []
    for a in shape["args"]:
        args.append(dict(a, name=renames.pop(a["name"], a["name"])) if a["kind"] == "i32" else dict(a))
    if renames:
        raise ListError(f"{where}: shape {shape['name']} has no option slot {', '.join(sorted(renames))}")
    names = [a["name"] for a in args]
    if len(set(names)) != len(names):
        raise ListError(f"{where}: repeated argument name")
    return {"name": words[0], "result": shape["result"], "args": args, "section": e["section"], "where": where,
            "shape": shape["name"]}


def parse_entry(e):
    words, where = e["words"], e["where"]
    if len(words) < 2 or words[1] not in RESULT:
        raise ListError(f"{where}: expected 'name result args...'")
    args = []
    for w in words[2:]:
        m = ARG_RE.match(w)
        if not m:
            raise ListError(f"{where}: bad argument '{w}'")
        name, kind, count, plus = m.groups()
        if count:
            if kind not in ARRAY:
                raise ListError(f"{where}: '{kind}' cannot be an array")
            kind += "[]"
        elif kind not in SCALAR:
            raise ListError(f"{where}: unknown kind '{kind}'")
        args.append({"name": name, "kind": kind, "count": count, "offset": 1 if plus else 0})
    names = [a["name"] for a in args]
    if len(set(names)) != len(names):
        raise ListError(f"{where}: repeated argument name")
    for a in args:
        if a["count"]:
            if a["count"] not in names or args[names.index(a["count"])]["kind"] not in ("i32", "io_i32"):
                raise ListError(f"{where}: count '{a['count']}' of '{a['name']}' is not an i32 or io_i32 argument")
            a["count_index"] = names.index(a["count"])
        if a["kind"] == "err" and a is not args[-1]:
            raise ListError(f"{where}: err must be the last argument")
    entry = {"name": words[0], "result": words[1], "args": args, "section": e["section"], "where": where}
    if len(c_params(entry)) > MAX_PARAMS:
        raise ListError(f"{where}: more than {MAX_PARAMS} C parameters (the call frame's limit)")
    return entry


def c_params(entry):
    params = []
    for a in entry["args"]:
        params += CTYPES[a["kind"]]
    return params


def stack_bytes(entry):
    return sum(8 if t == "double" else 4 for t in c_params(entry))


def thunk(entry):
    """A call with every C parameter taken from its slot of the frame."""
    exprs, k = [], 0
    for t in c_params(entry):
        if t == "int32_t":
            exprs.append(f"f.i[{k}]")
        elif t == "double":
            exprs.append(f"f.f[{k}]")
        else:
            exprs.append(f"static_cast<{t}>(f.p[{k}])")
        k += 1
    call = f"::{entry['name']}({', '.join(exprs)})"
    if entry["result"] == "void":
        body = f"{call};"
    elif entry["result"] == "i32":
        body = f"f.ret_i = {call};"
    else:
        body = f"f.ret_f = {call};"
    return f"inline void call_{entry['name']}(Frame& f) {{ {body} }}"


def write_table(entries, out):
    lines = ["// Generated from exports/*.list by tools/gen_exports.py. Do not edit.", ""]
    for e in entries:
        lines.append(f"inline constexpr ArgSpec args_{e['name']}[] = {{")
        first = 0
        for a in e["args"]:
            ci = a.get("count_index", -1)
            lines.append(f"    {{\"{a['name']}\", Kind::{KIND_ENUM[a['kind']]}, {first}, {ci}, {a['offset']}}},")
            first += len(CTYPES[a["kind"]])
        if not e["args"]:
            lines.append("    {\"\", Kind::I32, 0, -1, 0},")
        lines.append("};")
        lines.append(thunk(e))
    lines.append("")
    lines.append("inline constexpr ExportSpec all_exports[] = {")
    for e in entries:
        ret = RESULT[e["result"]][1]
        lines.append(f"    {{\"{e['name']}\", \"{e['section']}\", Result::{ret}, args_{e['name']}, "
                     f"{len(e['args'])}, {len(c_params(e))}, {stack_bytes(e)}, &call_{e['name']}}},")
    lines.append("};")
    out.write_text("\n".join(lines) + "\n")


def write_header_check(entries, out):
    lines = ["// Generated from exports/*.list by tools/gen_exports.py. Do not edit.",
             "// Every public declaration must have exactly the signature that the export list gives.", ""]
    for e in entries:
        ret = RESULT[e["result"]][0]
        params = ", ".join(c_params(e)) or "void"
        lines.append(f"static_assert(std::is_same_v<decltype(&::{e['name']}), {ret} (ORVEL_CALL *)({params})>, "
                     f"\"{e['name']}: header declaration differs from the export list ({e['where']})\");")
    out.write_text("\n".join(lines) + "\n")


def write_def(entries, out):
    lines = ["; Generated from exports/*.list by tools/gen_exports.py. Do not edit.",
             "; Every function under its plain name and its decorated stdcall name, both at one entry point.",
             "LIBRARY ORVEL", "EXPORTS"]
    for e in entries:
        n = stack_bytes(e)
        lines.append(f"    {e['name']} = {e['name']}@{n}")
        lines.append(f"    _{e['name']}@{n} = {e['name']}@{n}")
    out.write_text("\n".join(lines) + "\n")


def write_def64(entries, out):
    lines = ["; Generated from exports/*.list by tools/gen_exports.py. Do not edit.",
             "; Every function under its plain name: x86-64 has one calling convention and no decoration.",
             "LIBRARY ORVEL64", "EXPORTS"] + [f"    {e['name']}" for e in entries]
    out.write_text("\n".join(lines) + "\n")


def write_map(entries, out):
    names = "\n".join(f"    {e['name']};" for e in entries)
    out.write_text(f"ORVEL_1 {{\n  global:\n{names}\n  local: *;\n}};\n")


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: gen_exports.py EXPORTS_DIR OUT_DIR")
    src, dst = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    dst.mkdir(parents=True, exist_ok=True)
    try:
        entries = read_entries(src)
    except ListError as err:
        sys.exit(f"export list: {err}")
    seen = {}
    for e in entries:
        if e["name"] in seen:
            sys.exit(f"export list: {e['where']}: {e['name']} already listed at {seen[e['name']]}")
        seen[e["name"]] = e["where"]
    write_table(entries, dst / "export_table.inc")
    write_header_check(entries, dst / "header_check.inc")
    write_def(entries, dst / "orvel.def")
    write_def64(entries, dst / "orvel64.def")
    write_map(entries, dst / "orvel.map")
    (dst / "export_names.txt").write_text("".join(e["name"] + "\n" for e in entries))


if __name__ == "__main__":
    main()
