// What holds whatever comes, tried with random input. A failure tells the seed by which it comes again:
//   ORVANE_TEST_SEED=7 ORVANE_TEST_ROUNDS=100 build/dev/tests/orvane-tests --gtest_filter='Laws.*'
#include <cstdlib>
#include <functional>
#include <random>
#include <set>
#include <sstream>

#include "ArgumentParser/description/ToolInfo.h"
#include "ArgumentParser/help/HelpCommand.h"
#include "ArgumentParser/help/HelpGenerator.h"
#include "ArgumentParser/messages/MessageInfo.h"
#include "ArgumentParser/parsing/CommandParser.h"
#include "RootCommand.h"
#include "platform/text/Text.h"
#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace argumentparser;
using namespace testsupport;

namespace {

using Texts = std::vector<std::string>;

unsigned long fromEnvironment(const char* name) {
    const char* text = std::getenv(name);
    return text == nullptr ? 1 : std::strtoul(text, nullptr, 10);
}

class Laws : public TemporaryFiles {
protected:
    Laws() {
        for (std::size_t index = 0; index < commands.size(); ++index) {
            const std::vector<const Tree*> children = commands[index]->children();
            commands.insert(commands.end(), children.begin(), children.end());
        }
    }

    std::size_t below(std::size_t end) { return random() % end; }
    bool oneIn(std::size_t number) { return below(number) == 0; }
    const std::string& oneOf(const Texts& texts) { return texts[below(texts.size())]; }
    /// "x" and up to five pieces of a text.
    std::string text(const Texts& pieces) {
        std::string text = "x";
        repeat(below(6), [&] { text += oneOf(pieces); });
        return text;
    }
    static void repeat(std::size_t count, const std::function<void()>& act) {
        for (; count > 0; --count) {
            act();
        }
    }
    /// Tries a law so many times, or a multiple of that.
    void expectAlways(std::size_t count, const std::function<void()>& law) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, "ORVANE_TEST_SEED=" + std::to_string(seed));
        repeat(count * fromEnvironment("ORVANE_TEST_ROUNDS"), [&] { HasFailure() ? void() : law(); });
    }

    Texts commandLine();
    std::string node();

    const Tree tree{orvane::rootCommand(), CommandType::of<HelpCommand>()};
    std::vector<const Tree*> commands{&tree}; ///< All of the tree.

    const unsigned long seed = fromEnvironment("ORVANE_TEST_SEED");
    std::mt19937_64 random{seed};
};

/// One of the tool's commands, often with what it takes, and other words.
Texts Laws::commandLine() {
    Texts line;
    Texts words{id,  other,  "0",    "-1", "",    "-",  "--",  "--help", "--version",    "x",
                "=", "\xFF", "help", "-h", "--x", "-x", "a=b", "{}",     "---completion"};
    const std::vector<const Tree*> path = commands[below(commands.size())]->path();
    for (const Tree* node : path) {
        line.emplace_back(node->commandName());
    }
    line.erase(line.begin()); // the tool's own name
    const auto command = path.back()->element().construct();
    const ArgumentSet arguments = command->argumentSet();
    for (const ArgumentDefinition& definition : arguments.content()) {
        for (const Name& name : definition.names) {
            words.insert(words.end(), {name.synopsis(), name.synopsis() + "=7"});
        }
        if (definition.isPositional() && !oneIn(4)) {
            line.push_back(oneIn(3) ? oneOf(words) : id);
        }
    }
    repeat(below(5), [&] { line.insert(oneIn(9) ? line.begin() : line.end(), oneOf(words)); });
    return line;
}

TEST_F(Laws, AnyLineEndsWithOneOfThreeStatusesAndSendsNothingWhenItIsRefused) {
    expectAlways(1000, [&] {
        const Texts line = commandLine();
        CommandParser parser(orvane::rootCommand(), CommandType::of<HelpCommand>());
        const auto parsed = parser.parse(std::vector<std::string_view>(line.begin(), line.end()));
        if (const auto* error = std::get_if<CommandError>(&parsed)) {
            const MessageInfo info = MessageInfo::of(*error, parser.commandTree());
            const bool isRefused = info.fullText().find("\nUsage: orvane-cli") != std::string::npos;
            EXPECT_EQ(info.exitCode(), isRefused ? 64 : 0) << testing::PrintToString(line);
        }
    });
    expectAlways(80, [&] {
        const Texts line = commandLine();
        Answer any = oneIn(2) ? answer("{}") : answer(400, "");
        any.use = Answer::Use::always;
        const ScriptedService service({any});
        const ToolResult result = runTool(line, {.environment = {{"TMPDIR", directory}}, .directory = directory});
        EXPECT_TRUE(std::set({0, 1, 64}).contains(result.status)) << testing::PrintToString(line);
        EXPECT_TRUE(result.status != 64 || (result.out.empty() && service.requests().empty()))
            << testing::PrintToString(line);
    });
}

/// Whether a line of a help screen fits, or holds nothing that could be broken.
bool isNarrow(std::string_view line, std::size_t width) {
    constexpr std::size_t textColumn = 26;
    const std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
    const bool isLabel = indent == 2 || indent == 8;
    const bool isBeside = line.size() > textColumn && line[textColumn - 1] == ' ';
    const std::string_view text = line.substr(isLabel && isBeside ? textColumn : indent);
    return platform::characterCount(line) <= width || line.starts_with("USAGE: ") || line.starts_with("  See '") ||
           (isLabel && !isBeside) || text.find(' ', text.starts_with("- ") ? 2 : 0) == std::string_view::npos;
}

