// The request by which `sed` and `replace-lines` edit a context's body.
#pragma once

#include <string>
#include <string_view>

#include "core/service/ServiceClient.h"

namespace orvane {

/// Sends the edit of the context `id` in the name of `verb`. Throws CLIError.
ServiceReply postContextEdit(const std::string& id, JsonBody body, std::string_view verb);

} // namespace orvane
