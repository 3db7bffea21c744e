// HTTP responses, whole and in pieces. The bytes of an input's first line are the lengths of the pieces, over and over
// again; behind it comes what the connection brings until it is closed.
#include "Response.h"

namespace {

std::string outcomeOf(std::string_view bytes, std::string_view lengths) {
    std::string passedOn;
    const platform::BodySink sink = [&](std::string_view piece) { passedOn += piece; };
    platform::HttpResponseReader reader(sink);
    try {
        fuzz::feed(reader, bytes, lengths);
        const std::string location = reader.takeLocation().value_or("none");
        return location + " " + fuzz::outcome(reader.takeResponse(), passedOn);
    } catch (const platform::HttpError& error) {
        return fuzz::outcome(error, passedOn);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::string_view lengths = input.line();
    const std::string_view bytes = input.rest();
    if (fuzz::mayAnnounceGigabytes(bytes)) {
        return -1;
    }
    const std::string outcome = outcomeOf(bytes, {});
    fuzz::requireSame(outcomeOf(bytes, "\1"), outcome, "byte by byte the outcome is the same");
    fuzz::requireSame(outcomeOf(bytes, lengths), outcome, "in pieces the outcome is the same");
    return 0;
}
