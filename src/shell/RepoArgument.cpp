#include "shell/RepoArgument.h"

#include "platform/files/Files.h"
#include "platform/text/Text.h"

namespace orvane {

std::string normalizeRepoArgument(std::string_view value) {
    const std::string_view text = platform::trimmed(value);
    if (text.starts_with('~')) {
        return platform::expandTilde(text);
    }
    if (text.starts_with('/')) {
        return platform::standardizedPath(text);
    }
    if (text == "." || text == ".." || text.starts_with("./") || text.starts_with("../")) {
        return platform::standardizedPath(platform::currentDirectory() + "/" + std::string(text));
    }
    return std::string(text);
}

std::string reposValue(const std::vector<std::string>& values) {
    std::vector<std::string> repos;
    for (const std::string& value : values) {
        for (const std::string_view piece : platform::split(value, ',')) {
            if (std::string repo = normalizeRepoArgument(piece); !repo.empty()) {
                repos.push_back(std::move(repo));
            }
        }
    }
    return platform::joined(repos, ",");
}

} // namespace orvane
