// Writes the manual pages: manual-pages DESCRIPTION TEXTS VERSION DIRECTORY
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>

#include "ManualPages.h"
#include "platform/files/Files.h"

namespace {

std::string contentOf(const std::string& path) {
    std::optional<std::string> text = platform::readFile(path);
    if (!text) {
        throw std::runtime_error("Could not read " + path);
    }
    return *std::move(text);
}

void write(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file) {
        throw std::runtime_error("Could not write " + path);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::fputs("Usage: manual-pages DESCRIPTION TEXTS VERSION DIRECTORY\n", stderr);
        return 64;
    }
    try {
        const argumentparser::ToolInfoV0 info = argumentparser::decodedToolInfo(contentOf(argv[1]));
        const auto written = [&](const std::string& page) {
            return contentOf(std::string(argv[2]) + "/" + page + ".md");
        };
        for (const manual::ManualPage& page : manual::manualPages(info.command, argv[3], written)) {
            write(std::string(argv[4]) + "/" + page.name, page.text);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "manual-pages: %s\n", error.what());
        return 1;
    }
    return 0;
}
