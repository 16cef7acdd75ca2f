// Bills given by dates: the checks of the combined functions, every quote from any one given, and the
// conventions of the Japanese and US bill families.
#pragma once

#include <cstdint>

#include "core/civil.hpp"
#include "money/discount.hpp"

namespace orvel::money {

inline constexpr int32_t usbl_market = 12;      // US Treasury bills in the market table: actual/360
inline constexpr int32_t usbl_act_yr_type = 1;  // the year from settlement: 366 days when it holds 29 February
inline constexpr int32_t usbl_sec_type = 10;    // US Treasuries: risk measures rounded to 6 places
inline constexpr int32_t jptb_day_type = 8;     // Japanese bills: actual days over 365

// Price, money-market yield and discount rate from one of them (calc_type 1 yield, 2 price, 3 discount);
// false when one is not finite.
bool simple_quotes(double value, int32_t calc_type, const Term& t, double redemptn, double tau, Quotes* q);

// day_type, calc_type 1..highest (200), then ok_disc_in with the two tax rates.
bool inputs_ok(int32_t day_type, int32_t calc_type, int32_t highest, double value, Date settle, Date mat,
               double redemptn, double tax1, double tax2, uint32_t* err);

// The quotes of a bill given by dates, validated when asked: calc_type 1..highest (200 otherwise, checked
// always); highest 3 measures the term in days only, 5 splits it into half-years of the act_yr_type year.
// The tax is tax_rate, or lt_tax_rate for a term longer than the year basis.
bool bill_quotes(double value, int32_t calc_type, int32_t highest, Date settle, Date mat, int32_t day_type,
                 int32_t act_yr_type, double redemptn, double tax_rate, double lt_tax_rate, int32_t validate,
                 Quotes* q, Term* t, uint32_t* err);

// day_type, or the US bill market's when it is -1.
int32_t market_day_type(int32_t day_type);

}  // namespace orvel::money
