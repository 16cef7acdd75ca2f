// libFuzzer target over every export of the table: the input picks an export and fills its arguments.
//
// Input layout (read front to back; once the input runs out every further byte reads as 0):
//   selector   a byte L; L in 1..48 is followed by L bytes of an export name (an unknown name picks the
//              export at its hash), L = 0 or 49..254 by two bytes of an index into the table; L = 255 is
//              the rounding branch instead (below)
//   scalars    every non-array argument in list order:
//                i32       tag byte, then the value (see read_i32); the arguments that count an array take
//                          one byte as int8 % 65 (-64..64), except that the bytes 0x80..0x8f are followed
//                          by two bytes for a long count of 900..1149 (past the 1000-date bound of the
//                          date lists); `validate` one byte (0, 1 or -1)
//                f64       tag byte, then the value (see read_f64)
//                date      tag byte, then the three parts (see read_date); io dates alike
//                outputs   nothing (filled with a sentinel)
//   arrays     every array argument in list order, as many elements as its count (count + 1 for 1-based
//              tables and for tables counted by an io count, none for a negative count), each element as an i32 or f64 scalar; an array of more
//              than 64 elements as a byte k, k % 8 + 1 elements repeated through the array, then two bytes
//              of an index (modulo its length) and the element put there (a long list of good dates with
//              one bad date anywhere takes a few bytes)
// fuzz/make_corpus.py writes seeds in this layout from the sample calls.
//
// The rounding branch (selector 255): 8 bytes of a double's bit pattern, 4 of places, 4 of rnd, each taken
// whole, so d_trunc_rnd meets every double (denormals, infinities, NaN payloads) and every int32 places;
// besides any sanitizer report, it aborts when the result breaks its documented contract (see
// check_trunc_rnd).
//
// Every array, output and err_code lives in its own heap block of exactly the documented size, so
// AddressSanitizer reports a write one element past a caller's array.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <string_view>
#include <vector>

#include "export_table.h"
#include "orvel/frame.h"

namespace {

using orvel::exports::ArgSpec;
using orvel::exports::ExportSpec;
using orvel::exports::Frame;
using orvel::exports::Kind;

constexpr int32_t max_count = 64;
constexpr int32_t long_count = 900;  // long counts are 900..1149
constexpr int32_t sentinel_i32 = -7777777;
constexpr double sentinel_f64 = -7777777.25;

class Input {
public:
    Input(const uint8_t* data, size_t size) : data_(data), size_(size) {}

    uint8_t byte() { return pos_ < size_ ? data_[pos_++] : 0; }

    template <class T>
    T raw() {
        unsigned char bytes[sizeof(T)] = {};
        for (unsigned char& b : bytes) b = byte();
        T value;
        std::memcpy(&value, bytes, sizeof(T));
        return value;
    }

    int32_t read_i32() {
        switch (byte() % 8) {
            case 0: return raw<int32_t>();
            case 1: return static_cast<int8_t>(byte());
            case 2: return -1;
            case 3: return 0;
            case 4: return 1;
            case 5: return std::numeric_limits<int32_t>::min();
            case 6: return std::numeric_limits<int32_t>::max();
            default: return raw<uint16_t>();
        }
    }

    double read_f64() {
        switch (byte() % 16) {
            case 0: return raw<double>();
            case 1: return std::numeric_limits<double>::quiet_NaN();
            case 2: return std::numeric_limits<double>::infinity();
            case 3: return -std::numeric_limits<double>::infinity();
            case 4: return 0.0;
            case 5: return -0.0;
            case 6: return 1e308;
            case 7: return -1e308;
            case 8: return std::numeric_limits<double>::denorm_min();
            case 9: return static_cast<int8_t>(byte());
            case 10: return raw<int16_t>() / 100.0;  // -327.68 .. 327.67: rates, yields, prices
            case 11: return raw<uint16_t>();
            case 12: return 1e-12;
            case 13: return std::numeric_limits<double>::max();
            case 14: return -std::numeric_limits<double>::max();
            default: return 3e9;  // beyond int32 when truncated
        }
    }

