// HTTP responses, whole and in pieces. The bytes of an input's first line are the lengths of the pieces, over and over
// again; behind it comes what the connection brings until it is closed.
#include <cstring>

#include "Target.h"
#include "platform/http/HttpResponseReader.h"

namespace {

/// Hands `bytes` to `reader` in pieces of `lengths`, as long as it wants more.
void feed(platform::HttpResponseReader& reader, std::string_view bytes, std::string_view lengths) {
    for (std::size_t turn = 0; !bytes.empty() && !reader.isWhole(); ++turn) {
        const std::size_t length =
            lengths.empty() ? bytes.size() : std::max<std::size_t>(1, std::uint8_t(lengths[turn % lengths.size()]));
        const std::span<char> room = reader.room();
        const std::string_view piece = bytes.substr(0, std::min(length, room.size()));
        std::memcpy(room.data(), piece.data(), piece.size());
        bytes.remove_prefix(piece.size());
        reader.received(piece.size());
    }
    if (!reader.isWhole()) {
        reader.ended();
    }
}

/// Everything that a caller sees of the response.
std::string outcomeOf(std::string_view bytes, std::string_view lengths) {
    std::string passedOn;
    const platform::BodySink sink = [&](std::string_view piece) { passedOn += piece; };
    platform::HttpResponseReader reader(sink);
    try {
        feed(reader, bytes, lengths);
        const int status = reader.status();
        const std::string location = reader.takeLocation().value_or("none");
        const platform::HttpResponse response = reader.takeResponse();
        fuzz::require(status >= 200 && status <= 999 && response.status == status, "a whole response is final");
        fuzz::require(response.bodyPassedOn || passedOn.empty(), "what is passed on is said to be");
        fuzz::require(!response.bodyPassedOn || response.body.empty(), "a body that is passed on is not held");
        return std::to_string(status) + " to " + location + ": " + response.body + passedOn;
    } catch (const platform::HttpError& error) {
        return "failure " + std::to_string(static_cast<int>(error.failure())) + ", " + error.what() + ": " + passedOn;
    }
}

/// Whether memory of some gigabytes may be reserved: 8 to 11 digits. The sanitizer would mark it all.
bool mayAnnounceGigabytes(std::string_view bytes) {
    std::size_t digits = 0;
    bool mayDo = false;
    for (const char byte : bytes) {
        const bool isDigit = byte >= '0' && byte <= '9';
        mayDo |= !isDigit && digits > 7 && digits < 12;
        digits = isDigit ? digits + 1 : 0;
    }
    return mayDo;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::string_view lengths = input.line();
    const std::string_view bytes = input.rest();
    if (mayAnnounceGigabytes(bytes)) {
        return -1;
    }
    const std::string outcome = outcomeOf(bytes, {});
    fuzz::requireSame(outcomeOf(bytes, "\1"), outcome, "byte by byte the outcome is the same");
    fuzz::requireSame(outcomeOf(bytes, lengths), outcome, "in pieces the outcome is the same");
    return 0;
}
