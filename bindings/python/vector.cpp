// The vectorised entry point of the Python package: one C call runs an export over whole columns, so that
// a million bonds cost what a million C calls cost. It lives in its own library (liborvel_vector.so),
// outside the module's exported set, and reaches the exports through the generated export table.
#include <cstdint>
#include <cstring>

#include "export_table.h"

namespace {

using orvel::exports::ExportSpec;
using orvel::exports::Frame;
using orvel::exports::Kind;

bool vectorizable(const ExportSpec& e) {
    for (const auto& a : e.args())
        if (orvel::exports::is_array(a.kind)) return false;
    return true;
}

}  // namespace

// Runs export `name` over `rows` rows. columns[k] is the column of C parameter k: int32 or double values
// for an input (stride 1, or 0 to repeat one value), an int32 or double array of `rows` to write for an
// output, the uint32 err_code column for err_code (zeroed before each call). io values are read from and
// written back to their column. The result goes to `result` (double; an int32 result converted), when
// not null. Returns 0, -1 for an unknown name, -2 for an export with array arguments.
extern "C" __attribute__((visibility("default"))) int32_t orvel_vector_call(const char* name, int64_t rows,
                                                                            void* const* columns,
                                                                            const int64_t* strides, double* result) {
    const ExportSpec* e = orvel::exports::find(name);
    if (e == nullptr) return -1;
    if (!vectorizable(*e)) return -2;
    Frame f;
    for (int64_t r = 0; r < rows; ++r) {
        for (const auto& a : e->args()) {
            for (int k = a.first_param; k < a.first_param + orvel::exports::params_of(a.kind); ++k) {
                const int64_t at = r * strides[k];
                switch (a.kind) {
                case Kind::I32: case Kind::Date: f.i[k] = static_cast<const int32_t*>(columns[k])[at]; break;
                case Kind::F64: f.f[k] = static_cast<const double*>(columns[k])[at]; break;
                case Kind::OutI32: case Kind::IoI32: case Kind::OutDate: case Kind::IoDate:
                    f.p[k] = static_cast<int32_t*>(columns[k]) + r;
                    break;
                case Kind::OutF64: case Kind::IoF64: f.p[k] = static_cast<double*>(columns[k]) + r; break;
                case Kind::Err:
                    static_cast<uint32_t*>(columns[k])[r] = 0;
                    f.p[k] = static_cast<uint32_t*>(columns[k]) + r;
                    break;
                default: break;
                }
            }
        }
        e->call(f);
        if (result != nullptr)
            result[r] = e->result == orvel::exports::Result::I32 ? static_cast<double>(f.ret_i) : f.ret_f;
    }
    return 0;
}
