"""ORVEL from Python: every export of the library as a function, through ctypes.

    import orvel
    price = orvel.bond_py_ai(1, 2, 0, 2, 1, 6.0, 8.0, "2025-03-01", "2025-07-01", None, None, 100, 0, 0).result
    yld = orvel.bond_py_ai(1, 2, 0, 2, 2, price, 8.0, "2025-03-01", "2025-07-01", None, None, 100, 0, 0).result

Arguments are the export's, in its order or by keyword (orvel.bond_py_ai.__doc__ shows them and the header's
documentation), without the output pointers and err_code:
- a date is one argument: a datetime.date, ISO text "2025-03-01", "3/1/2025", a (month, day, year) tuple,
  or None / 0 for a blank date;
- an input array is a sequence; its count argument is taken from its length and not passed;
- the capacity of an output array is passed; the output comes back as a list of that many elements;
- `validate` defaults to 1; a code may be given by its name in orvel.codes (orvel.codes.ACT_ACT).
A call with outputs returns a named tuple (result first, when the export has one; `returned` when an
output is itself named result); a call without returns
its result. A call that sets err_code raises orvel.Error, which carries the number and its meaning.

orvel.vectorized.NAME(...) runs an export over whole NumPy columns in one C call (see that module).
"""
import collections
import ctypes
import datetime
import inspect
import keyword
import os
import pathlib
import re
import types

from ._exports import CODES, EXPORTS, LIBRARY_DIR

__all__ = ["Error", "EXPORTS", "codes", "library"] + sorted(EXPORTS)


class Error(Exception):
    """An error number written by the library, with its meaning (err_2_text)."""

    def __init__(self, function, number, text):
        super().__init__(f"{function}: error {number}: {text}")
        self.function, self.number, self.text = function, number, text


def _load(name):
    where = os.environ.get("ORVEL_LIBRARY_DIR", LIBRARY_DIR)
    for candidate in (pathlib.Path(where) / name, pathlib.Path(__file__).parent / name):
        if candidate.exists():
            return ctypes.CDLL(str(candidate))
    return ctypes.CDLL(name)


library = _load("liborvel.so.1")

SCALAR_C = {"i32": ctypes.c_int32, "f64": ctypes.c_double}
RESULT_C = {"void": None, "i32": ctypes.c_int32, "f64": ctypes.c_double}
OUTPUT_KINDS = {"out_i32", "out_f64", "io_i32", "io_f64", "out_date", "io_date", "out_i32[]", "out_f64[]",
                "io_i32[]", "io_f64[]", "out_chr[]"}


codes = types.SimpleNamespace(**CODES)  # orvel.codes.ACT_ACT, orvel.codes.DC_30E_360, orvel.codes.UKGB


def to_mdy(value):
    """A date argument as (month, day, year)."""
    if value is None or value == 0:
        return (0, 0, 0)
    if isinstance(value, datetime.datetime):
        value = value.date()
    if isinstance(value, datetime.date):
        return (value.month, value.day, value.year)
    if isinstance(value, str):
        m = re.fullmatch(r"(\d{4})-(\d{1,2})-(\d{1,2})", value.strip())
        if m:
            return (int(m.group(2)), int(m.group(3)), int(m.group(1)))
        m = re.fullmatch(r"(-?\d+)/(-?\d+)/(-?\d+)", value.strip())
        if m:
            return tuple(int(g) for g in m.groups())
        raise ValueError(f"not a date: {value!r} (expected YYYY-MM-DD or M/D/YYYY)")
    if hasattr(value, "year") and hasattr(value, "month"):  # pandas Timestamp, numpy datetime64 via .item()
        return (int(value.month), int(value.day), int(value.year))
    m, d, y = value
    return (int(m), int(d), int(y))


def _error_text(number):
    buf = ctypes.create_string_buffer(200)
    library.err_2_text(number, buf, len(buf))
    return buf.value.decode("ascii", "replace")


def py_name(name):
    """An argument's Python name: a keyword (from, in) takes a trailing underscore."""
    return name + "_" if keyword.iskeyword(name) else name


