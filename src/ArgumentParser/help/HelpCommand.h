// The built-in `help` subcommand.
#pragma once

#include "ArgumentParser/Argument.h"
#include "ArgumentParser/Flag.h"
#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

class Tree;

/// Thrown for the help of the command that some words select.
struct SubcommandHelpRequest {
    std::vector<std::string> words;

    /// Walks down from `root` by the words, as far as they match.
    const Tree& selected(const Tree& root) const;
};

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

    /// Throws SubcommandHelpRequest.
    void run() const override;
};

} // namespace argumentparser
