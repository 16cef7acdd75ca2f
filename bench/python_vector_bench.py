#!/usr/bin/env python3
"""A million bonds priced from their yields in one vectorised call, against the same C calls one by one
(a sample, scaled): run with PYTHONPATH=BUILD/bindings/python under the system Python."""
import time

import numpy as np

import orvel
import orvel.vectorized as ov

n = 1_000_000
rng = np.random.default_rng(1)
yields = rng.uniform(0.5, 9.0, n)
coupons = rng.choice([1.25, 2.5, 4.0, 6.375], n)
settle = np.datetime64("2025-01-02") + rng.integers(0, 365, n).astype("timedelta64[D]")
maturity = np.datetime64("2026-02-15") + (rng.integers(0, 60, n) * 182).astype("timedelta64[D]")
args = (1, 1, 0, 2, 1, yields, coupons, settle, maturity, None, None, 100, 0, 0)
start = time.perf_counter()
out = ov.bond_py_ai(*args)
vector = time.perf_counter() - start
assert not out.err_code.any()
sample = range(0, n, 1000)
start = time.perf_counter()
for i in sample:
    one = orvel.bond_py_ai(1, 1, 0, 2, 1, yields[i], coupons[i], settle[i].item(), maturity[i].item(), None, None,
                           100, 0, 0)
    assert (one.result, one.ai) == (out.result[i], out.ai[i])
single = (time.perf_counter() - start) / len(sample)
print(f"vectorised: {n} bonds in {vector:.3f} s ({vector / n * 1e9:.0f} ns a bond); "
      f"single Python calls: {single * 1e6:.1f} us a bond ({single * n:.0f} s for a million); "
      f"{len(sample)} rows equal bit for bit")
