// Drafts of the ontology, read from a file.
#include <sys/mman.h>
#include <unistd.h>

#include "Target.h"
#include "core/service/CLIError.h"
#include "ontology/Drafts.h"
#include "platform/json/Json.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::Input(data, size).rest();
    const int file = ::memfd_create("draft", MFD_CLOEXEC);
    fuzz::require(file >= 0 && ::write(file, data, size) == static_cast<ssize_t>(size), "the input's file is written");
    try {
        const orvane::FilePath path{"/proc/self/fd/" + std::to_string(file)};
        const orvane::OntologyDraft draft = orvane::readOntologyJSONObject(path, "The draft");
        fuzz::require(text.ends_with(draft.json) && text.size() - draft.json.size() <= 3, "a draft is sent as written");
        const auto document = platform::JsonDocument::parseObject(draft.json);
        fuzz::require(document.has_value(), "a draft is a JSON object");
        fuzz::require((document->object().members().empty()) == draft.isEmpty, "an empty draft is told");
    } catch (const orvane::CLIError& refusal) {
        fuzz::requireSame(refusal.message, "The draft must contain one JSON object.", "a refusal says why");
        fuzz::require(!platform::JsonDocument::parseObject(text), "an object is taken");
    }
    ::close(file);
    return 0;
}
