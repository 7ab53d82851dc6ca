// Runs a fuzz target over the files of its seed folders, so that what a fuzzer once found stays
// tested.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
    int ran = 0;
    for (int at = 1; at < count; ++at)
        for (const auto& entry : std::filesystem::directory_iterator(arguments[at])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string all{std::istreambuf_iterator<char>(file), {}};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(all.data()), all.size());
            ++ran;
        }
    return ran > 0 ? 0 : 1;
}
