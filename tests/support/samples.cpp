#include "samples.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "call_syntax.hpp"

namespace orvel::testkit {

std::vector<Sample> read_samples(const std::string& folder) {
    std::vector<std::filesystem::path> files;
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ec))
        if (entry.path().extension() == ".calls") files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    std::vector<Sample> samples;
    for (const auto& path : files) {
        std::ifstream in(path);
        std::string line;
        for (int number = 1; std::getline(in, line); ++number) {
            line = line.substr(0, line.find("=>"));  // the expected output, checked by tools/check_calls.py
            const auto words = callkit::split_words(line);
            if (words.empty()) continue;
            const auto first = words.front().data() - line.data();
            const auto last = words.back().data() + words.back().size() - line.data();
            samples.push_back({path.filename().string(), number, line.substr(static_cast<std::size_t>(first),
                                                                             static_cast<std::size_t>(last - first))});
        }
    }
    return samples;
}

std::string samples_folder() { return ORVEL_CALLS_DIR; }

}  // namespace orvel::testkit
