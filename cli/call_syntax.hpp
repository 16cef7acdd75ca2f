// The call syntax of the orvel command: one export called by name with its arguments written out.
//
//   d_trunc_rnd 1.23456 3 1
//   ok_MDY 2/29/1900 0                 dates as M/D/YYYY or YYYY-MM-DD, blank date 0/0/0
//   some_fn 3 1.5,2.5,3.5              arrays as comma-separated lists ([] is an empty list)
//
// Output pointers and err_code are never typed. The count argument of an input array is taken from the
// list's length (arrays sharing one count must have equal lengths); the capacity of an output array is
// typed (0..100000). An io argument is typed and reported after the call. A 1-based table (count n,
// n + 1 elements) is typed and reported as its n elements 1..n; element 0 is passed as 0.
//
// parse() does every allocation the call needs; invoke() then calls the export without allocating, and may
// be repeated: each invoke starts from the parsed inputs again. One PreparedCall per thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "export_table.h"

namespace orvel::callkit {

inline constexpr int32_t max_capacity = 100000;
// Significant digits of a double as a spreadsheet shows it, and enough to give back the same double.
inline constexpr int spreadsheet_digits = 15;
inline constexpr int exact_digits = 17;

// Storage of one argument: the value as parsed (or the initial content of an output) and the working copy
// that the export reads and writes.
struct ArgValue {
    const exports::ArgSpec* arg = nullptr;
    int token = -1;                 // index of its typed word (words[0] is the name); -1 when not typed
    int32_t length = 0;             // elements the caller sees (arrays), 1 or 3 for scalars and dates
    std::vector<int32_t> ints0, ints;
    std::vector<double> reals0, reals;
    std::vector<char> text;
};

class PreparedCall {
public:
    PreparedCall() = default;
    PreparedCall(const PreparedCall&) = delete;
    PreparedCall& operator=(const PreparedCall&) = delete;
    PreparedCall(PreparedCall&&) = default;
    PreparedCall& operator=(PreparedCall&&) = default;

    const exports::ExportSpec& entry() const { return *entry_; }
    std::vector<ArgValue>& args() { return args_; }
    const std::vector<ArgValue>& args() const { return args_; }

    // Initial content of every output (not io) argument before each invoke; 0 unless changed here.
    void fill_outputs(int32_t int_value, double real_value);
    uint32_t err_before = 0;  // err_code as the caller sets it before each invoke

    // Calls the export. Allocates nothing.
    void invoke();

    int32_t result_i32() const { return frame_.ret_i; }
    double result_f64() const { return frame_.ret_f; }
    bool has_err() const;
    uint32_t err_code() const { return err_; }
    bool failed() const { return has_err() && err_ != 0; }

    // The report: "name = value" lines (result, outputs, io values, err_code with its meaning).
    std::string report() const;
    // One CSV line: function, result, each output and io value, err_code (fields holding commas quoted);
    // doubles with that many significant digits.
    std::string csv(int digits = spreadsheet_digits) const;
    // The header row of csv(): function,result, the names of the outputs and io arguments, err_code.
    std::string csv_header() const;

private:
    friend bool parse(const exports::ExportSpec& e, const std::vector<std::string_view>& words, PreparedCall& call,
                      std::string& error);
    void bind();

    const exports::ExportSpec* entry_ = nullptr;
    std::vector<ArgValue> args_;
    exports::Frame frame_{};
    uint32_t err_ = 0;
};

// Words of a line, split on blanks and tabs; '#' starts a comment.
std::vector<std::string_view> split_words(std::string_view line);

// words[0] is the export's name, the rest its typed arguments. On failure returns false and sets error to a
// message naming the argument and what was expected.
bool parse(const std::vector<std::string_view>& words, PreparedCall& call, std::string& error);
// The same for a given export (words[0], its name, is not read): lets tests prepare calls of exports of their own making.
bool parse(const exports::ExportSpec& e, const std::vector<std::string_view>& words, PreparedCall& call,
           std::string& error);
bool parse_line(std::string_view line, PreparedCall& call, std::string& error);

// A double as printf's %.{digits}g prints it in the C locale (nan, inf, -inf as such), digits 1..17; the
// same characters on every platform and runtime.
std::string format_double(double x, int digits = spreadsheet_digits);
std::string format_date(int32_t m, int32_t d, int32_t y);
std::string error_text(uint32_t number);

// The export of that name, or nullptr.
const exports::ExportSpec* find_export(std::string_view name);

// The typed form of an export's arguments, e.g. "num:f64 places:i32 rnd:i32".
std::string typed_signature(const exports::ExportSpec& e);
// The export as the list has it, e.g. "d_trunc_rnd f64 num:f64 places:i32 rnd:i32".
std::string listed_signature(const exports::ExportSpec& e);

}  // namespace orvel::callkit
