// Real shells that load a completion script and are asked what they offer.
#pragma once

#include <source_location>
#include <string>
#include <vector>

#include "ArgumentParser/completions/CompletionShell.h"

namespace testsupport {

using Shell = argumentparser::CompletionShell;

inline constexpr Shell allShells[] = {Shell::bash, Shell::zsh, Shell::fish};

/// A tool with its completion script, and where and how a shell is started.
struct CompletedTool {
    std::string name;
    std::string script;
    std::string directory; ///< Where the shell works, and where it finds executables first.
    std::string setup{};   ///< Lines in the shell's language, run when the script has been loaded.
};

/// What a shell makes of a command line when TAB is pressed behind it.
struct Offered {
    /// Sorted, with blanks between them: without the name of an option that a value is attached to, without the "/"
    /// behind a directory, and with "_" for each blank in them.
    std::string candidates;
    std::string line; ///< The command line then. Empty for fish, which is asked without a terminal.
};

struct ShellSession {
    std::vector<Offered> offered; ///< One for each line.
    std::string screen;           ///< All that was printed; of zsh the descriptions alone.
};

/// Starts one shell and has it complete each of `lines`. bash and zsh run at a terminal of 200 columns.
ShellSession completeIn(Shell shell, const CompletedTool& tool, const std::vector<std::string>& lines);

struct CompletionRow {
    std::string line;
    std::string candidates; ///< As in Offered.
    std::source_location where = std::source_location::current();
};

/// Each row in the shell: exactly these candidates.
void expectOffered(Shell shell, const CompletedTool& tool, const std::vector<CompletionRow>& rows);

} // namespace testsupport
