// Commands declared in a test, parsed and run in the test's own process.
#pragma once

#include <cstdlib>
#include <initializer_list>
#include <source_location>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "ArgumentParser/Argument.h"
#include "ArgumentParser/CommandExit.h"
#include "ArgumentParser/Flag.h"
#include "ArgumentParser/Option.h"
#include "ArgumentParser/OptionGroup.h"
#include "ArgumentParser/ParentCommand.h"
#include "ArgumentParser/RunCommandLine.h"
#include "platform/text/Text.h"

namespace parsertest {

using namespace argumentparser;

using MaybeText = std::optional<std::string>;
using Texts = std::vector<std::string>;

/// What the commands of these tests have in common.
struct Tool : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "tool"}; }
};

/// The settings of an option for which a shell may offer this.
inline OptionSettings<std::string> completedBy(CompletionKind::Value kind) {
    return {.completion = CompletionKind{std::move(kind)}};
}

template <class T>
std::string textOf(const T& value) {
    if constexpr (ValueShape<T>::isOptional) {
        return value ? textOf(*value) : "";
    } else if constexpr (ValueShape<T>::isList) {
        Texts texts;
        for (const auto& element : value) {
            texts.push_back(textOf(element));
        }
        return value.empty() ? "" : "[" + platform::joined(texts, ",") + "]";
    } else {
        const std::string text = ArgumentValue<T>::defaultValueDescription(value);
        return text.empty() ? "''" : text;
    }
}

/// Ends a command with its inputs, under the labels in `labels`, on standard output: "limit=5 files=[a,b]". Absent
/// values, empty lists and plain flags that are off go without saying.
template <class... Inputs>
[[noreturn]] void print(std::string_view labels, const Inputs&... inputs) {
    std::string text;
    std::size_t next = 0;
    const std::vector<std::string_view> names = platform::split(labels, ' ');
    const auto add = [&]<class T>(const T& value) {
        const std::string_view name = names.at(next++);
        const std::string shown = std::same_as<T, bool> && textOf(value) == "false" ? "" : textOf(value);
        if (!shown.empty()) {
            text += (text.empty() ? "" : " ") + std::string(name) + "=" + shown;
        }
    };
    (add(inputs.get()), ...);
    throw CleanExit::message(text);
}

/// The words of a line between blanks; '' stands for an empty one.
inline Texts words(std::string_view line) {
    Texts result;
    if (!line.empty()) {
        for (const std::string_view word : platform::split(line, ' ')) {
            result.emplace_back(word == "''" ? "" : word);
        }
    }
    return result;
}

/// What a run prints, behind its status and "|" unless that is 0. Only status 0 prints on standard output.
template <class Root>
std::string outcome(std::string_view line) {
    setenv("COLUMNS", "80", 1);
    const Texts texts = words(line);
    std::vector<const char*> arguments{"tool"};
    for (const std::string& text : texts) {
        arguments.push_back(text.c_str());
    }
    const auto info = run(CommandType::of<Root>(), static_cast<int>(arguments.size()), arguments.data());
    if (!info) {
        return "ran";
    }
    EXPECT_EQ(info->isForStandardOutput(), info->exitCode() == 0);
    return (info->exitCode() == 0 ? "" : std::to_string(info->exitCode()) + "|") + info->fullText();
}

struct Row {
    std::string_view line;
    std::string expected; ///< All of the outcome; of a refusal what stands above the usage, without "64|Error: ".
    std::source_location where = std::source_location::current();
};

template <class Root>
void expectRows(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        std::string actual = outcome<Root>(row.line);
        if (actual.starts_with("64|")) {
            actual = actual.substr(3, actual.find("\nUsage: ") - 3);
            actual.erase(0, actual.starts_with("Error: ") ? 7 : 0);
        }
        const testing::ScopedTrace trace(row.where.file_name(), static_cast<int>(row.where.line()), row.line);
        EXPECT_EQ(actual, row.expected);
    }
}

} // namespace parsertest
