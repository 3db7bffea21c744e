// Descriptions of a tool, read, written and read again.
#include <stdexcept>

#include "ArgumentParser/description/ToolInfo.h"
#include "Target.h"
#include "platform/json/Json.h"

using namespace argumentparser;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::Input(data, size).rest();
    try {
        const int version = decodedToolInfoHeader(text).serializationVersion;
        const auto document = platform::JsonDocument::parseObject(text);
        fuzz::require(document && document->object().integer("serializationVersion") == version,
                      "a version is the number that is written");
        const ToolInfoV0 info = decodedToolInfo(text);
        fuzz::require(decodedToolInfo(encoded(info)) == info, "what is written reads as it was");
    } catch (const std::runtime_error& refusal) {
        fuzz::require(refusal.what()[0] != '\0', "a refusal says why");
    }
    return 0;
}
