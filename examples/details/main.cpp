// Writes the slides of the examples into a folder.
#include "details.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_slides FOLDER\n");
        return 2;
    }
    for (const auto& [name, bytes] : slides::exampleFiles()) {
        std::ofstream out(std::filesystem::path(argv[1]) / name, std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!out.flush()) {
            std::fprintf(stderr, "make_slides: %s/%s cannot be written\n", argv[1], name.c_str());
            return 2;
        }
    }
    return 0;
}
