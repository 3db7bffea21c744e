#include "core/service/Answers.h"

#include "core/output/Style.h"
#include "platform/files/Streams.h"
#include "platform/text/TerminalText.h"
#include "platform/text/Text.h"

namespace orvane {

namespace {

/// What a terminal shows of an answer, or of a piece of one.
std::string shownAnswer(std::string_view text, bool isJson) {
    return isJson ? platform::terminalJson(text) : platform::terminalText(text);
}

std::string shownAnswer(std::string_view data) {
    return shownAnswer(data, platform::JsonDocument::parse(data).has_value());
}

/// Prints an answer while it comes in.
class AnswerStream {
public:
    void add(std::string_view piece) {
        hasBegun_ = true;
        stdoutIsTerminal() ? show(piece) : platform::writeStandardOutput(piece);
    }

    bool hasBegun() const { return hasBegun_; }

    void finish() { platform::writeStandardOutput({shownAnswer(cut_, isJson()), "\n"}); }

private:
    /// What makes a whole answer JSON is not known yet.
    bool isJson() const { return first_ == '{' || first_ == '['; }

    void show(std::string_view piece) {
        if (const std::size_t start = piece.find_first_not_of(" \t\r\n"); first_ == '\0' && start != piece.npos) {
            first_ = piece[start];
        }
        cut_ += piece;
        const std::size_t uncut = platform::uncutLength(cut_);
        platform::writeStandardOutput(shownAnswer(std::string_view(cut_).substr(0, uncut), isJson()));
        cut_.erase(0, uncut);
    }

    bool hasBegun_ = false;
    char first_ = '\0'; ///< The first byte that is not blank.
    std::string cut_;   ///< The beginning of a character whose rest is yet to come.
};

} // namespace

void printRawResponse(std::string_view data) {
    if (stdoutIsTerminal()) {
        platform::writeStandardOutput({shownAnswer(data), "\n"});
    } else {
        platform::writeStandardOutput({data, "\n"});
    }
}

void passOn(ServiceRequest request, EmptyAnswer empty, Refusal refusal) {
    AnswerStream stream;
    const ServiceReply reply =
        sendServiceRequest(std::move(request), [&](std::string_view piece) { stream.add(piece); });
    if (refusal == Refusal::passedOn && isRefusal(reply)) {
        const bool isSeen = platform::isTerminal(platform::Stream::error);
        platform::writeStandardError((isSeen ? shownAnswer(reply.data) : reply.data) + "\n");
        throw ExitCode{ExitCode::failure};
    }
    failOnErrorStatus(reply);
    if (stream.hasBegun()) {
        stream.finish();
    } else if (!reply.data.empty() || empty == EmptyAnswer::line) {
        printRawResponse(reply.data);
    }
}

void passOnGet(std::string path, std::chrono::seconds timeout) {
    passOn({.method = "GET", .path = std::move(path), .timeout = timeout});
}

void passOnPostJSON(std::string path, JsonBody body, std::chrono::seconds timeout) {
    passOn({.method = "POST", .path = std::move(path), .json = std::move(body).finish(), .timeout = timeout});
}

void passOnPutJSON(std::string path, JsonBody body, std::chrono::seconds timeout) {
    passOn({.method = "PUT", .path = std::move(path), .json = std::move(body).finish(), .timeout = timeout});
}

void passOnDeleteJSON(std::string path, JsonBody body, std::chrono::seconds timeout) {
    passOn({.method = "DELETE", .path = std::move(path), .json = std::move(body).finish(), .timeout = timeout});
}

void passOnDelete(std::string path, std::chrono::seconds timeout) {
    passOn({.method = "DELETE", .path = std::move(path), .timeout = timeout});
}

} // namespace orvane
