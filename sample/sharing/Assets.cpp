// The images of contexts, kept in base64 as they come.
#include <boost/json.hpp>
#include <boost/uuid/uuid_generators.hpp>
#include <boost/uuid/uuid_io.hpp>

#include "Endpoints.h"
#include "library/Collection.h"

namespace sample {

namespace {

json::object& assets(Library& library) {
    json::value& list = library.account["assets"];
    return list.is_object() ? list.get_object() : list.emplace_object();
}

/// The bytes of a padded text in base64 without line breaks. Throws RequestError for any other text.
std::string base64Decoded(std::string_view text) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const RequestError unfit(400, "data must be in base64.");
    if (text.size() % 4 != 0) {
        throw unfit;
    }
    for (int padding = 0; padding < 2 && text.ends_with('='); ++padding) {
        text.remove_suffix(1);
    }
    std::string bytes;
    unsigned bits = 0;
    unsigned count = 0;
    for (const char character : text) {
        const std::size_t digit = digits.find(character);
        if (digit == std::string_view::npos) {
            throw unfit;
        }
        bits = bits << 6U | static_cast<unsigned>(digit);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>(bits >> count & 255U);
        }
    }
    return bytes;
}

json::value uploadAsset(Library& library, const Request& request) {
    const Node& context = ownContext(library, text(request.body, "contextId"));
    const std::string_view data = text(request.body, "data");
    if (base64Decoded(data).empty()) {
        throw RequestError(400, "The image is empty.");
    }
    const std::string id = to_string(boost::uuids::random_generator()());
    const std::string url = "https://assets.orvane.app/v1/" + id;
    assets(library)[id] = data;
    return {{"id", id},
            {"contextId", context.at("id")},
            {"url", url},
            {"markdown", "![" + std::string(text(request.body, "originalFilename")) + "](" + url + ")"}};
}

std::string downloadAsset(Library& library, const Request& request) {
    const json::value* data = assets(library).if_contains(request.id());
    if (!data) {
        throw RequestError(404, "No asset has the id " + request.id() + ".");
    }
    return base64Decoded(data->as_string());
}

} // namespace

Endpoints assetsEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"POST", "/api/assets", uploadAsset},
        {"GET", "/api/assets/{id}", nullptr, downloadAsset},
    };
    return endpoints;
}

} // namespace sample