TEST_F(Laws, HelpIsNoWiderThanItMustBeAndLosesNoWord) {
    for (const Tree* command : commands) {
        const HelpGenerator help(*command, ArgumentVisibility::shown);
        const Words words(help.rendered(1000));
        expectAlways(3, [&] {
            const std::size_t width = 1 + below(150);
            const std::string screen = help.rendered(static_cast<int>(width));
            for (const std::string_view line : platform::split(screen, '\n')) {
                EXPECT_TRUE(isNarrow(line, width)) << width << ": " << line;
            }
            EXPECT_TRUE(width < 40 || Words(screen) == words) << width << ": " << screen;
        });
    }
}

TEST_F(Laws, AnAnswerIsPassedOnByteForByteHoweverItComes) {
    expectAlways(60, [&] {
        const std::size_t limits[] = {3, 300, 70'000};
        const std::size_t passedOnAtOnce = oneIn(10) ? 4U << 20U : 0;
        std::string body(passedOnAtOnce + below(limits[below(3)]), '\0');
        std::uint64_t state = random();
        std::ranges::generate(body, [&] { return static_cast<char>((state += 0x9E3779B97F4A7C15U) >> 56U); });
        const bool isChunked = oneIn(2);
        std::ostringstream bytes;
        bytes << "HTTP/1.1 200 OK\r\n" << (isChunked ? "Transfer-Encoding: chunked\r\n\r\n" : "\r\n") << std::hex;
        for (std::size_t at = 0, size = 0; isChunked && at < body.size(); at += size) {
            size = std::min(1 + below(limits[below(3)]), body.size() - at);
            bytes << size << "\r\n" << body.substr(at, size) << "\r\n";
        }
        bytes << (isChunked ? "0\r\n\r\n" : body);
        Answer whole = cutAnswer("");
        for (std::string rest = std::move(bytes).str(); !rest.empty(); rest.erase(0, whole.pieces.back().size())) {
            whole.pieces.push_back(rest.substr(0, 1 + below(oneIn(2) ? 5 : rest.size())));
        }
        whole.pause = std::chrono::milliseconds(whole.pieces.size() < 20 ? 1 : 0);
        const ScriptedService service({whole});
        const ToolResult result = runTool({"search", "x"});
        EXPECT_TRUE(result.out == body + "\n") << body.size() << (isChunked ? " in chunks " : " ") << result.err;
    });
}

/// A node with all fields, in which are characters that a careless renderer takes for the end of a line.
std::string Laws::node() {
    const Texts odd{" ",       "\\n",      "\\r",     "\\r\\n",         "\\t",     "\\\"",  "\\u0000", "\\u000b",
                    "\\u2028", "\\u001b[", "\\u00a0", "\\ud83d\\ude00", "e\u0301", "\u202E"};
    std::string members;
    for (const char* key : {"id", "kind", "name", "title", "threadId", "sliceId", "modality", "initiated",
                            "executionMode", "originalUpdatedAt", "originalCreatedAt", "path"}) {
        members.append("\"").append(key).append("\":\"").append(text(odd)).append("\",");
    }
    return "{" + members + R"("sourceOwner":{"email":")" + text(odd) + R"("},"agents":[")" + text(odd) +
           R"("],"sharedWith":[{"teamName":")" + text(odd) + R"("}],"isContainer":false})";
}

TEST_F(Laws, WhatStandsOnALineStaysOnItAndAListingHasARowForEachNode) {
    expectAlways(15, [&] {
        const std::size_t count = below(oneIn(5) ? 500 : 5);
        std::string nodes = "[";
        repeat(count, [&] { nodes += (nodes == "[" ? "" : ",") + (oneIn(5) ? "{\"sliceId\":\"s\"}" : node()); });
        nodes += "]";
        const std::string report = node();
        const std::string place = report.substr(0, report.size() - 1) + ",\"ancestors\":" + nodes + "}";
        const std::tuple<Words, std::string, std::size_t> runs[] = {
            {"ls", "{\"nodes\":" + nodes + "}", count + 1},
            {"find " + id, "{\"nodes\":" + nodes + "}", count + 1},
            {"grep x", "{\"results\":[" + report + "," + node() + "]}", 2 * 6},
            {"stat " + id, place, count + 8},
            {"mkdir N", report, 1},
            {"skill install " + id, report, 1},
            {"skill file mkdir " + id + " p", report, 1},
        };
        for (const auto& [words, body, lines] : runs) {
            const ScriptedService service({answer(body)});
            const std::string out = runTool(words).out;
            EXPECT_EQ(std::ranges::count(out, '\n'), lines) << words.front() << "\n" << body << "\n" << out;
            EXPECT_EQ(out.find('\r'), std::string::npos) << words.front() << "\n" << body << "\n" << out;
        }
    });
}

TEST_F(Laws, ADescriptionIsReadAsItWasWritten) {
    const Texts odd{" ", "\"", "\\", "\n", "\x1F", "/", "\u2028", "\U0001F600"};
    expectAlways(100, [&] {
        ToolInfoV0 info = toolInfo(*commands[below(commands.size())]);
        info.command.aliases.assign(below(3), text(odd));
        for (ArgumentInfoV0& argument : info.command.arguments) {
            for (std::string* member : {&argument.sectionTitle, &argument.defaultValue, &argument.discussion}) {
                *member = oneIn(2) ? "" : text(odd);
            }
            argument.names.assign(below(3), {text(odd), text(odd)});
            argument.allValueDescriptions = {{text(odd), text(odd)}, {text(odd), ""}};
            argument.completionKind = CompletionKindV0{.kind = text(odd), .extensions = Texts(below(3), text(odd))};
        }
        EXPECT_EQ(decodedToolInfo(encoded(info)), info) << encoded(info);
        EXPECT_EQ(encoded(decodedToolInfo(encoded(info))), encoded(info));
    });
}

} // namespace
