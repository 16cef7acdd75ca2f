"""A book of bonds in a pandas frame, partitioned across a local Dask cluster of two worker processes, prices
to the same numbers as one process."""
import numpy as np
import pandas as pd
import pytest

import orvel.vectorized as ov

dd = pytest.importorskip("dask.dataframe")
distributed = pytest.importorskip("distributed")


def price_partition(frame):
    out = ov.bond_py_ai(1, 1, 0, 2, 1, frame["yield"].to_numpy(), frame["coupon"].to_numpy(),
                        frame["settle"].to_numpy(dtype="datetime64[D]"), frame["maturity"].to_numpy(dtype="datetime64[D]"),
                        None, None, 100, 0, 0)
    return frame.assign(price=out.result, accrued=out.ai)


def test_a_partitioned_book_prices_as_one_process():
    rng = np.random.default_rng(11)
    n = 20000
    book = pd.DataFrame({
        "yield": rng.uniform(1, 9, n), "coupon": rng.choice([1.5, 3.0, 4.75, 6.25], n),
        "settle": pd.Timestamp("2025-01-02") + pd.to_timedelta(rng.integers(0, 365, n), unit="D"),
        "maturity": pd.Timestamp("2030-05-15") + pd.to_timedelta(rng.integers(0, 20, n) * 182, unit="D")})
    expected = price_partition(book)
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None) as cluster, \
            distributed.Client(cluster):
        frame = dd.from_pandas(book, npartitions=8)
        got = frame.map_partitions(price_partition, meta=expected.iloc[:0]).compute()
    pd.testing.assert_frame_equal(got.sort_index(), expected, check_exact=True)
