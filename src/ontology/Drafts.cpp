#include "ontology/Drafts.h"

#include "core/service/CLIError.h"
#include "platform/files/Files.h"
#include "platform/files/Streams.h"
#include "platform/json/Json.h"

namespace orvane {

namespace {

std::string readDraft(const FilePath& path) {
    if (path.bytes == "-") {
        return platform::readStandardInput();
    }
    std::optional<std::string> text = platform::readFile(platform::expandTilde(path.bytes));
    if (!text) {
        throw CLIError::invalidInput("File not found: " + path.bytes);
    }
    return *std::move(text);
}

} // namespace

OntologyDraft readOntologyJSONObject(const FilePath& path, std::string_view label) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::string json = readDraft(path);
    if (json.starts_with(byteOrderMark)) {
        json.erase(0, byteOrderMark.size());
    }
    const auto document = platform::JsonDocument::parseObject(json);
    if (!document) {
        throw CLIError::invalidInput(std::string(label) + " must contain one JSON object.");
    }
    const bool isEmpty = document->object().members().empty();
    return {std::move(json), isEmpty};
}

} // namespace orvane
