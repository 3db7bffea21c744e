#include "ontology/OntologyInputs.h"

#include "core/inputs/Checks.h"
#include "core/inputs/Identifiers.h"

namespace orvane {

void OntologyPageOptions::validate() const {
    requireBetween("limit", limit, 1, 200);
}

QueryItems OntologyPageOptions::queryItems() const {
    return QueryItems().add("limit", limit).addIfGiven("pageToken", pageToken);
}

JsonBody OntologyUpdateOptions::body() const {
    JsonBody changes;
    changes.setIfGiven("name", name);
    applyClearableProperty(emoji, clearEmoji, "emoji", changes);
    applyClearableProperty(description, clearDescription, "description", changes);
    return changes;
}

JsonBody ontologyCreationBody(const Argument<std::string>& name, const Option<std::optional<std::string>>& emoji,
                              const Option<std::optional<std::string>>& description) {
    JsonBody body;
    body.set("name", name).setIfGiven("emoji", emoji).setIfGiven("description", description);
    return body;
}

void applyClearableProperty(const Option<std::optional<std::string>>& value, const Flag<bool>& clear,
                            std::string_view key, JsonBody& body) {
    const std::string option(key);
    validateAtMostOne({value, clear}, "Use either --" + option + " or --clear-" + option + ", not both.");
    if (clear) {
        body.setNull(key);
    } else {
        body.setIfGiven(key, value);
    }
}

void applyClearableUUID(const Option<std::optional<std::string>>& value, const Flag<bool>& clear, std::string_view key,
                        std::string_view label, JsonBody& body) {
    if (value) {
        body.set(key, canonicalUUID(*value, label));
    } else if (clear) {
        body.setNull(key);
    }
}

ValidationError nothingToUpdate() {
    return {"Provide at least one property to update."};
}

} // namespace orvane
