// Runs a fuzz target over files, where no fuzzer is available: Replay... FOLDER-OR-FILE ...

#include "fuzz/Fuzz.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::set<fs::path> FilesAt(const fs::path& path) {
    if (!fs::is_directory(path)) return {path};
    std::set<fs::path> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path))
        if (entry.is_regular_file()) files.insert(entry.path());
    return files;
}

} // namespace

int main(int argc, char** argv) {
    std::size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const fs::path& file : FilesAt(argv[i])) {
            std::ifstream in(file, std::ios::binary);
            std::ostringstream bytes;
            // A stream reports a failure when it copies an empty file.
            if (fs::file_size(file) > 0) bytes << in.rdbuf();
            if (!in || !bytes) {
                std::fprintf(stderr, "cannot read %s\n", file.c_str());
                return 2;
            }
            // A target aborts on a fault, so the last name printed is the failing input.
            std::printf("%s\n", file.c_str());
            std::fflush(stdout);
            const std::string input = bytes.str();
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
            ++count;
        }
    }
    std::printf("%zu inputs\n", count);
    return count > 0 ? 0 : 2;
}
