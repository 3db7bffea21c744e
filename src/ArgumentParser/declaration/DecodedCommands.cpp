#include "ArgumentParser/declaration/DecodedCommands.h"

#include "ArgumentParser/declaration/ParserError.h"

namespace argumentparser {

const ParsableCommand& DecodedCommands::ancestor(const CommandType& type) const {
    for (const auto& [decodedType, command] : commands_) {
        if (decodedType == type) {
            return *command;
        }
    }
    throw ParserError(NotParentCommand{std::string(type.commandName())});
}

} // namespace argumentparser
