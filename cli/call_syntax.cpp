// Parsing one call line into a prepared call, calling it without allocation, and formatting its results.
#include "call_syntax.hpp"

#include "orvel/conventions.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace orvel::callkit {

namespace {

using exports::ArgSpec;
using exports::ExportSpec;
using exports::Kind;

bool is_input_array(Kind k) {
    return k == Kind::ArrI32 || k == Kind::ArrF64 || k == Kind::IoArrI32 || k == Kind::IoArrF64;
}
bool is_output(Kind k) {
    return k == Kind::OutI32 || k == Kind::OutF64 || k == Kind::OutDate || k == Kind::OutArrI32 ||
           k == Kind::OutArrF64 || k == Kind::OutChr;
}
bool is_io(Kind k) {
    return k == Kind::IoI32 || k == Kind::IoF64 || k == Kind::IoDate || k == Kind::IoArrI32 || k == Kind::IoArrF64;
}
bool holds_reals(Kind k) {
    return k == Kind::F64 || k == Kind::OutF64 || k == Kind::IoF64 || k == Kind::ArrF64 || k == Kind::OutArrF64 ||
           k == Kind::IoArrF64;
}
bool is_date(Kind k) { return k == Kind::Date || k == Kind::OutDate || k == Kind::IoDate; }

const char* kind_name(Kind k) {
    switch (k) {
    case Kind::I32: case Kind::ArrI32: return "i32";
    case Kind::F64: case Kind::ArrF64: return "f64";
    case Kind::Date: return "date";
    case Kind::OutI32: case Kind::OutArrI32: return "out_i32";
    case Kind::OutF64: case Kind::OutArrF64: return "out_f64";
    case Kind::IoI32: case Kind::IoArrI32: return "io_i32";
    case Kind::IoF64: case Kind::IoArrF64: return "io_f64";
    case Kind::OutDate: return "out_date";
    case Kind::IoDate: return "io_date";
    case Kind::OutChr: return "out_chr";
    case Kind::Err: return "err";
    }
    return "?";
}

// The i32 arguments that count an input array: they are taken from the list's length, not typed.
std::vector<bool> derived_counts(const ExportSpec& e) {
    std::vector<bool> derived(static_cast<std::size_t>(e.arg_count), false);
    for (const ArgSpec& a : e.args())
        if (exports::is_array(a.kind) && is_input_array(a.kind) && a.count_arg >= 0)
            derived[static_cast<std::size_t>(a.count_arg)] = true;
    return derived;
}

bool is_typed(const ExportSpec& e, const std::vector<bool>& derived, int index) {
    const Kind k = e.arg_list[index].kind;
    if (k == Kind::I32 || (k == Kind::IoI32 && derived[static_cast<std::size_t>(index)]))
        return !derived[static_cast<std::size_t>(index)];
    return k == Kind::F64 || k == Kind::Date || k == Kind::IoI32 || k == Kind::IoF64 || k == Kind::IoDate ||
           is_input_array(k);
}

// The typed word with what it must look like, for messages.
const char* expected_form(Kind k) {
    switch (k) {
    case Kind::I32: case Kind::IoI32: return "an integer (32-bit) or a named code (ACT_ACT, SEMIANNUAL, UKGB, ...)";
    case Kind::F64: case Kind::IoF64: return "a number";
    case Kind::Date: case Kind::IoDate: return "a date M/D/YYYY or YYYY-MM-DD (blank 0/0/0)";
    case Kind::ArrI32: case Kind::IoArrI32: return "a comma-separated list of integers ([] for none)";
    case Kind::ArrF64: case Kind::IoArrF64: return "a comma-separated list of numbers ([] for none)";
    default: return "nothing";
    }
}

bool parse_int(std::string_view s, int32_t& value) {
    if (!s.empty() && s.front() == '+') s.remove_prefix(1);
    const char* end = s.data() + s.size();
    auto [ptr, ec] = std::from_chars(s.data(), end, value);
    return !s.empty() && ec == std::errc() && ptr == end;
}

// The named codes of orvel/conventions.h (ACT_ACT or ORVEL_DC_ACT_ACT, UKGB or ORVEL_MKT_UKGB, ...).
struct NamedCode {
    std::string_view name;
    int32_t value;
};
#define ORVEL_NAMED_CODE_(name, code, ...) {#name, code},
constexpr NamedCode named_codes[] = {ORVEL_DAY_COUNT_TABLE(ORVEL_NAMED_CODE_) ORVEL_FREQUENCY_TABLE(ORVEL_NAMED_CODE_)
                                         ORVEL_SELECTOR_TABLE(ORVEL_NAMED_CODE_) ORVEL_MARKET_TABLE(ORVEL_NAMED_CODE_)};
#undef ORVEL_NAMED_CODE_

// The name without its ORVEL_ prefix and family tag: ORVEL_DC_ACT_ACT is also DC_ACT_ACT and ACT_ACT.
bool parse_named_code(std::string_view s, int32_t& value) {
    for (const NamedCode& c : named_codes) {
        std::string_view n = c.name.substr(6);  // past "ORVEL_"
        const std::string_view tags[] = {"DC_", "MKT_"};
        const bool match = s == c.name || s == n ||
                           std::any_of(std::begin(tags), std::end(tags), [&](std::string_view t) {
                               return n.starts_with(t) && s == n.substr(t.size());
                           });
        if (match) {
            value = c.value;
            return true;
        }
    }
    return false;
}

bool parse_code(std::string_view s, int32_t& value) { return parse_int(s, value) || parse_named_code(s, value); }

bool parse_real(std::string_view s, double& value) {
    if (!s.empty() && s.front() == '+') s.remove_prefix(1);
    const char* end = s.data() + s.size();
    auto [ptr, ec] = std::from_chars(s.data(), end, value);
    return !s.empty() && ec == std::errc() && ptr == end;
}

// Splits s on sep into exactly three parts.
bool three_parts(std::string_view s, char sep, std::string_view parts[3]) {
    for (int k = 0; k < 2; ++k) {
        const auto at = s.find(sep);
        if (at == std::string_view::npos) return false;
        parts[k] = s.substr(0, at);
        s.remove_prefix(at + 1);
    }
    parts[2] = s;
    return s.find(sep) == std::string_view::npos;
}

bool all_digits(std::string_view s) {
    return !s.empty() && std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// M/D/YYYY (any integers, so that invalid dates can be passed on purpose) or YYYY-MM-DD.
bool parse_date(std::string_view s, int32_t* mdy) {
    std::string_view p[3];
    if (three_parts(s, '/', p)) return parse_int(p[0], mdy[0]) && parse_int(p[1], mdy[1]) && parse_int(p[2], mdy[2]);
    if (three_parts(s, '-', p) && all_digits(p[0]) && all_digits(p[1]) && all_digits(p[2]))
        return parse_int(p[1], mdy[0]) && parse_int(p[2], mdy[1]) && parse_int(p[0], mdy[2]);
    return false;
}

template <class T, class Parse>
bool parse_list(std::string_view s, std::vector<T>& values, Parse parse_one) {
    if (s.size() >= 2 && s.front() == '[' && s.back() == ']') s = s.substr(1, s.size() - 2);
    values.clear();
    if (s.empty()) return true;
    while (true) {
        const auto at = s.find(',');
        T v{};
        if (!parse_one(s.substr(0, at), v)) return false;
        values.push_back(v);
        if (at == std::string_view::npos) return true;
        s.remove_prefix(at + 1);
    }
}

std::string describe_arg(const ExportSpec& e, int index) {
    return std::string("argument '") + e.arg_list[index].name + "' of " + e.name;
}

// Reads one typed word into the argument's parsed storage.
bool parse_word(const ExportSpec& e, int index, std::string_view word, ArgValue& v, std::string& error) {
    const Kind k = e.arg_list[index].kind;
    bool ok = false;
    if (k == Kind::I32 || k == Kind::IoI32) {
        v.ints0.assign(1, 0);
        ok = parse_code(word, v.ints0[0]);
    } else if (k == Kind::F64 || k == Kind::IoF64) {
        v.reals0.assign(1, 0.0);
        ok = parse_real(word, v.reals0[0]);
    } else if (k == Kind::Date || k == Kind::IoDate) {
        v.ints0.assign(3, 0);
        ok = parse_date(word, v.ints0.data());
    } else if (k == Kind::ArrI32 || k == Kind::IoArrI32) {
        ok = parse_list(word, v.ints0, parse_int);
    } else if (k == Kind::ArrF64 || k == Kind::IoArrF64) {
        ok = parse_list(word, v.reals0, parse_real);
    }
    if (!ok) error = describe_arg(e, index) + ": expected " + expected_form(k) + ", got '" + std::string(word) + "'";
    return ok;
}

// Sets every count argument from its arrays and sizes the arrays: an input list gives its count, a typed
// capacity (0..max_capacity) gives the size of the output arrays that it counts.
bool settle_counts(const ExportSpec& e, const std::vector<bool>& derived, std::vector<ArgValue>& args,
                   std::string& error) {
    for (int i = 0; i < e.arg_count; ++i) {
        const ArgSpec& a = e.arg_list[i];
        if (!exports::is_array(a.kind) || a.count_arg < 0) continue;
        ArgValue& count = args[static_cast<std::size_t>(a.count_arg)];
        if (is_input_array(a.kind)) {
            const ArgValue& list = args[static_cast<std::size_t>(i)];
            const auto n = static_cast<int32_t>(holds_reals(a.kind) ? list.reals0.size() : list.ints0.size());
            if (count.ints0.empty()) {
                count.ints0.assign(1, n);
            } else if (count.ints0[0] != n) {
                error = describe_arg(e, i) + ": expected " + std::to_string(count.ints0[0]) +
                        " elements like the other lists counted by '" + e.arg_list[a.count_arg].name + "', got " +
                        std::to_string(n);
                return false;
            }
        } else if (!derived[static_cast<std::size_t>(a.count_arg)]) {
            const int32_t n = count.ints0.empty() ? -1 : count.ints0[0];
            if (n < 0 || n > max_capacity) {
                error = describe_arg(e, a.count_arg) + ": expected a capacity 0.." + std::to_string(max_capacity) +
                        " for '" + a.name + "', got " + std::to_string(n);
                return false;
            }
        }
    }
    return true;
}

// Final storage of one argument once every count is known; every array buffer has at least one element so
// that the export never receives a null pointer.
void size_storage(const ExportSpec& e, int index, const std::vector<ArgValue>& args, ArgValue& v) {
    const ArgSpec& a = e.arg_list[index];
    if (exports::is_array(a.kind)) {
        const int32_t n = a.count_arg >= 0 ? args[static_cast<std::size_t>(a.count_arg)].ints0.at(0) : 0;
        v.length = n + a.count_offset;
        const auto size = static_cast<std::size_t>(std::max(v.length + (exports::grows(e, a) ? 1 : 0), 1));
        if (a.kind == Kind::OutChr) {
            v.text.assign(size, '\0');
        } else if (holds_reals(a.kind)) {
            if (is_input_array(a.kind) && a.count_offset > 0) v.reals0.insert(v.reals0.begin(), 0.0);
            v.reals0.resize(size, 0.0);
        } else {
            if (is_input_array(a.kind) && a.count_offset > 0) v.ints0.insert(v.ints0.begin(), 0);
            v.ints0.resize(size, 0);
        }
    } else if (is_date(a.kind)) {
        v.length = 3;
        v.ints0.resize(3, 0);
    } else if (a.kind != Kind::Err) {
        v.length = 1;
        if (holds_reals(a.kind)) v.reals0.resize(1, 0.0);
        else v.ints0.resize(1, 0);
    }
    v.ints = v.ints0;
    v.reals = v.reals0;
}

std::string csv_field(const std::string& s) {
    if (s.find_first_of(",\"\n") == std::string::npos) return s;
    std::string q = "\"";
    for (char c : s) {
        if (c == '"') q += '"';
        q += c;
    }
    return q + "\"";
}

// The value of an output or io argument after the call, as text.
// A table that the export may grow shows as many elements as its count holds after the call.
int32_t shown_length(const ExportSpec& e, const std::vector<ArgValue>& args, std::size_t i) {
    const ArgValue& v = args[i];
    if (!exports::grows(e, e.arg_list[i])) return v.length;
    const int32_t n = args[static_cast<std::size_t>(e.arg_list[i].count_arg)].ints.at(0);
    return std::clamp(n, 0, static_cast<int32_t>(std::max(v.ints.size(), v.reals.size())));
}

std::string value_text(const ArgSpec& a, const ArgValue& v, int digits, int32_t length) {
    if (a.kind == Kind::OutChr) {
        const auto end = std::find(v.text.begin(), v.text.begin() + std::max(v.length, 0), '\0');
        return std::string(v.text.begin(), end);
    }
    if (is_date(a.kind)) return format_date(v.ints[0], v.ints[1], v.ints[2]);
    std::string out;
    const int first = exports::is_array(a.kind) ? a.count_offset : 0;
    for (int k = first; k < length; ++k) {
        if (k > first) out += ',';
        const auto at = static_cast<std::size_t>(k);
        out += holds_reals(a.kind) ? format_double(v.reals[at], digits) : std::to_string(v.ints[at]);
    }
    return out;
}

std::string arg_form(const ArgSpec& a, const ExportSpec& e) {
    std::string s = std::string(a.name) + ":" + kind_name(a.kind);
    if (exports::is_array(a.kind)) {
        s += "[";
        s += a.count_arg >= 0 ? e.arg_list[a.count_arg].name : "?";
        if (a.count_offset > 0) s += "+" + std::to_string(a.count_offset);
        s += "]";
    }
    return s;
}

}  // namespace

void PreparedCall::fill_outputs(int32_t int_value, double real_value) {
    for (std::size_t i = 0; i < args_.size(); ++i) {
        const Kind k = entry_->arg_list[i].kind;
        if (!is_output(k) || k == Kind::OutChr) continue;
        std::fill(args_[i].ints0.begin(), args_[i].ints0.end(), int_value);
        std::fill(args_[i].reals0.begin(), args_[i].reals0.end(), real_value);
    }
}

bool PreparedCall::has_err() const {
    return entry_->arg_count > 0 && entry_->arg_list[entry_->arg_count - 1].kind == Kind::Err;
}

// Points every parameter slot at this call's storage. Called before each invoke, so a moved call stays valid.
void PreparedCall::bind() {
    for (std::size_t i = 0; i < args_.size(); ++i) {
        const ArgSpec& a = entry_->arg_list[i];
        ArgValue& v = args_[i];
        const int p = a.first_param;
        switch (a.kind) {
        case Kind::I32: frame_.i[p] = v.ints[0]; break;
        case Kind::F64: frame_.f[p] = v.reals[0]; break;
        case Kind::Date:
            for (int k = 0; k < 3; ++k) frame_.i[p + k] = v.ints[static_cast<std::size_t>(k)];
            break;
        case Kind::OutDate: case Kind::IoDate:
            for (int k = 0; k < 3; ++k) frame_.p[p + k] = &v.ints[static_cast<std::size_t>(k)];
            break;
        case Kind::OutChr: frame_.p[p] = v.text.data(); break;
        case Kind::Err: frame_.p[p] = &err_; break;
        default: frame_.p[p] = holds_reals(a.kind) ? static_cast<void*>(v.reals.data()) : v.ints.data(); break;
        }
    }
}

void PreparedCall::invoke() {
    for (ArgValue& v : args_) {
        std::copy(v.ints0.begin(), v.ints0.end(), v.ints.begin());
        std::copy(v.reals0.begin(), v.reals0.end(), v.reals.begin());
        std::fill(v.text.begin(), v.text.end(), '\0');
    }
    bind();
    err_ = err_before;
    frame_.ret_i = 0;
    frame_.ret_f = 0.0;
    entry_->call(frame_);
}

std::string PreparedCall::report() const {
    std::string out;
    if (entry_->result == exports::Result::I32) out += std::string(entry_->name) + " = " + std::to_string(result_i32()) + "\n";
    if (entry_->result == exports::Result::F64) out += std::string(entry_->name) + " = " + format_double(result_f64()) + "\n";
    for (std::size_t i = 0; i < args_.size(); ++i) {
        const ArgSpec& a = entry_->arg_list[i];
        if (is_output(a.kind) || is_io(a.kind))
            out += std::string(a.name) + " = " +
                   value_text(a, args_[i], spreadsheet_digits, shown_length(*entry_, args_, i)) + "\n";
    }
    if (has_err()) out += "err_code = " + std::to_string(err_) + " (" + error_text(err_) + ")\n";
    return out;
}

std::string PreparedCall::csv(int digits) const {
    std::string out = entry_->name;
    out += ',';
    if (entry_->result == exports::Result::I32) out += std::to_string(result_i32());
    if (entry_->result == exports::Result::F64) out += format_double(result_f64(), digits);
    for (std::size_t i = 0; i < args_.size(); ++i) {
        const ArgSpec& a = entry_->arg_list[i];
        if (is_output(a.kind) || is_io(a.kind))
            out += "," + csv_field(value_text(a, args_[i], digits, shown_length(*entry_, args_, i)));
    }
    out += ',';
    if (has_err()) out += std::to_string(err_);
    return out;
}

std::string PreparedCall::csv_header() const {
    std::string out = "function,result";
    for (const ArgSpec& a : entry_->args())
        if (is_output(a.kind) || is_io(a.kind)) out += std::string(",") + a.name;
    return out + ",err_code";
}

std::vector<std::string_view> split_words(std::string_view line) {
    line = line.substr(0, line.find('#'));
    std::vector<std::string_view> words;
    std::size_t at = 0;
    while (true) {
        at = line.find_first_not_of(" \t\r\n", at);
        if (at == std::string_view::npos) return words;
        const std::size_t end = line.find_first_of(" \t\r\n", at);
        words.push_back(line.substr(at, end == std::string_view::npos ? std::string_view::npos : end - at));
        if (end == std::string_view::npos) return words;
        at = end;
    }
}

const ExportSpec* find_export(std::string_view name) {
    // The table sorted by name once, for batches of many calls over several hundred exports.
    static const std::vector<const ExportSpec*> by_name = [] {
        std::vector<const ExportSpec*> v;
        for (const ExportSpec& e : exports::table()) v.push_back(&e);
        std::sort(v.begin(), v.end(), [](const ExportSpec* a, const ExportSpec* b) {
            return std::string_view(a->name) < std::string_view(b->name);
        });
        return v;
    }();
    const auto at = std::lower_bound(by_name.begin(), by_name.end(), name,
                                     [](const ExportSpec* e, std::string_view n) { return std::string_view(e->name) < n; });
    return at != by_name.end() && name == (*at)->name ? *at : nullptr;
}

bool parse(const std::vector<std::string_view>& words, PreparedCall& call, std::string& error) {
    if (words.empty()) {
        error = "no function named";
        return false;
    }
    const ExportSpec* e = find_export(words[0]);
    if (e == nullptr) {
        error = "unknown function '" + std::string(words[0]) + "' (orvel list shows every export)";
        return false;
    }
    return parse(*e, words, call, error);
}

bool parse(const ExportSpec& export_spec, const std::vector<std::string_view>& words, PreparedCall& call,
           std::string& error) {
    const ExportSpec* e = &export_spec;
    const std::vector<bool> derived = derived_counts(*e);
    int typed = 0;
    for (int i = 0; i < e->arg_count; ++i) typed += is_typed(*e, derived, i) ? 1 : 0;
    const int given = static_cast<int>(words.size()) - 1;
    if (given != typed) {
        error = std::string(e->name) + " takes " + std::to_string(typed) + " argument" + (typed == 1 ? "" : "s") +
                " (" + typed_signature(*e) + "), got " + std::to_string(given);
        return false;
    }
    std::vector<ArgValue> args(static_cast<std::size_t>(e->arg_count));
    int word = 1;
    for (int i = 0; i < e->arg_count; ++i) {
        ArgValue& v = args[static_cast<std::size_t>(i)];
        v.arg = &e->arg_list[i];
        if (!is_typed(*e, derived, i)) continue;
        v.token = word;
        if (!parse_word(*e, i, words[static_cast<std::size_t>(word)], v, error)) return false;
        ++word;
    }
    if (!settle_counts(*e, derived, args, error)) return false;
    for (int i = 0; i < e->arg_count; ++i) size_storage(*e, i, args, args[static_cast<std::size_t>(i)]);
    call.entry_ = e;
    call.args_ = std::move(args);
    call.err_before = 0;
    call.err_ = 0;
    return true;
}

bool parse_line(std::string_view line, PreparedCall& call, std::string& error) {
    return parse(split_words(line), call, error);
}

std::string format_double(double x, int digits) {
    // Not snprintf: what it prints depends on the C runtime (msvcrt's writes 1.#INF for inf); to_chars is
    // the C++ library's own code, one result on every platform.
    char buf[40];
    const auto [end, ec] = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::general, digits);
    return std::string(buf, ec == std::errc() ? end : buf);
}

