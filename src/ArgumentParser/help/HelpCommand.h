// The built-in `help` subcommand.
#pragma once

#include "ArgumentParser/Argument.h"
#include "ArgumentParser/Flag.h"
#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

class Tree;

struct HelpCommand final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "help", .abstract = "Show subcommand help information.", .helpNames = NameSpecification()};
    }

    Argument<std::vector<std::string>> subcommands{*this, "subcommands", {}, ""};
    /// Accepted and ignored, for those who ask for help on help.
    Flag<bool> help{*this,
                    "help",
                    ArgumentHelp("", {.visibility = ArgumentVisibility::privateInput}),
                    {.names = {shortName(), longName(), customLong("help", true)}}};

    /// Walks down from `root` by the words given, as far as they match.
    void resolve(const Tree& root);
    /// Throws the request for the help of the command found.
    void run() const override;

private:
    const Tree* node_ = nullptr;
};

} // namespace argumentparser
