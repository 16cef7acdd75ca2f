// orvel: list and call the library's exports from the command line, one at a time or in a batch.
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "call_syntax.hpp"

namespace {

namespace ck = orvel::callkit;

constexpr int exit_ok = 0;
constexpr int exit_call_failed = 1;
constexpr int exit_usage = 2;

const char* const usage_text =
    "usage: orvel list [PREFIX]        every export (or those whose name starts with PREFIX) with its arguments\n"
    "       orvel call NAME ARG...     call one export and print its result, outputs and err_code\n"
    "       orvel batch [--exact] [--header]\n"
    "                                  one call a line on stdin, one CSV line of results a call on stdout;\n"
    "                                  --header: a header row before the first call of each function\n"
    "       orvel --help               this text\n"
    "\n"
    "Arguments are typed in the export's order (orvel list shows it):\n"
    "  integers and numbers as written (nan, inf and -inf are numbers too); a code may be given by its\n"
    "  name in orvel/conventions.h, with or without ORVEL_ (ACT_ACT, ORVEL_DC_ACT_360, SEMIANNUAL, UKGB)\n"
    "  dates as M/D/YYYY or YYYY-MM-DD, a blank date as 0/0/0\n"
    "  arrays as comma-separated lists without blanks (1.5,2,3), an empty list as []\n"
    "Output pointers and err_code are not typed. The count of an input array comes from the list's\n"
    "length; the capacity of an output array is typed (0..100000). io values are typed and printed after.\n"
    "\n"
    "Exit status: 0 the call succeeded, 1 it set err_code, 2 usage error.\n"
    "\n"
    "Examples:\n"
    "  orvel call ZEBA_vers\n"
    "  orvel call d_trunc_rnd 1.23456 3 1\n"
    "  orvel call rslt_fix_plc 9 2 1.5\n"
    "  orvel call ok_MDY 2/29/1900 0\n"
    "  orvel call err_2_text 2171 100\n"
    "  orvel call get_sec_dflt UKGB -1 -1 -1 -1 -1 -1 -1 -1 -1 -1\n"
    "  orvel list ok_\n"
    "  printf 'd_trunc_rnd 2.5 0 1\\nok_cpn_freq 3\\n' | orvel batch\n"
    "\n"
    "batch prints function,result,outputs...,err_code for each call (an empty field where there is no\n"
    "result or err_code) and error,LINE,\"message\" for a line that does not parse; '#' starts a comment.\n"
    "Doubles show 15 significant digits; batch --exact shows 17, which give back the very same double.\n";

int usage(const std::string& message) {
    std::fprintf(stderr, "orvel: %s\n(orvel --help shows the usage)\n", message.c_str());
    return exit_usage;
}

int list(std::string_view prefix) {
    for (const auto& e : orvel::exports::table())
        if (std::string_view(e.name).substr(0, prefix.size()) == prefix)
            std::printf("%s\n", ck::listed_signature(e).c_str());
    return exit_ok;
}

int call(int argc, char** argv) {
    if (argc < 3) return usage("call: name a function (orvel list shows every export)");
    std::vector<std::string_view> words(argv + 2, argv + argc);
    ck::PreparedCall prepared;
    std::string error;
    if (!ck::parse(words, prepared, error)) return usage(error);
    prepared.invoke();
    std::fputs(prepared.report().c_str(), stdout);
    return prepared.failed() ? exit_call_failed : exit_ok;
}

// Reads all of stdin; a batch is at most a few megabytes.
std::string read_stdin() {
    std::string all;
    char buf[1 << 16];
    std::size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, stdin)) > 0) all.append(buf, n);
    return all;
}

// With `header`, a CSV header row (function,result,outputs...,err_code) before the first call and before
// every call of another function than the line before.
int batch(int digits, bool header) {
    const std::string input = read_stdin();
    std::string out;
    out.reserve(1 << 20);
    bool any_bad = false;
    std::size_t at = 0;
    ck::PreparedCall prepared;
    std::string error;
    std::string_view last_function;
    for (int number = 1; at < input.size(); ++number) {
        std::size_t end = input.find('\n', at);
        if (end == std::string::npos) end = input.size();
        const auto words = ck::split_words(std::string_view(input).substr(at, end - at));
        at = end + 1;
        if (words.empty()) continue;
        if (ck::parse(words, prepared, error)) {
            if (header && prepared.entry().name != last_function) {
                last_function = prepared.entry().name;
                out += prepared.csv_header() + '\n';
            }
            prepared.invoke();
            out += prepared.csv(digits);
        } else {
            any_bad = true;
            std::string quoted;
            for (char c : error) quoted += (c == '"') ? std::string("\"\"") : std::string(1, c);
            out += "error," + std::to_string(number) + ",\"" + quoted + "\"";
        }
        out += '\n';
        if (out.size() > (1u << 20)) {
            std::fwrite(out.data(), 1, out.size(), stdout);
            out.clear();
        }
    }
    std::fwrite(out.data(), 1, out.size(), stdout);
    return any_bad ? exit_usage : exit_ok;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view command = argc >= 2 ? argv[1] : "";
    if (argc < 2) {  // no command: the usage, as an error
        std::fputs(usage_text, stderr);
        return exit_usage;
    }
    if (command == "--help" || command == "-h" || command == "help") {
        std::fputs(usage_text, stdout);
        return exit_ok;
    }
    if (command == "list") {
        if (argc > 3) return usage("list takes at most one PREFIX");
        return list(argc == 3 ? argv[2] : "");
    }
    if (command == "call") return call(argc, argv);
    if (command == "batch") {
        bool exact = false, header = false;
        for (int i = 2; i < argc; ++i) {
            const std::string_view option = argv[i];
            if (option == "--exact") exact = true;
            else if (option == "--header") header = true;
            else return usage("batch reads its calls from stdin and takes no argument but --exact and --header");
        }
        return batch(exact ? ck::exact_digits : ck::spreadsheet_digits, header);
    }
    return usage("unknown command '" + std::string(command) + "': expected list, call or batch");
}
