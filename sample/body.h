// The JSON body of a request. Whatever is missing or of another type than asked for throws RequestError.
#pragma once

#include "request.h"

namespace sample {

boost::json::object bodyOf(const Request& request);

std::optional<std::string> optionalText(const boost::json::object& body, std::string_view key);
std::string requiredText(const boost::json::object& body, std::string_view key);

/// A text that is more than blanks.
std::string requiredName(const boost::json::object& body, std::string_view key);

/// False when it is missing.
bool optionalFlag(const boost::json::object& body, std::string_view key);

/// Empty when it is missing.
std::vector<std::string> optionalTexts(const boost::json::object& body, std::string_view key);

} // namespace sample
