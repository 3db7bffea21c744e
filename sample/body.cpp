#include "body.h"

#include <boost/json.hpp>

#include "text.h"

namespace sample {

namespace json = boost::json;

namespace {

[[noreturn]] void refuse(std::string_view key, const std::string& demand) {
    throw RequestError(400, std::string(key) + " must be " + demand + ".");
}

/// The value under the key, or null when there is none.
const json::value* find(const json::object& body, std::string_view key, json::kind kind, const std::string& demand) {
    const json::value* value = body.if_contains(key);
    if (value && value->kind() != kind) {
        refuse(key, demand);
    }
    return value;
}

} // namespace

json::object bodyOf(const Request& request) {
    json::error_code error;
    json::value body = json::parse(request.body, error);
    if (error || !body.is_object()) {
        throw RequestError(400, "The body must be a JSON object" + (error ? ": " + error.message() : "") + ".");
    }
    return std::move(body.get_object());
}

std::optional<std::string> optionalText(const json::object& body, std::string_view key) {
    const json::value* value = find(body, key, json::kind::string, "a text");
    return value ? std::optional<std::string>(value->get_string()) : std::nullopt;
}

std::string requiredText(const json::object& body, std::string_view key) {
    const auto given = optionalText(body, key);
    if (!given) {
        refuse(key, "given");
    }
    return *given;
}

std::string requiredName(const json::object& body, std::string_view key) {
    const std::string name = requiredText(body, key);
    if (words(name).empty()) {
        refuse(key, "more than blanks");
    }
    return name;
}

bool optionalFlag(const json::object& body, std::string_view key) {
    const json::value* value = find(body, key, json::kind::bool_, "true or false");
    return value && value->get_bool();
}

std::vector<std::string> optionalTexts(const json::object& body, std::string_view key) {
    const json::value* value = find(body, key, json::kind::array, "a list of texts");
    std::vector<std::string> texts;
    for (const json::value& entry : value ? value->get_array() : json::array()) {
        if (!entry.is_string()) {
            refuse(key, "a list of texts");
        }
        texts.emplace_back(entry.get_string());
    }
    return texts;
}

} // namespace sample
