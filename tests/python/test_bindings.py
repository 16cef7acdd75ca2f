"""The Python package against the C library: the same numbers, the conventions of dates, keywords, outputs and
errors, and the vectorised form bit for bit equal to single calls."""
import datetime
import math

import numpy as np
import pytest

import orvel
import orvel.vectorized as ov

FINAL_PERIOD = dict(method=1, day_type=2, eom=0, cpn_freq=2, cpn_rate=8.0, settle="2025-03-01",
                    mat="2025-07-01", dated=None, first_cpn=None, redemptn=100, tax1=0, tax2=0)


def test_a_bond_priced_and_its_yield_solved_in_three_lines():
    price = orvel.bond_py_ai(calc_type=1, given=6.0, **FINAL_PERIOD).result
    yld = orvel.bond_py_ai(calc_type=2, given=price, **FINAL_PERIOD).result
    assert price == pytest.approx(100 * 1.04 / 1.02 - 4 / 3, abs=1e-12)  # 4 months of 6 % simple, less 4/3 accrued
    assert yld == pytest.approx(6.0, abs=1e-9)


@pytest.mark.parametrize("date", [datetime.date(2024, 7, 15), "2024-07-15", "7/15/2024", (7, 15, 2024)])
def test_every_form_of_a_date_is_the_same_date(date):
    assert orvel.days_b_MDYs("2024-01-15", date, orvel.codes.ACT_360) == 182
    assert orvel.days_b_MDYs("2024-01-15", date, "DC_30E_360") == 180  # a code by its name


def test_outputs_come_back_as_a_named_tuple_and_arrays_as_lists():
    flows = orvel.bond_flows(2, 0, 2, 8.0, "2025-03-01", "2027-07-01", None, None, 100, capacity=8)
    assert flows.count == 5 and flows.amts[:5] == [4.0, 4.0, 4.0, 4.0, 104.0]
    assert flows.result == 5 and len(flows.cf_m) == 8
    assert orvel.err_2_text(2171, 100).text == "settlement date must be before maturity date"


def test_an_error_raises_with_its_number_and_meaning():
    with pytest.raises(orvel.Error) as caught:
        orvel.ok_cpn_freq(3)
    assert caught.value.number == 600 and "cpn_freq" in caught.value.text
    with pytest.raises(orvel.Error) as caught:
        orvel.bond_ai("2026-01-01", "2025-07-01", None, None, 5.0, 1, 0, 2)
    assert caught.value.number == 2171


def test_docstrings_and_signatures_come_from_the_header():
    assert "Accrued interest at settlement" in orvel.bond_ai.__doc__
    assert "validate=1" in str(orvel.bond_ai.__doc__.splitlines()[0])
    assert "capacity" in orvel.bond_flows.__doc__.splitlines()[0]


def test_every_export_is_bound():
    assert all(callable(getattr(orvel, name)) for name in orvel.EXPORTS)
    assert len(orvel.EXPORTS) == len(open(orvel.LIBRARY_DIR + "/gen/export_names.txt").read().split())


def test_columns_give_bit_for_bit_what_single_calls_give():
    rng = np.random.default_rng(5)
    n = 2000
    yields = rng.uniform(0.5, 12.0, n)
    coupons = rng.choice([0.0, 2.5, 4.125, 8.0], n)
    settle = np.datetime64("2025-03-01") + rng.integers(0, 700, n).astype("timedelta64[D]")
    out = ov.bond_py_ai(1, 1, 0, 2, 1, yields, coupons, settle, "2035-07-01", None, None, 100, 0, 0)
    assert not out.err_code.any()
    for i in range(0, n, 37):
        one = orvel.bond_py_ai(1, 1, 0, 2, 1, yields[i], coupons[i], settle[i].item(), "2035-07-01",
                               None, None, 100, 0, 0)
        assert (one.result, one.ai) == (out.result[i], out.ai[i])  # the same bits
    back = ov.bond_py_ai(1, 1, 0, 2, 2, out.result, coupons, settle, "2035-07-01", None, None, 100, 0, 0)
    assert np.allclose(back.result, yields, atol=1e-6)


def test_a_failing_row_reports_its_number_and_the_others_go_on():
    out = ov.bond_ai(["2025-03-01", "2036-01-01"], "2035-07-01", None, None, 5.0, 1, 0, 2)
    assert list(out.err_code) == [0, 2171] and out.result[1] == 0.0 and math.isfinite(out.result[0])
