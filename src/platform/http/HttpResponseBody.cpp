#include "platform/http/HttpResponseBody.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <utility>

#include <sys/mman.h>

namespace platform {

namespace {

constexpr std::size_t pageSize = 4096;
constexpr std::size_t largeBody = std::size_t{1} << 20U;
constexpr std::size_t unannouncedReserve = std::size_t{1} << 30U;
constexpr std::uint64_t announcedReserveLimit = std::uint64_t{16} << 30U;
constexpr std::size_t preparedStep = std::size_t{2} << 20U;
constexpr std::size_t smallPiece = 32768;
constexpr std::size_t pendingLimit = 65536;

/// Tells the system about the memory of the bytes from `begin` to `end`, whole pages inside them. Only a hint: older
/// kernels do not know every piece of advice.
void advise(char* begin, char* end, int advice) {
    const auto toPage = (pageSize - reinterpret_cast<std::uintptr_t>(begin) % pageSize) % pageSize;
    const auto size = static_cast<std::size_t>(end - begin);
    if (size >= toPage + pageSize) {
        ::madvise(begin + toPage, (size - toPage) / pageSize * pageSize, advice);
    }
}

/// Address space alone costs nothing. Where there is not enough of it, the text grows as it goes. Where the system has
/// huge pages, a large body is to be laid out in them, which costs a fraction of what small ones do.
void tryReserve(std::string& text, std::uint64_t size) {
    try {
        text.reserve(static_cast<std::size_t>(size));
    } catch (const std::bad_alloc&) {
        return;
    } catch (const std::length_error&) {
        return;
    }
    if (text.capacity() > largeBody) {
        advise(text.data(), text.data() + text.capacity(), MADV_HUGEPAGE);
    }
}

} // namespace

void HttpResponseBody::begin(bool mayBePassedOn, std::optional<std::uint64_t> announced) {
    mayBePassedOn_ = mayBePassedOn && sink_;
    isPassedOn_ = mayBePassedOn_ && announced.value_or(0) > passOnThreshold;
    if (announced && !isPassedOn_ && *announced <= announcedReserveLimit) {
        tryReserve(held_, *announced);
    }
}

void HttpResponseBody::add(std::string_view piece) {
    if (mayBePassedOn_ && !isPassedOn_ && held_.size() + piece.size() > passOnThreshold) {
        isPassedOn_ = true;
        const std::string first = std::move(held_);
        if (!first.empty()) {
            sink_(first);
        }
    }
    if (isPassedOn_) {
        passOn(piece);
    } else {
        hold(piece);
    }
}

void HttpResponseBody::passOn(std::string_view piece) {
    if (piece.size() >= smallPiece) {
        flush();
        sink_(piece);
        return;
    }
    pending_.append(piece);
    if (pending_.size() >= pendingLimit) {
        flush();
    }
}

void HttpResponseBody::flush() {
    if (!pending_.empty()) {
        sink_(pending_);
        pending_.clear();
    }
}

void HttpResponseBody::hold(std::string_view piece) {
    const std::size_t size = held_.size() + piece.size();
    if (size > held_.capacity() && size > largeBody) {
        // Growing means copying, with the old text and the new in memory at the same time: seldom, then.
        tryReserve(held_, std::max<std::uint64_t>(unannouncedReserve, held_.capacity() * std::uint64_t{8}));
        prepared_ = held_.size();
    }
    if (size > prepared_ && held_.capacity() > largeBody) {
        const std::size_t end = std::min(std::max(size, prepared_ + preparedStep), held_.capacity());
        // At a fraction of what it costs to fault pages in one after another.
        advise(held_.data() + prepared_, held_.data() + end, MADV_POPULATE_WRITE);
        prepared_ = end;
    }
    held_.append(piece);
}

} // namespace platform
