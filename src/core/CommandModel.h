// The command framework's vocabulary, as the tool's commands use it.
#pragma once

#include <array>

#include "ArgumentParser/Argument.h"
#include "ArgumentParser/CommandExit.h"
#include "ArgumentParser/FilePath.h"
#include "ArgumentParser/Flag.h"
#include "ArgumentParser/Option.h"
#include "ArgumentParser/OptionGroup.h"
#include "ArgumentParser/ParsableCommand.h"

namespace orvane {

using argumentparser::Argument;
using argumentparser::ClosedSet;
using argumentparser::CommandConfiguration;
using argumentparser::CommandType;
using argumentparser::CompletionKind;
using argumentparser::customLong;
using argumentparser::customShort;
using argumentparser::ExitCode;
using argumentparser::FilePath;
using argumentparser::Flag;
using argumentparser::longName;
using argumentparser::Option;
using argumentparser::OptionGroup;
using argumentparser::ParsableArguments;
using argumentparser::ParsableCommand;
using argumentparser::ParsingStrategy;
using argumentparser::ValidationError;

/// Has a shell offer these words for an option's value. Any other text is taken all the same.
inline argumentparser::OptionSettings<std::string> offering(std::vector<std::string_view> words) {
    return {.completion = CompletionKind{CompletionKind::List{std::move(words)}}};
}
template <std::size_t count>
argumentparser::OptionSettings<std::string> offering(const std::array<std::string_view, count>& words) {
    return offering(std::vector(words.begin(), words.end()));
}

/// An integer of a command line: as wide as the service's.
using Integer = std::int64_t;

} // namespace orvane
