#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size);

/// Runs a fuzz target on every file of a folder, so that what fuzzing once found is tried by every build. A
/// folder without files is a fault: a test that tries nothing must not pass.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Give the folder of the files to replay\n", stderr);
        return 2;
    }
    int replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> contents{std::istreambuf_iterator<char>(file),
                                         std::istreambuf_iterator<char>()};
        std::printf("%s\n", entry.path().c_str());
        std::fflush(stdout);
        // A copy of exactly this size lets sanitizers see a byte read too many.
        const std::vector<unsigned char> exact(contents.begin(), contents.end());
        LLVMFuzzerTestOneInput(exact.data(), exact.size());
        ++replayed;
    }
    if (replayed == 0) {
        std::fputs("There is nothing to replay\n", stderr);
        return 1;
    }
    return 0;
}
