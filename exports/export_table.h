// The export list as data: every export's name, argument kinds and a thunk that calls it from a frame of
// slots. The command-line tool, the tests and the fuzzer enumerate the exports through this table only;
// the table itself is generated from exports/*.list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "orvel/orvel.h"

namespace orvel::exports {

enum class Kind : uint8_t {
    I32, F64, Date,               // by value (a date is three int32 parameters)
    OutI32, OutF64, IoI32, IoF64, // one value through a pointer
    OutDate, IoDate,              // three int32 pointers
    ArrI32, ArrF64,               // caller arrays read; count given by another argument
    OutArrI32, OutArrF64, IoArrI32, IoArrF64,
    OutChr,                       // caller text buffer
    Err,                          // err_code, always last
};

enum class Result : uint8_t { Void, I32, F64 };

struct ArgSpec {
    const char* name;
    Kind kind;
    int first_param;   // index of its first C parameter
    int count_arg;     // for arrays: index (in the argument list) of the count argument, else -1; an IoI32
                       // count is a table the export may grow by one entry: room for count + 1 elements
    int count_offset;  // elements beyond the count (1 for 1-based tables)
};

// One slot per C parameter; a thunk reads the slot that matches the parameter's type.
inline constexpr int max_params = 64;
struct Frame {
    int32_t i[max_params]{};
    double f[max_params]{};
    void* p[max_params]{};
    int32_t ret_i = 0;
    double ret_f = 0.0;
};

struct ExportSpec {
    const char* name;
    const char* section;
    Result result;
    const ArgSpec* arg_list;
    int arg_count;
    int param_count;
    int stack_bytes;  // N of the decorated name _name@N
    void (*call)(Frame&);

    std::span<const ArgSpec> args() const { return {arg_list, static_cast<std::size_t>(arg_count)}; }
};

inline constexpr int params_of(Kind k) {
    return (k == Kind::Date || k == Kind::OutDate || k == Kind::IoDate) ? 3 : 1;
}
inline constexpr bool is_array(Kind k) {
    return k == Kind::ArrI32 || k == Kind::ArrF64 || k == Kind::OutArrI32 || k == Kind::OutArrF64 ||
           k == Kind::IoArrI32 || k == Kind::IoArrF64 || k == Kind::OutChr;
}

#include "export_table.inc"

// An array counted by an io count: the export may add one element, so the caller gives one more.
inline bool grows(const ExportSpec& e, const ArgSpec& a) {
    return is_array(a.kind) && a.count_arg >= 0 && e.arg_list[a.count_arg].kind == Kind::IoI32;
}

inline constexpr std::span<const ExportSpec> table() { return all_exports; }

inline const ExportSpec* find(std::string_view name) {
    for (const ExportSpec& e : all_exports)
        if (name == e.name) return &e;
    return nullptr;
}

}  // namespace orvel::exports
