#include "ontology/OntologyRequests.h"

#include "core/service/Answers.h"
#include "ontology/OntologyInputs.h"
#include "platform/files/Streams.h"

namespace orvane {

namespace {

std::string fullPath(std::string_view path) {
    return "/api/ontology/v2/" + std::string(path);
}

void send(std::string_view method, std::string_view path, std::optional<std::string> json) {
    passOn({.method = method, .path = fullPath(path), .json = std::move(json)}, EmptyAnswer::nothing);
}

} // namespace

void getOntology(std::string_view path, const QueryItems& items) {
    send("GET", buildQueryPath(path, items), std::nullopt);
}

void postOntology(std::string_view path, std::string json) {
    send("POST", path, std::move(json));
}

void postOntology(std::string_view path, JsonBody body) {
    send("POST", path, std::move(body).finish());
}

void patchOntology(std::string_view path, std::string json) {
    send("PATCH", path, std::move(json));
}

void patchOntology(std::string_view path, JsonBody body) {
    if (body.isEmpty()) {
        throw nothingToUpdate();
    }
    patchOntology(path, std::move(body).finish());
}

void deleteOntology(std::string_view path) {
    send("DELETE", path, std::nullopt);
}

void deleteOntologyResource(std::string_view collection, std::string_view word, const std::string& id) {
    serviceDelete(fullPath(std::string(collection) + "/" + id));
    platform::writeStandardOutput({"Deleted ", word, " ", id, "\n"});
}

} // namespace orvane
