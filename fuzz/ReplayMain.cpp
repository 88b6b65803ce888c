// Replays files through a fuzz target's entry function, without libFuzzer: the normal build
// compiles every target with this main, and the tests run the seed corpus through it, so that a
// target that no longer builds or a seed that no longer passes shows at once.
//
// Takes files and folders (a folder's files are replayed in name order, its subfolders left
// alone). Gives 0 when at least one file was replayed and none crashed the target; a crash ends
// the program as it would end the fuzzer.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
// Optional in a target, as with libFuzzer.
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

std::vector<std::filesystem::path> Inputs(int argc, char** argv) {
    std::vector<std::filesystem::path> inputs;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path path = std::filesystem::absolute(argv[i]);
        if (!std::filesystem::is_directory(path)) {
            inputs.push_back(path);
            continue;
        }
        std::vector<std::filesystem::path> files;
        for (const auto& entry : std::filesystem::directory_iterator(path))
            if (entry.is_regular_file()) files.push_back(entry.path());
        std::sort(files.begin(), files.end());
        inputs.insert(inputs.end(), files.begin(), files.end());
    }
    return inputs;
}

}  // namespace

int main(int argc, char** argv) {
    // The files are listed first: a target may change the current folder when it starts.
    const std::vector<std::filesystem::path> inputs = Inputs(argc, argv);
    if (LLVMFuzzerInitialize) LLVMFuzzerInitialize(&argc, &argv);
    int replayed = 0;
    for (const std::filesystem::path& input : inputs) {
        std::ifstream file(input, std::ios::binary);
        if (!file) {
            std::fprintf(stderr, "can't read %s\n", input.c_str());
            return 1;
        }
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
        ++replayed;
    }
    std::printf("%d inputs replayed\n", replayed);
    return replayed > 0 ? 0 : 1;
}
