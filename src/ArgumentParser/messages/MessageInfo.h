// What the user sees, and the process's status, when an error ends a run.
#pragma once

#include <exception>
#include <string>
#include <variant>

#include "ArgumentParser/declaration/ParserError.h"
#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

struct MessageInfo {
    struct Help {
        std::string text;
    };
    struct Validation {
        std::string message;
        std::string usage;
        std::string help;
    };
    struct Other {
        std::string message;
        int exitCode = 1;
    };

    std::variant<Help, Validation, Other> value;

    /// For whatever parsing, `validate` or `run` threw. `root` is the tree that was parsed against.
    static MessageInfo of(const std::exception_ptr& error, const Tree& root);
    static MessageInfo of(const CommandError& error, const Tree& root);

    /// Without the line end that printing adds; empty for nothing to print.
    std::string fullText() const;
    int exitCode() const;
    bool isForStandardOutput() const { return std::holds_alternative<Help>(value); }
};

} // namespace argumentparser
