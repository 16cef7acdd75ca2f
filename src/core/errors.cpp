// The meaning of an error number as text: the table of frame.h, with the date roles, orderings, given
// kinds and list indexes that the composite validators add to a base number spelled out.
#include <cstdint>
#include <string_view>

#include "orvel/frame.h"

namespace {

struct Row {
    uint32_t number;
    const char* meaning;
};

#define ORVEL_ERROR_ROW_(name, number, meaning) {number, meaning},
constexpr Row rows[] = {ORVEL_ERROR_TABLE(ORVEL_ERROR_ROW_)};
#undef ORVEL_ERROR_ROW_

const char* meaning_of(uint32_t number) {
    for (const Row& r : rows)
        if (r.number == number) return r.meaning;
    return nullptr;
}

const char* role_name(uint32_t role) {
    switch (role) {
    case ORVEL_ROLE_MATURITY: return "maturity date";
    case ORVEL_ROLE_DATED: return "dated date";
    case ORVEL_ROLE_FIRST_CPN: return "first coupon date";
    case ORVEL_ROLE_TRADE: return "trade date";
    case ORVEL_ROLE_STEP: return "step date";
    case ORVEL_ROLE_LAST_CPN: return "last regular coupon date";
    case ORVEL_ROLE_SETTLE: return "settlement date";
    case ORVEL_ROLE_CHECKED: return "checked date";
    case ORVEL_ROLE_EXDIV: return "ex-dividend date";
    default: return nullptr;
    }
}

const char* given_kind(uint32_t kind) {
    switch (kind) {
    case 1: case 11: case 21: return "yield";
    case 2: case 12: case 22: return "price";
    case 3: return "discount rate";
    case 4: case 5: return "rate";
    default: return "value";
    }
}

// Appends into the caller's buffer, never past its size, and counts the whole length.
class Writer {
public:
    Writer(char* text, int32_t size) : text_(text), cap_(size > 0 ? size : 0) {}
    Writer& put(std::string_view s) {
        for (char c : s) {
            if (len_ + 1 < cap_) text_[len_] = c;
            ++len_;
        }
        return *this;
    }
    Writer& put(uint32_t n) {
        char digits[10];
        int k = 0;
        do {
            digits[k++] = static_cast<char>('0' + n % 10);
            n /= 10;
        } while (n != 0);
        while (k > 0) put(std::string_view(&digits[--k], 1));
        return *this;
    }
    int32_t finish() {
        if (cap_ > 0) text_[len_ < cap_ ? len_ : cap_ - 1] = '\0';
        return len_;
    }

private:
    char* text_;
    int32_t cap_;
    int32_t len_ = 0;
};

// Base + two role digits: an ordering of two dates, earlier role first; any other base names both dates.
bool two_roles(Writer& w, uint32_t base, const char* meaning, uint32_t first, uint32_t second) {
    const char* a = role_name(first);
    const char* b = role_name(second);
    if (a == nullptr || b == nullptr) return false;
    switch (base) {
    case ORVEL_E_NOT_LE: w.put(a).put(" must not be after ").put(b); return true;
    case ORVEL_E_NOT_LT: w.put(a).put(" must be before ").put(b); return true;
    case ORVEL_E_SYNC: w.put(a).put(" and ").put(b).put(" not on one coupon cycle"); return true;
    default: w.put(meaning).put(" (").put(a).put(", ").put(b).put(")"); return true;
    }
}

void describe(Writer& w, uint32_t number) {
    if (number == 0) {
        w.put("no error");
        return;
    }
    if (const char* m = meaning_of(number)) {
        w.put(m);
        return;
    }
    if (number >= ORVEL_E_DATE_LIST_BASE && number < ORVEL_E_DATE_LIST_BASE + ORVEL_DATE_LIST_MAX) {
        w.put("bad date at index ").put(number - ORVEL_E_DATE_LIST_BASE).put(" of a date list");
        return;
    }
    if (number >= ORVEL_E_FLOW_AFTER_END_BASE && number < ORVEL_E_FLOW_AFTER_END_BASE + ORVEL_DATE_LIST_MAX) {
        w.put("flow ").put(number - ORVEL_E_FLOW_AFTER_END_BASE).put(" dated after the end of the period");
        return;
    }
    if (number > ORVEL_E_GIVEN_BASE && number <= ORVEL_E_GIVEN_BASE + 22) {
        const uint32_t kind = number - ORVEL_E_GIVEN_BASE;
        w.put("given ").put(given_kind(kind)).put(" invalid for its kind (given_type ").put(kind).put(")");
        return;
    }
    if (number >= ORVEL_E_DAYS_PER_BASE && number <= ORVEL_E_DAYS_PER_BASE + ORVEL_DAYS_PER_LEAST_MAX) {
        w.put("days in the period below ").put(number - ORVEL_E_DAYS_PER_BASE);
        return;
    }
    // Only the date checks take roles on top: one digit for a bad date; two, for a pair of dates, only on
    // the ordering and coupon-cycle checks (2000..2999).
    const uint32_t base = number - number % 100;
    const uint32_t rest = number % 100;
    const bool pair_check = base >= ORVEL_E_NOT_LE && base < 3000;
    const bool date_check = pair_check || (base >= ORVEL_E_YEAR && base <= ORVEL_E_BLANK);
    if (const char* m = date_check ? meaning_of(base) : nullptr) {
        if (rest < 10 && role_name(rest) != nullptr) {
            w.put(m).put(" (").put(role_name(rest)).put(")");
            return;
        }
        if (pair_check && rest >= 10 && two_roles(w, base, m, rest / 10, rest % 10)) return;
    }
    w.put("unknown error number ").put(number);
}

}  // namespace

ORVEL_EXPORT(int32_t) err_2_text(int32_t number, char* text, int32_t size) {
    Writer w(text, size);
    if (number < 0)
        w.put("unknown error number -").put(static_cast<uint32_t>(-(static_cast<int64_t>(number))));
    else
        describe(w, static_cast<uint32_t>(number));
    return w.finish();
}
