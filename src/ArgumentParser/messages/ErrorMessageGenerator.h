// The words for a failed parse.
#pragma once

#include <exception>
#include <string>

#include "ArgumentParser/declaration/ArgumentSet.h"
#include "ArgumentParser/declaration/ParserError.h"

namespace argumentparser {

/// Words one failed parse. Of the command's inputs it names the visible ones only.
class ErrorMessageGenerator {
public:
    /// `error` is a failure, and no request for help or the version; `arguments` are those of the command it names, not
    /// parsed yet. Both must outlive this.
    ErrorMessageGenerator(const CommandError& error, const ArgumentSet& arguments)
        : error_(error), arguments_(arguments) {}

    std::string message() const;
    /// The form and the abstract of the input that the error is about; empty where there is none.
    std::string helpLine() const;

private:
    const CommandError& error_;
    const ArgumentSet& arguments_;
};

/// What an error thrown by a command or a transform says of itself; empty when it says nothing.
std::string errorDescription(const std::exception_ptr& error);

} // namespace argumentparser
