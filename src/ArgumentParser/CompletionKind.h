// What a shell may offer for an input's value.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace argumentparser {

struct CompletionKind {
    /// Candidates from the words so far, the index of the cursor's word, and the prefix typed of it.
    using Candidates = std::function<std::vector<std::string>(const std::vector<std::string>& words,
                                                              std::size_t cursorIndex, std::string_view prefix)>;
    using CandidatesFromWords = std::function<std::vector<std::string>(const std::vector<std::string>& words)>;

    struct Default {};
    struct List {
        std::vector<std::string_view> values;
    };
    struct File {
        std::vector<std::string_view> extensions; ///< Any file when empty.
    };
    struct Directory {};
    struct ShellCommand {
        std::string_view command; ///< Its output's lines are the candidates.
    };
    struct Custom {
        Candidates candidates;
    };
    /// Like Custom, but run to completion on a worker thread.
    struct CustomAsync {
        Candidates candidates;
    };
    struct CustomDeprecated {
        CandidatesFromWords candidates;
    };

    using Value = std::variant<Default, List, File, Directory, ShellCommand, Custom, CustomAsync, CustomDeprecated>;
    Value value;
};

} // namespace argumentparser