def list_name(name):
    return name[:-1] if name.endswith("_") and keyword.iskeyword(name[:-1]) else name


def result_field(outputs):
    """The field of the function's own result: `result`, or `returned` when an output is named result."""
    return "returned" if "result" in outputs else "result"


def _typed_args(args):
    """The arguments a caller passes: not outputs, not err_code, not the counts of input arrays."""
    derived = {count for _, kind, count, _ in args if count and kind in ("i32[]", "f64[]", "io_i32[]", "io_f64[]")}
    return [(name, kind) for name, kind, _, _ in args
            if kind != "err" and name not in derived and kind not in ("out_i32", "out_f64", "out_date")
            and kind not in ("out_i32[]", "out_f64[]", "out_chr[]")]


def _bind(name, listed):
    result_kind, args, doc = listed
    fn = getattr(library, name)
    fn.restype = RESULT_C[result_kind]
    typed = _typed_args(args)
    last = typed[-1][0] if typed else None
    params = [inspect.Parameter(py_name(n), inspect.Parameter.POSITIONAL_OR_KEYWORD,
                                default=1 if n == "validate" == last else inspect.Parameter.empty) for n, _ in typed]
    signature = inspect.Signature(params)
    outputs = [n for n, kind, _, _ in args if kind in OUTPUT_KINDS]
    fields = ([result_field(outputs)] if result_kind != "void" else []) + outputs
    Result = collections.namedtuple(f"{name}_result", fields) if outputs else None

    def call(*a, **kw):
        given = signature.bind(*a, **kw)
        given.apply_defaults()
        values = {list_name(n): v for n, v in given.arguments.items()}
        # counts of input arrays from their lengths, before anything is converted
        for n, kind, count, offset in args:
            if count and kind in ("i32[]", "f64[]", "io_i32[]", "io_f64[]") and count not in values:
                values[count] = len(values[n]) - offset
        c_args, readers = [], []
        err = ctypes.c_uint32(0)
        for n, kind, count, offset in args:
            v = values.get(n)
            if kind in ("i32", "f64"):
                if isinstance(v, str):
                    v = CODES[v]
                c_args.append(SCALAR_C[kind](v))
            elif kind == "date":
                c_args += [ctypes.c_int32(x) for x in to_mdy(v)]
            elif kind in ("out_i32", "io_i32", "out_f64", "io_f64"):
                cell = (ctypes.c_int32 if "i32" in kind else ctypes.c_double)(v if kind.startswith("io") else 0)
                c_args.append(ctypes.byref(cell))
                readers.append(lambda cell=cell: cell.value)
            elif kind in ("out_date", "io_date"):
                cells = [ctypes.c_int32(x) for x in (to_mdy(v) if kind == "io_date" else (0, 0, 0))]
                c_args += [ctypes.byref(c) for c in cells]
                readers.append(lambda cells=cells: tuple(c.value for c in cells))
            elif kind.endswith("[]"):
                size = int(values[count]) + offset
                base = ctypes.c_char if kind == "out_chr[]" else ctypes.c_int32 if "i32" in kind else ctypes.c_double
                buf = (base * max(size, 1))()
                if kind in ("i32[]", "f64[]", "io_i32[]", "io_f64[]"):
                    for i, x in enumerate(v):
                        buf[i] = x
                c_args.append(buf)
                if kind == "out_chr[]":
                    readers.append(lambda buf=buf: buf.value.decode("ascii", "replace"))
                elif kind in OUTPUT_KINDS:
                    readers.append(lambda buf=buf, size=size: list(buf[:size]))
            elif kind == "err":
                c_args.append(ctypes.byref(err))
        result = fn(*c_args)
        if err.value != 0:
            raise Error(name, err.value, _error_text(err.value))
        if Result is None:
            return result
        return Result(*(([result] if result_kind != "void" else []) + [r() for r in readers]))

    call.__name__ = call.__qualname__ = name
    call.__signature__ = signature
    call.__doc__ = f"{name}{signature}\n\n{doc}"
    return call


for _name, _spec in EXPORTS.items():
    globals()[_name] = _bind(_name, _spec)
del _name, _spec
