// Replacing parts of a context that are named by their exact content.
#include <algorithm>

#include <boost/json.hpp>

#include "Endpoints.h"
#include "library/Collection.h"
#include "library/Text.h"

namespace sample {

namespace {

/// The text with the first `from`, or every one, replaced.
std::string replaceText(std::string text, std::string_view from, std::string_view to, bool everywhere) {
    if (from.empty()) {
        throw RequestError(400, "old_string must not be empty.");
    }
    auto at = text.find(from);
    if (at == std::string::npos) {
        throw RequestError(409, "old_string does not occur in the context. It must match exactly.");
    }
    do {
        text.replace(at, from.size(), to);
        at = text.find(from, at + to.size());
    } while (everywhere && at != std::string::npos);
    return text;
}

/// Replaces a block of whole lines that occurs once. Without new lines the block goes together with one of the line
/// feeds around it.
std::string replaceLines(std::string_view text, const json::array& from, const json::array& to) {
    auto lines = split(text);
    const auto isLine = [](std::string_view line, const json::value& given) { return line == given.as_string(); };
    const auto match = std::search(lines.begin(), lines.end(), from.begin(), from.end(), isLine);
    if (match == lines.end()) {
        throw RequestError(409, "The block of old_lines does not occur in the context. It must match exactly.");
    }
    if (std::search(match + 1, lines.end(), from.begin(), from.end(), isLine) != lines.end()) {
        throw RequestError(409, "The block of old_lines occurs more than once in the context.");
    }
    const auto behind = lines.erase(match, match + std::ssize(from));
    std::vector<std::string_view> added;
    for (const json::value& line : to) {
        added.push_back(line.as_string());
    }
    lines.insert(behind, added.begin(), added.end());
    return joinLines(lines) + (text.ends_with('\n') && !lines.empty() ? "\n" : "");
}

json::value editContext(Library& library, const Request& request) {
    Node& node = askedOwnNode(library, request);
    const json::object& body = request.body;
    const std::string_view before = text(node, "text");
    json::object answer{{"contextId", node.at("id")}};
    if (body.contains("old_lines")) {
        node["text"] = replaceLines(before, body.at("old_lines").as_array(), body.at("new_lines").as_array());
    } else {
        const bool everywhere = body.contains("replace_all") && body.at("replace_all").as_bool();
        node["text"] = replaceText(std::string(before), text(body, "old_string"), text(body, "new_string"), everywhere);
        answer["replace_all"] = everywhere;
    }
    markChanged(node);
    return answer;
}

} // namespace

Endpoints editingEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"POST", "/api/contexts/{id}/edit", editContext},
    };
    return endpoints;
}

} // namespace sample