std::string format_date(int32_t m, int32_t d, int32_t y) {
    return std::to_string(m) + "/" + std::to_string(d) + "/" + std::to_string(y);
}

std::string error_text(uint32_t number) {
    char buf[160];
    const int32_t n = err_2_text(static_cast<int32_t>(number), buf, static_cast<int32_t>(sizeof buf));
    if (n < static_cast<int32_t>(sizeof buf)) return buf;
    std::string long_text(static_cast<std::size_t>(n) + 1, '\0');
    err_2_text(static_cast<int32_t>(number), long_text.data(), n + 1);
    long_text.resize(static_cast<std::size_t>(n));
    return long_text;
}

std::string typed_signature(const ExportSpec& e) {
    const std::vector<bool> derived = derived_counts(e);
    std::string s;
    for (int i = 0; i < e.arg_count; ++i) {
        if (!is_typed(e, derived, i)) continue;
        const ArgSpec& a = e.arg_list[i];
        if (!s.empty()) s += ' ';
        s += std::string(a.name) + ":" + kind_name(a.kind) + (exports::is_array(a.kind) ? "[]" : "");
    }
    return s.empty() ? "none" : s;
}

std::string listed_signature(const ExportSpec& e) {
    static const char* const results[] = {"void", "i32", "f64"};
    std::string s = std::string(e.name) + " " + results[static_cast<int>(e.result)];
    for (const ArgSpec& a : e.args()) s += " " + arg_form(a, e);
    return s;
}

}  // namespace orvel::callkit