    // Dates near the valid range (1800..2300) and across it, blank dates, and extremes.
    void read_date(int32_t& m, int32_t& d, int32_t& y) {
        switch (byte() % 8) {
            case 0: m = raw<int32_t>(); d = raw<int32_t>(); y = raw<int32_t>(); return;
            case 1:  // every part just around its valid range
                m = byte() % 15 - 1;
                d = byte() % 34 - 1;
                y = 1790 + raw<uint16_t>() % 521;
                return;
            case 2: m = 1 + byte() % 12; d = 1 + byte() % 28; y = 1800 + raw<uint16_t>() % 501; return;
            case 3: m = 0; d = 0; y = 0; return;
            case 4: m = 0; d = 0; y = 1900; return;
            case 5: m = 0; d = 0; y = 2000; return;
            case 6: m = read_i32(); d = read_i32(); y = read_i32(); return;
            default:  // month ends, leap days and the edges of the year range
                m = 1 + byte() % 12;
                d = 28 + byte() % 4;
                y = (byte() & 1) ? 1800 + raw<uint16_t>() % 501 : 2300 - byte() % 4;
                return;
        }
    }

    int32_t read_count() {
        const uint8_t b = byte();
        if (b >= 0x80 && b <= 0x8f) return long_count + raw<uint16_t>() % 250;
        return static_cast<int8_t>(b) % (max_count + 1);
    }

    int32_t read_validate() {
        switch (byte() % 3) {
            case 0: return 0;
            case 1: return 1;
            default: return -1;
        }
    }

private:
    const uint8_t* data_;
    size_t size_;
    size_t pos_ = 0;
};

uint32_t hash_name(std::string_view name) {
    uint32_t h = 2166136261u;
    for (char c : name) h = (h ^ static_cast<unsigned char>(c)) * 16777619u;
    return h;
}

const ExportSpec& pick_export(Input& in) {
    const auto table = orvel::exports::table();
    const uint8_t length = in.byte();
    if (length == 0 || length > 48) return table[in.raw<uint16_t>() % table.size()];
    char name[49] = {};
    for (int k = 0; k < length; ++k) name[k] = static_cast<char>(in.byte());
    if (const ExportSpec* e = orvel::exports::find(std::string_view(name, length))) return *e;
    return table[hash_name(std::string_view(name, length)) % table.size()];
}

bool is_count(const ExportSpec& e, int index) {
    for (const ArgSpec& a : e.args())
        if (orvel::exports::is_array(a.kind) && a.count_arg == index) return true;
    return false;
}

// Owns every block that the call reads or writes; each block is a separate allocation of its exact size.
class Arguments {
public:
    void* i32_block(size_t n, int32_t fill) { return block(ints_, n, fill); }
    void* f64_block(size_t n, double fill) { return block(doubles_, n, fill); }
    void* chr_block(size_t n) { return block(chars_, n, 'Z'); }

