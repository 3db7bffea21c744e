#include "library/Profile.h"

#include "core/CLIError.h"
#include "core/Query.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "core/TextInput.h"

namespace orvane {

namespace {

/// The object that an option's JSON text holds. Throws CLIError, with `message`, for anything but an object of texts.
JsonBody objectOfTexts(std::string_view json, const std::string& message) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (json.starts_with(byteOrderMark)) {
        json.remove_prefix(byteOrderMark.size());
    }
    const auto document = platform::JsonDocument::parseObject(json);
    if (!document) {
        throw CLIError::invalidInput(message);
    }
    JsonBody object;
    for (const std::string_view key : document->object().sortedKeys()) {
        const auto text = document->object().text(key);
        if (!text) {
            throw CLIError::invalidInput(message);
        }
        object.set(key, *text);
    }
    return object;
}

} // namespace

CommandConfiguration Profile::configuration() {
    return {
        .abstract = "View and edit the user's structured profile.",
        .ungroupedSubcommands = {CommandType::of<ProfileGet>(), CommandType::of<ProfileEditField>(),
                                 CommandType::of<ProfileEditText>(), CommandType::of<ProfileAddCard>(),
                                 CommandType::of<ProfileUpdateCard>(), CommandType::of<ProfileRemoveCard>()},
        .defaultSubcommand = CommandType::of<ProfileGet>(),
    };
}

CommandConfiguration ProfileGet::configuration() {
    return {.commandName = "get", .abstract = "Get the user's structured profile."};
}

void ProfileGet::run() const {
    const QueryItems items = QueryItems().addIfGiven("section", section);
    printReply(serviceGet(buildQueryPath("/api/profile", items), standardTimeout));
}

CommandConfiguration ProfileEditField::configuration() {
    return {.commandName = "edit-field",
            .abstract = "Update a scalar profile field (name, email, phone, employer, jobTitle, etc.)."};
}

void ProfileEditField::run() const {
    JsonBody body;
    body.set("field", *field).set("value", *value);
    printReply(servicePostJSON("/api/profile/edit-field", std::move(body), standardTimeout));
}

CommandConfiguration ProfileEditText::configuration() {
    return {.commandName = "edit-text",
            .abstract = "Replace a markdown text section (biography, communication, personality)."};
}

void ProfileEditText::validate() const {
    if (content && contentFile) {
        throw ValidationError{"Cannot use both --content and --content-file."};
    }
    if (!content && !contentFile) {
        throw ValidationError{"Provide either --content or --content-file."};
    }
}

void ProfileEditText::run() const {
    JsonBody body;
    body.set("section", *section).set("content", contentFile ? readTextFile(*contentFile) : *content);
    printReply(servicePostJSON("/api/profile/edit-text", std::move(body), standardTimeout));
}

CommandConfiguration ProfileAddCard::configuration() {
    return {.commandName = "add-card", .abstract = "Add a new card to a structured section."};
}

void ProfileAddCard::run() const {
    JsonBody body;
    body.set("section", *section)
        .set("card", objectOfTexts(*fields, "--fields must be a valid JSON object with string values."));
    printReply(servicePostJSON("/api/profile/add-card", std::move(body), standardTimeout));
}

CommandConfiguration ProfileUpdateCard::configuration() {
    return {.commandName = "update-card",
            .abstract = "Update specific fields on an existing card by section and index."};
}

void ProfileUpdateCard::run() const {
    JsonBody body;
    body.set("section", *section)
        .set("index", *index)
        .set("updates", objectOfTexts(*updates, "--updates must be a valid JSON object with string values."));
    printReply(servicePostJSON("/api/profile/update-card", std::move(body), standardTimeout));
}

CommandConfiguration ProfileRemoveCard::configuration() {
    return {.commandName = "remove-card", .abstract = "Remove a card from a structured section by index."};
}

void ProfileRemoveCard::run() const {
    JsonBody body;
    body.set("section", *section).set("index", *index);
    printReply(servicePostJSON("/api/profile/remove-card", std::move(body), standardTimeout));
}

} // namespace orvane
