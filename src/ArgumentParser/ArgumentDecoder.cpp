#include "ArgumentParser/ArgumentDecoder.h"

#include "ArgumentParser/ParserError.h"

namespace argumentparser {

const std::any* ArgumentDecoder::take(const InputKey& key) {
    const ParsedValues::Element* element = values_->find(key);
    if (element == nullptr) {
        return nullptr;
    }
    usedOrigins_.formUnion(element->inputOrigin);
    return &element->value;
}

const ParsableCommand& ArgumentDecoder::ancestor(const CommandType& type) const {
    for (const DecodedArguments& decoded : *previouslyDecoded_) {
        if (decoded.type == type) {
            return *decoded.value;
        }
    }
    throw ParserError(NotParentCommand{type.commandName()});
}

} // namespace argumentparser
