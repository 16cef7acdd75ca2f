"""Exports over whole NumPy columns, one C call each (exports without array arguments).

    import numpy as np, orvel.vectorized as ov
    out = ov.bond_py_ai(1, 2, 0, 2, 1, yields, 8.0, settle, "2035-07-01", None, None, 100, 0, 0)
    out.result, out.ai, out.err_code          # NumPy arrays, one element a row

Each argument is a scalar (the same for every row) or a column: a sequence or NumPy array of the rows'
values; a date column is an array of numpy.datetime64, a sequence of dates, or a (months, days, years)
tuple of integer arrays. The result is a named tuple of arrays: result, each output, and err_code (0 where
the row succeeded); a row that fails does not raise. Every element is bit for bit what the single call
gives.
"""
import collections
import ctypes
import pathlib

import numpy as np

from . import CODES, EXPORTS, LIBRARY_DIR, _typed_args, list_name, result_field, to_mdy

_vector = None


def _library():
    global _vector
    if _vector is None:
        import os
        where = pathlib.Path(os.environ.get("ORVEL_LIBRARY_DIR", LIBRARY_DIR))
        _vector = ctypes.CDLL(str(where / "liborvel_vector.so"))
        _vector.orvel_vector_call.restype = ctypes.c_int32
        _vector.orvel_vector_call.argtypes = [ctypes.c_char_p, ctypes.c_int64, ctypes.POINTER(ctypes.c_void_p),
                                              ctypes.POINTER(ctypes.c_int64), ctypes.c_void_p]
    return _vector


def _date_columns(value, rows):
    """Three int32 columns (months, days, years) of a date argument, or three scalars."""
    if isinstance(value, tuple) and len(value) == 3 and any(np.ndim(v) for v in value):
        return [np.ascontiguousarray(np.broadcast_to(v, rows), dtype=np.int32) for v in value]
    if isinstance(value, np.ndarray) and np.issubdtype(value.dtype, np.datetime64):
        return _civil(value.astype("datetime64[D]").astype(np.int32))
    if np.ndim(value) == 1 and not isinstance(value, (str, tuple)):
        mdy = np.array([to_mdy(v) for v in value], dtype=np.int32).reshape(-1, 3)
        return [np.ascontiguousarray(mdy[:, i]) for i in range(3)]
    return [np.int32(x) for x in to_mdy(value)]


def _civil(days):
    """Months, days and years of day numbers counted from 1 January 1970, in whole-array integer arithmetic
    (the proleptic Gregorian calendar in 400-year eras; much faster than NumPy's month and year casts)."""
    z = days + 719468
    era = z // 146097
    doe = z - era * 146097
    yoe = (doe - doe // 1460 + doe // 36524 - doe // 146096) // 365
    doy = doe - (365 * yoe + yoe // 4 - yoe // 100)
    mp = (5 * doy + 2) // 153
    day = doy - (153 * mp + 2) // 5 + 1
    month = np.where(mp < 10, mp + 3, mp - 9)
    year = yoe + era * 400 + (month <= 2)
    return [month.astype(np.int32), day.astype(np.int32), year.astype(np.int32)]


def _rows(values):
    """The number of rows: the length of the columns among the values (all the same), else 1."""
    lengths = set()
    for v in values:
        if isinstance(v, tuple) and len(v) == 3 and np.ndim(v[0]) == 1:
            lengths.add(len(v[0]))  # a date as three columns
        elif isinstance(v, (list, np.ndarray)) and np.ndim(v) == 1:
            lengths.add(len(v))
    if len(lengths) > 1:
        raise ValueError(f"columns of different lengths: {sorted(lengths)}")
    return lengths.pop() if lengths else 1


def _bind(name, listed):
    result_kind, args, doc = listed
    if any(kind.endswith("[]") for _, kind, _, _ in args):
        return None
    typed = [n for n, _ in _typed_args(args)]
    outputs = [(n, kind) for n, kind, _, _ in args if kind.startswith(("out_", "io_"))]
    head = [result_field([n for n, _ in outputs])] if result_kind != "void" else []
    Result = collections.namedtuple(f"{name}_columns", head + [n for n, _ in outputs] + ["err_code"])

    def call(*a, **kw):
        values = dict(zip(typed, a))
        values.update({list_name(k): v for k, v in kw.items()})
        values.setdefault("validate", 1)
        rows = _rows([values[n] for n in typed])
        columns, strides, keep = [], [], []
        out_arrays = {}
        err = np.zeros(rows, dtype=np.uint32)

        def add(column):
            column = np.asarray(column)
            keep.append(column)
            columns.append(column.ctypes.data)
            strides.append(0 if column.ndim == 0 else 1)

        for n, kind, _, _ in args:
            v = values.get(n)
            if kind in ("i32", "f64"):
                if isinstance(v, str):
                    v = CODES[v]
                dtype = np.int32 if kind == "i32" else np.float64
                add(np.ascontiguousarray(v, dtype=dtype) if np.ndim(v) else np.array(v, dtype=dtype))
            elif kind == "date":
                for c in _date_columns(v, rows):
                    add(np.ascontiguousarray(c, dtype=np.int32) if np.ndim(c) else np.array(c, dtype=np.int32))
            elif kind in ("out_i32", "out_f64", "io_i32", "io_f64"):
                dtype = np.int32 if "i32" in kind else np.float64
                arr = np.zeros(rows, dtype=dtype)
                if kind.startswith("io"):
                    arr[:] = v
                out_arrays[n] = arr
                add(arr)
            elif kind in ("out_date", "io_date"):
                parts = [np.zeros(rows, dtype=np.int32) for _ in range(3)]
                if kind == "io_date":
                    for p, c in zip(parts, _date_columns(v, rows)):
                        p[:] = c
                out_arrays[n] = parts
                for p in parts:
                    add(p)
            elif kind == "err":
                add(err)
        result = np.zeros(rows, dtype=np.float64)
        cols = (ctypes.c_void_p * len(columns))(*columns)
        strd = (ctypes.c_int64 * len(strides))(*strides)
        status = _library().orvel_vector_call(name.encode(), rows, cols, strd, result.ctypes.data)
        if status != 0:
            raise ValueError(f"{name}: the vectorised call refused it ({status})")
        if result_kind == "i32":
            result = result.astype(np.int32)
        head = [result] if result_kind != "void" else []
        return Result(*head, *[out_arrays[n] for n, _ in outputs], err)

    call.__name__ = call.__qualname__ = name
    call.__doc__ = f"{name} over columns (see orvel.vectorized).\n\n{doc}"
    return call


for _name, _spec in EXPORTS.items():
    _fn = _bind(_name, _spec)
    if _fn is not None:
        globals()[_name] = _fn
del _name, _spec, _fn
