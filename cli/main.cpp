// orvel: list and call the library's exports from the command line.
#include <cstdio>
#include <cstring>

#include "export_table.h"

int main(int argc, char** argv) {
    if (argc >= 2 && std::strcmp(argv[1], "list") == 0) {
        for (const auto& e : orvel::exports::table()) std::printf("%s\n", e.name);
        return 0;
    }
    std::fprintf(stderr, "usage: orvel list\n");
    return 2;
}
