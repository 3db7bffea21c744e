#include "ArgumentParser/ParsableCommand.h"

#include "ArgumentParser/CommandExit.h"

namespace argumentparser {

CommandConfiguration CommandType::configuration() const {
    return operations_->configuration();
}

std::unique_ptr<ParsableCommand> CommandType::construct() const {
    std::unique_ptr<ParsableCommand> command = operations_->construct();
    command->type_ = *this;
    return command;
}

std::string_view CommandType::commandName() const {
    const std::string_view name = configuration().commandName;
    return name.empty() ? typeName() : name;
}

DeclaredInput::DeclaredInput(ParsableArguments& owner) {
    owner.inputs_.push_back(this);
}

ArgumentSet ParsableArguments::argumentSet() {
    ArgumentSet arguments;
    addDefinitions(arguments, {});
    return arguments;
}

void ParsableArguments::addDefinitions(ArgumentSet& arguments, const InputContext& context) {
    for (DeclaredInput* input : inputs_) {
        input->addDefinitions(arguments, context);
    }
}

void ParsableArguments::decode(const DecodedCommands& ancestors, const InputContext& context) {
    for (DeclaredInput* input : inputs_) {
        input->decode(ancestors, context);
    }
}

void ParsableCommand::run() const {
    throw CleanExit::helpRequest(type_);
}

std::vector<CommandType> CommandConfiguration::subcommands() const {
    std::vector<CommandType> all = ungroupedSubcommands;
    for (const CommandGroup& group : groupedSubcommands) {
        all.insert(all.end(), group.subcommands.begin(), group.subcommands.end());
    }
    return all;
}

} // namespace argumentparser
