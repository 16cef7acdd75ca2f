// The generated P/Invoke class against liborvel.so: a bond priced and its yield solved, an error number and
// its meaning, and a coupon schedule into arrays. Prints FAIL lines and exits 1 on a mismatch.
using System;
using System.Text;

public static class OrvelTest
{
    static int failures = 0;

    static void Check(string what, bool ok, object got)
    {
        if (!ok) { Console.WriteLine("FAIL " + what + ": " + got); failures++; }
    }

    public static int Main()
    {
        uint err = 0;
        double price = 0, ai = 0, yld = 0;
        // 8 % semi-annual coupon, 4 months to maturity, 6 % yield: 100 x 1.04 / 1.02 less 4/3 accrued
        Orvel.bond_py_ai(1, 2, 0, 2, 1, 6.0, 8.0, 3, 1, 2025, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 100, 0, 0,
                         ref price, ref ai, 1, ref err);
        Check("price", err == 0 && Math.Abs(price - (100 * 1.04 / 1.02 - 4.0 / 3)) < 1e-12, price);
        Orvel.bond_py_ai(1, 2, 0, 2, 2, price, 8.0, 3, 1, 2025, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 100, 0, 0,
                         ref yld, ref ai, 1, ref err);
        Check("yield", err == 0 && Math.Abs(yld - 6.0) < 1e-9, yld);

        Check("ok_cpn_freq 3", Orvel.ok_cpn_freq(3, ref err) == 0 && err == 600, err);
        var text = new byte[100];
        int n = Orvel.err_2_text((int)err, text, text.Length);
        string meaning = Encoding.ASCII.GetString(text, 0, n);
        Check("err_2_text 600", meaning.Contains("cpn_freq"), meaning);

        err = 0;
        int count = 0;
        int[] m = new int[8], d = new int[8], y = new int[8];
        double[] amts = new double[8], times = new double[8];
        int result = Orvel.bond_flows(2, 0, 2, 8.0, 3, 1, 2025, 7, 1, 2027, 0, 0, 0, 0, 0, 0, 100, 8, m, d, y,
                                      amts, times, ref count, ref ai, 1, ref err);
        Check("bond_flows", result == 5 && count == 5 && amts[4] == 104.0 && m[0] == 7 && y[4] == 2027, result);
        Console.WriteLine(failures == 0 ? "all passed" : failures + " failed");
        return failures == 0 ? 0 : 1;
    }
}
