#include "skills/SkillInputs.h"

#include "core/inputs/Identifiers.h"
#include "platform/files/Files.h"
#include "platform/text/Text.h"

namespace orvane {

std::string skillItemPath(std::string_view id, std::string_view label) {
    return "/api/skill/item/" + canonicalUUID(id, label);
}

std::string readSkillText(const FilePath& path, const std::string& refusal) {
    std::optional<std::string> text = platform::readFile(path.bytes);
    if (!text || !platform::isValidUtf8(*text)) {
        throw ValidationError{refusal};
    }
    return *std::move(text);
}

} // namespace orvane
