// The body of a response while it comes in: held whole, or passed on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/http/HttpClient.h"

namespace platform {

class HttpResponseBody {
public:
    /// `sink`, which must outlive the body, may be empty: every body is held then.
    explicit HttpResponseBody(const BodySink& sink) : sink_(sink) {}

    /// Before the first piece. `announced` is the size in bytes, if it is known.
    void begin(bool mayBePassedOn, std::optional<std::uint64_t> announced);
    /// The next piece. Throws what the sink throws, as flush does.
    void add(std::string_view piece);
    /// Hands on what was kept back to make larger pieces of small ones.
    void flush();

    bool isPassedOn() const { return isPassedOn_; }
    /// What is held.
    std::string take() { return std::move(held_); }

private:
    void passOn(std::string_view piece);
    void hold(std::string_view piece);

    const BodySink& sink_;
    bool mayBePassedOn_ = false;
    bool isPassedOn_ = false;
    std::string held_;
    std::size_t prepared_ = 0; ///< Bytes of held_ whose memory has been laid out.
    std::string pending_;      ///< Small pieces on their way to the sink.
};

} // namespace platform
