#include "CommandLine.h"

#include <charconv>
#include <string_view>

namespace sample {

namespace {

/// An option, and the value that is joined to it or stands behind it.
class Option {
public:
    Option(std::string_view word, std::span<char*>& rest)
        : word_(word), name_(word.substr(0, word.find('='))), rest_(rest) {
        if (name_.size() < word.size()) {
            joined_ = word.substr(name_.size() + 1);
        }
    }

    std::string_view word() const { return word_; }
    std::string_view name() const { return name_; }
    std::optional<std::string_view> joined() const { return joined_; }

    unsigned number(unsigned least, unsigned most) {
        const std::string_view text = value();
        unsigned number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc() || end != text.data() + text.size() || number < least || number > most) {
            throw UsageError(std::string(name_) + " takes a whole number from " + std::to_string(least) + " to " +
                             std::to_string(most) + ".");
        }
        return number;
    }

private:
    std::string_view value() {
        if (joined_ || rest_.empty()) {
            return joined_.value_or("");
        }
        const std::string_view next = rest_.front();
        rest_ = rest_.subspan(1);
        return next;
    }

    std::string_view word_;
    std::string_view name_;
    std::optional<std::string_view> joined_{};
    std::span<char*>& rest_;
};

void apply(Option option, CommandLine& line) {
    constexpr unsigned hour = 60 * 60 * 1000;
    const std::string_view name = option.name();
    if (name == "--port") {
        line.port = static_cast<std::uint16_t>(option.number(0, 65535));
    } else if (name == "--delay") {
        line.delay = std::chrono::milliseconds(option.number(0, hour));
    } else if (name == "--fail") {
        line.failure = option.number(400, 599);
    } else if (name == "--log" && option.joined() == "") {
        throw UsageError("--log= takes the name of a file.");
    } else if (name == "--log" && option.joined()) {
        line.logFile = *option.joined();
    } else if (name == "--log") {
        line.logsToTerminal = true;
    } else if (name == "--close" && !option.joined()) {
        line.closes = true;
    } else if (name == "--help" && !option.joined()) {
        line.wantsHelp = true;
    } else {
        throw UsageError("There is no option " + std::string(option.word()) + ".");
    }
}

void check(const CommandLine& line) {
    if (line.wantsHelp) {
        return;
    }
    if (line.dataFile.empty()) {
        throw UsageError("A data file is needed, such as sample/library.json.");
    }
    if (line.failure && line.closes) {
        throw UsageError("--fail and --close exclude each other.");
    }
}

} // namespace

const char* const helpText =
    R"(Usage: sample-library [--port N] [--log] [--log=FILE] [--delay MS] [--fail STATUS | --close] DATAFILE

Serves the library in DATAFILE on loopback as the application would.

  --port N       Serve at another port than 44360; 0 takes any free one.
  --log          Show each request and its answer on standard error, bodies cut at a screenful.
  --log=FILE     Add each exchange to FILE as a line of JSON, bodies complete.
  --delay MS     Wait so many milliseconds before each answer.
  --fail STATUS  Refuse every request with this status, 400 to 599.
  --close        Close each connection without an answer.
)";

CommandLine parseCommandLine(std::span<char*> words) {
    CommandLine line;
    while (!words.empty()) {
        const std::string_view word = words.front();
        words = words.subspan(1);
        if (word.starts_with('-')) {
            apply(Option(word, words), line);
        } else if (line.dataFile.empty()) {
            line.dataFile = word;
        } else {
            throw UsageError("Only one data file can be served.");
        }
    }
    check(line);
    return line;
}

} // namespace sample
