#include "shell/EmailFilters.h"

namespace orvane {

QueryItems emailFilterItems(const EmailFilterOptions& options) {
    return QueryItems()
        .addIfGiven("sender", options.sender)
        .addIfGiven("recipient", options.recipient)
        .addIfGiven("to", options.to)
        .addIfGiven("cc", options.cc)
        .addIfGiven("bcc", options.bcc)
        .addIfGiven("subject", options.subject);
}

} // namespace orvane
