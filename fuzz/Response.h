// What the targets share that are fed with HTTP responses.
#pragma once

#include <cstring>
#include <string>

#include "Target.h"
#include "platform/http/HttpClient.h"
#include "platform/http/HttpResponseReader.h"

namespace fuzz {

/// What a caller sees of an exchange: the failure, or the response with what the sink had of it.
inline std::string outcome(const platform::HttpError& error, std::string_view passedOn) {
    std::string text = "failure " + std::to_string(static_cast<int>(error.failure())) + ", " + error.what() + ": ";
    return text.append(passedOn);
}
inline std::string outcome(const platform::HttpResponse& response, std::string_view passedOn) {
    require(response.status >= 200 && response.status <= 999, "a response is final");
    require(response.bodyPassedOn || passedOn.empty(), "what is passed on is said to be");
    require(!response.bodyPassedOn || response.body.empty(), "a body that is passed on is not held");
    return (std::to_string(response.status) + ": " + response.body).append(passedOn);
}

/// The length of a piece of `bytes`, of all that are there for no lengths. `turn` counts the pieces.
inline std::size_t pieceLength(std::string_view bytes, std::string_view lengths, std::size_t turn) {
    if (lengths.empty()) {
        return bytes.size();
    }
    const auto length = static_cast<std::uint8_t>(lengths[turn % lengths.size()]);
    return std::min(bytes.size(), std::max<std::size_t>(1, length));
}

/// Hands `bytes` to `reader` in pieces of `lengths`, as long as it wants more, and then the connection's end.
inline void feed(platform::HttpResponseReader& reader, std::string_view bytes, std::string_view lengths) {
    for (std::size_t turn = 0; !bytes.empty() && !reader.isWhole(); ++turn) {
        const std::span<char> room = reader.room();
        const std::size_t length = std::min(pieceLength(bytes, lengths, turn), room.size());
        std::memcpy(room.data(), bytes.data(), length);
        bytes.remove_prefix(length);
        reader.received(length);
    }
    if (!reader.isWhole()) {
        reader.ended();
    }
}

/// Whether memory of some gigabytes may be reserved: 8 to 11 digits, whatever zeros stand before them. The sanitizer
/// would mark it all.
inline bool mayAnnounceGigabytes(std::string_view bytes) {
    std::size_t digits = 0;
    bool mayDo = false;
    for (const char byte : bytes) {
        const bool isDigit = byte >= '0' && byte <= '9';
        mayDo |= !isDigit && digits > 7 && digits < 12;
        digits = isDigit && (digits > 0 || byte != '0') ? digits + 1 : 0;
    }
    return mayDo;
}

} // namespace fuzz
