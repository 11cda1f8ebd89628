// Passes the files of a folder to a fuzz target, so that every input that once mattered is an ordinary test everywhere.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{

bool replay(const std::filesystem::path& path)
{
    // Prints the name first: if the target crashes it is the last line.
    std::printf("%s\n", path.filename().string().c_str());
    std::fflush(stdout);
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (file.bad() || !file.is_open())
        return false;
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const std::uint8_t nothing = 0;
    LLVMFuzzerTestOneInput(&nothing, 0);
    int files = 0;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1], error)) {
        if (!entry.is_regular_file())
            continue;
        if (!replay(entry.path())) {
            std::fprintf(stderr, "%s: cannot be read\n", entry.path().string().c_str());
            return 1;
        }
        ++files;
    }
    if (files == 0) {
        std::fprintf(stderr, "%s: no input files\n", argv[1]);
        return 1;
    }
    std::printf("%d inputs\n", files);
    return 0;
}