    // A read-only array: its content is kept to show afterwards that the call left it alone.
    void keep_input(const char* name, const void* p, size_t bytes) {
        const auto* b = static_cast<const unsigned char*>(p);
        inputs_.push_back({name, p, std::vector<unsigned char>(b, b + bytes)});
    }
    // The name of a read-only array that the call changed, or null.
    const char* changed_input() const {
        for (const Kept& k : inputs_)
            if (!k.copy.empty() && std::memcmp(k.p, k.copy.data(), k.copy.size()) != 0) return k.name;
        return nullptr;
    }

private:
    template <class T>
    static T* block(std::vector<std::unique_ptr<T[]>>& blocks, size_t n, T fill) {
        blocks.push_back(std::make_unique<T[]>(n));
        std::fill_n(blocks.back().get(), n, fill);
        return blocks.back().get();
    }
    std::vector<std::unique_ptr<int32_t[]>> ints_;
    std::vector<std::unique_ptr<double[]>> doubles_;
    std::vector<std::unique_ptr<char[]>> chars_;
    struct Kept {
        const char* name;
        const void* p;
        std::vector<unsigned char> copy;
    };
    std::vector<Kept> inputs_;
};

void fill_scalar(Input& in, const ExportSpec& e, int index, Frame& f, Arguments& args) {
    const ArgSpec& a = e.arg_list[index];
    const int k = a.first_param;
    switch (a.kind) {
        case Kind::I32:
            if (is_count(e, index)) f.i[k] = in.read_count();
            else if (std::string_view(a.name) == "validate") f.i[k] = in.read_validate();
            else f.i[k] = in.read_i32();
            return;
        case Kind::F64: f.f[k] = in.read_f64(); return;
        case Kind::Date: in.read_date(f.i[k], f.i[k + 1], f.i[k + 2]); return;
        case Kind::OutI32: f.p[k] = args.i32_block(1, sentinel_i32); return;
        case Kind::OutF64: f.p[k] = args.f64_block(1, sentinel_f64); return;
        case Kind::IoI32: f.p[k] = args.i32_block(1, is_count(e, index) ? in.read_count() : in.read_i32()); return;
        case Kind::IoF64: f.p[k] = args.f64_block(1, in.read_f64()); return;
        case Kind::OutDate:
            for (int j = 0; j < 3; ++j) f.p[k + j] = args.i32_block(1, sentinel_i32);
            return;
        case Kind::IoDate: {
            int32_t m, d, y;
            in.read_date(m, d, y);
            f.p[k] = args.i32_block(1, m);
            f.p[k + 1] = args.i32_block(1, d);
            f.p[k + 2] = args.i32_block(1, y);
            return;
        }
        case Kind::Err: f.p[k] = args.i32_block(1, 0); return;
        default: return;  // arrays: second pass
    }
}

// The elements of an input array: one by one, or for a long array a repeated pattern and one element put
// at a chosen index (see the input layout).
template <class T, class Read>
void fill_elements(Input& in, T* p, size_t n, Read read) {
    if (n <= static_cast<size_t>(max_count) + 1) {
        for (size_t j = 0; j < n; ++j) p[j] = read();
        return;
    }
    T pattern[8];
    const size_t k = in.byte() % 8 + 1;
    for (size_t j = 0; j < k; ++j) pattern[j] = read();
    for (size_t j = 0; j < n; ++j) p[j] = pattern[j % k];
    const size_t at = in.raw<uint16_t>() % n;
    p[at] = read();
}

// The count of an array as the call sees it before it runs (an io count through its pointer).
int32_t count_of(const ExportSpec& e, const ArgSpec& a, const Frame& f) {
    const ArgSpec& c = e.arg_list[a.count_arg];
    return c.kind == Kind::IoI32 ? *static_cast<const int32_t*>(f.p[c.first_param]) : f.i[c.first_param];
}

void fill_array(Input& in, const ExportSpec& e, int index, Frame& f, Arguments& args) {
    const ArgSpec& a = e.arg_list[index];
    const int32_t count = count_of(e, a, f);
    const size_t n = count < 0 ? 0 : static_cast<size_t>(count + a.count_offset + (orvel::exports::grows(e, a) ? 1 : 0));
    const int k = a.first_param;
    switch (a.kind) {
        case Kind::ArrI32:
        case Kind::IoArrI32: {
            auto* p = static_cast<int32_t*>(args.i32_block(n, 0));
            fill_elements(in, p, n, [&in] { return in.read_i32(); });
            if (a.kind == Kind::ArrI32) args.keep_input(a.name, p, n * sizeof *p);
            f.p[k] = p;
            return;
        }
        case Kind::ArrF64:
        case Kind::IoArrF64: {
            auto* p = static_cast<double*>(args.f64_block(n, 0.0));
            fill_elements(in, p, n, [&in] { return in.read_f64(); });
            if (a.kind == Kind::ArrF64) args.keep_input(a.name, p, n * sizeof *p);
            f.p[k] = p;
            return;
        }
        case Kind::OutArrI32: f.p[k] = args.i32_block(n, sentinel_i32); return;
        case Kind::OutArrF64: f.p[k] = args.f64_block(n, sentinel_f64); return;
        case Kind::OutChr: f.p[k] = args.chr_block(n); return;
        default: return;
    }
}

// The one contract that a fuzzer can check on any input: a call that sets err_code returns 0.
// rslt_fix_plc and hol_maint are the documented exceptions (the unrounded result with its error; the
// table's count with 5302, a holiday already in it).
void check_failure_returns_zero(const ExportSpec& e, const Frame& f) {
    if (e.arg_count == 0 || e.arg_list[e.arg_count - 1].kind != Kind::Err) return;
    if (std::string_view(e.name) == "rslt_fix_plc" || std::string_view(e.name) == "hol_maint") return;
    const auto* err = static_cast<const uint32_t*>(f.p[e.arg_list[e.arg_count - 1].first_param]);
    if (*err == 0) return;
    const bool zero = e.result == orvel::exports::Result::I32   ? f.ret_i == 0
                      : e.result == orvel::exports::Result::F64 ? f.ret_f == 0.0
                                                                 : true;
    if (!zero) {
        std::fprintf(stderr, "%s set err_code %u but returned %d / %.17g\n", e.name, *err, f.ret_i, f.ret_f);
        std::abort();
    }
}

const bool tracing = std::getenv("ORVEL_FUZZ_TRACE") != nullptr;

// d_trunc_rnd's contract on any input: a non-finite num comes back as it is; a finite one gives a finite
// result of num's sign within one step of the places' grid (a step of 1 for negative places, none beyond
// 400 places) plus a few ulps of num, and truncation does not grow the magnitude beyond those ulps.
void check_trunc_rnd(Input& in) {
    const double num = in.raw<double>();
    const int32_t places = in.raw<int32_t>();
    const int32_t rnd = in.raw<int32_t>();
    if (tracing) std::fprintf(stderr, "d_trunc_rnd %.17g %d %d\n", num, places, rnd);
    const double r = d_trunc_rnd(num, places, rnd);
    const double a = std::fabs(num);
    const double grid = places < 0 ? 1.0 : places > 400 ? 0.0 : std::pow(10.0, -static_cast<double>(places));
    const double slack = 4 * (std::nextafter(a, std::numeric_limits<double>::infinity()) - a);
    const bool ok = !std::isfinite(num) ? std::memcmp(&r, &num, sizeof r) == 0
                                        : std::isfinite(r) && std::signbit(r) == std::signbit(num) &&
                                              std::fabs(r - num) <= grid + slack &&
                                              (rnd != 0 || std::fabs(r) <= a + slack);
    if (!ok) {
        std::fprintf(stderr, "d_trunc_rnd(%a, %d, %d) = %a\n", num, places, rnd, r);
        std::abort();
    }
}

// The decoded call in the command-line tool's syntax (ORVEL_FUZZ_TRACE=1), to replay a finding with
// `orvel call` and to check that a seed decodes to its sample line. Arrays print after the scalars.
void trace(const ExportSpec& e, const Frame& f) {
    std::fprintf(stderr, "%s", e.name);
    for (const ArgSpec& a : e.args()) {
        const int k = a.first_param;
        switch (a.kind) {
            case Kind::I32: std::fprintf(stderr, " %d", f.i[k]); break;
            case Kind::F64: std::fprintf(stderr, " %.17g", f.f[k]); break;
            case Kind::Date: std::fprintf(stderr, " %d/%d/%d", f.i[k], f.i[k + 1], f.i[k + 2]); break;
            case Kind::IoI32: std::fprintf(stderr, " %d", *static_cast<const int32_t*>(f.p[k])); break;
            case Kind::IoF64: std::fprintf(stderr, " %.17g", *static_cast<const double*>(f.p[k])); break;
            case Kind::IoDate:
                std::fprintf(stderr, " %d/%d/%d", *static_cast<const int32_t*>(f.p[k]),
                             *static_cast<const int32_t*>(f.p[k + 1]), *static_cast<const int32_t*>(f.p[k + 2]));
                break;
            case Kind::ArrI32:
            case Kind::IoArrI32:
            case Kind::ArrF64:
            case Kind::IoArrF64: {
                const int32_t count = count_of(e, a, f);
                const int32_t n = count < 0 ? 0 : count + a.count_offset;
                std::fprintf(stderr, " ");
                for (int32_t j = 0; j < n; ++j) {
                    if (a.kind == Kind::ArrI32 || a.kind == Kind::IoArrI32)
                        std::fprintf(stderr, "%s%d", j ? "," : "", static_cast<const int32_t*>(f.p[k])[j]);
                    else
                        std::fprintf(stderr, "%s%.17g", j ? "," : "", static_cast<const double*>(f.p[k])[j]);
                }
                break;
            }
            default: break;
        }
    }
    std::fprintf(stderr, "\n");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > 0 && data[0] == 255) {
        Input rounding(data + 1, size - 1);
        check_trunc_rnd(rounding);
        return 0;
    }
    Input in(data, size);
    const ExportSpec& e = pick_export(in);
    Frame f;
    Arguments args;
    for (int j = 0; j < e.arg_count; ++j) fill_scalar(in, e, j, f, args);
    for (int j = 0; j < e.arg_count; ++j)
        if (orvel::exports::is_array(e.arg_list[j].kind)) fill_array(in, e, j, f, args);
    if (tracing) trace(e, f);
    e.call(f);
    check_failure_returns_zero(e, f);
    if (const char* name = args.changed_input()) {
        std::fprintf(stderr, "%s wrote into its read-only array %s\n", e.name, name);
        std::abort();
    }
    return 0;
}
