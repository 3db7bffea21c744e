// Inputs that several commands of the ontology share.
#pragma once

#include <string>
#include <string_view>

#include "core/CommandModel.h"
#include "core/service/JsonBody.h"
#include "core/service/Query.h"

namespace orvane {

/// A page of a listing.
struct OntologyPageOptions final : ParsableArguments {
    Option<Integer> limit{*this, "limit", 50, "Maximum results to return (default: 50, max: 200)."};
    Option<std::optional<std::string>> pageToken{*this, "page-token",
                                                 "Opaque next-page token from the previous response."};

    void validate() const override;
    QueryItems queryItems() const;
};

/// The properties that every named resource has, each with a way to change it and, where it may be empty, to clear it.
struct OntologyUpdateOptions final : ParsableArguments {
    Option<std::optional<std::string>> name{*this, "name", "New name."};
    Option<std::optional<std::string>> emoji{*this, "emoji", "New emoji."};
    Flag<bool> clearEmoji{*this, "clear-emoji", "Clear the emoji."};
    Option<std::optional<std::string>> description{*this, "description", "New description."};
    Flag<bool> clearDescription{*this, "clear-description", "Clear the description."};

    /// The body of what is given. Throws ValidationError for a property that is both set and cleared.
    JsonBody body() const;
};

/// The body that creates a named resource.
JsonBody ontologyCreationBody(const Argument<std::string>& name, const Option<std::optional<std::string>>& emoji,
                              const Option<std::optional<std::string>>& description);

/// Sets `key` in `body` to the text that is given, or to null when it is to be cleared; leaves `body` alone without
/// either. Throws ValidationError when both are given.
void applyClearableProperty(const Option<std::optional<std::string>>& value, const Flag<bool>& clear,
                            std::string_view key, JsonBody& body);

/// Sets `key` in `body` to a UUID that is given, checked as `label`, or to null when it is to be cleared.
void applyClearableUUID(const Option<std::optional<std::string>>& value, const Flag<bool>& clear, std::string_view key,
                        std::string_view label, JsonBody& body);

/// How an update without any property is refused.
ValidationError nothingToUpdate();

} // namespace orvane
