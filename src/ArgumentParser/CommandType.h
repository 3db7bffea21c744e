// A command's type as a value: how to read its configuration and construct it, without naming the type.
#pragma once

#include <memory>
#include <string_view>

#include "ArgumentParser/declaration/KebabCase.h"

namespace argumentparser {

class ParsableCommand;
struct CommandConfiguration;

class CommandType {
public:
    template <class Command>
    static CommandType of() {
        return CommandType(&operationsOf<Command>);
    }

    CommandConfiguration configuration() const;
    /// The command with its inputs, not decoded yet.
    std::unique_ptr<ParsableCommand> construct() const;
    /// The configured name, else the type's name in kebab case.
    std::string_view commandName() const;
    /// The type's name in kebab case.
    std::string_view typeName() const { return operations_->typeName; }

    bool operator==(const CommandType&) const = default;

private:
    struct Operations {
        CommandConfiguration (*configuration)();
        std::unique_ptr<ParsableCommand> (*construct)();
        std::string_view typeName;
    };

    template <class Command>
    static constexpr std::string_view declaredTypeName() {
        // "… [with Command = space::Type; …]" or "… [Command = space::Type]"
        constexpr std::string_view marker = "Command = ";
        std::string_view text = __PRETTY_FUNCTION__;
        text.remove_prefix(text.find(marker) + marker.size());
        text = text.substr(0, text.find_first_of(";]"));
        const auto space = text.rfind("::");
        return space == std::string_view::npos ? text : text.substr(space + 2);
    }

    template <class Command>
    static constexpr KebabCase<declaredTypeName<Command>().size()> kebabName{declaredTypeName<Command>()};

    template <class Command>
    static constexpr Operations operationsOf{
        [] { return Command::configuration(); },
        []() -> std::unique_ptr<ParsableCommand> { return std::make_unique<Command>(); },
        kebabName<Command>.text(),
    };

    explicit CommandType(const Operations* operations) : operations_(operations) {}

    const Operations* operations_;
};

} // namespace argumentparser
