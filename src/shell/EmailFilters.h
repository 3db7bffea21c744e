// Narrowing listings and searches to e-mail by its header.
#pragma once

#include "core/CommandModel.h"
#include "core/service/Query.h"

namespace orvane {

struct EmailFilterOptions : ParsableArguments {
    explicit EmailFilterOptions(const char* senderHelp) : sender(*this, "sender", senderHelp) {}

    Option<std::optional<std::string>> sender;
    Option<std::optional<std::string>> recipient{*this, "recipient",
                                                 "Any To/Cc/Bcc display-name substring or exact address."};
    Option<std::optional<std::string>> to{*this, "to", "To display-name substring or exact address."};
    Option<std::optional<std::string>> cc{*this, "cc", "Cc display-name substring or exact address."};
    Option<std::optional<std::string>> bcc{*this, "bcc", "Available Bcc display-name substring or exact address."};
    Option<std::optional<std::string>> subject{*this, "subject",
                                               "Case-insensitive substring of the matching message subject."};
};

/// Filters of a listing inside a mailbox or an e-mail thread; the service sees to it that the parent is one.
struct EmailListingFilterOptions final : EmailFilterOptions {
    EmailListingFilterOptions()
        : EmailFilterOptions("Email sender: display-name substring or exact email address. Needs a mailbox or email "
                             "thread as the parent.") {}
};

/// Filters of a search, which needs no mailbox.
struct EmailSearchFilterOptions final : EmailFilterOptions {
    EmailSearchFilterOptions() : EmailFilterOptions("Sender display-name substring or exact email address.") {}
};

/// The query of the filters that are given.
QueryItems emailFilterItems(const EmailFilterOptions& options);

} // namespace orvane
