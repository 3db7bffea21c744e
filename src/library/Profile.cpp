// `profile`: the user's structured profile, made of scalar fields, Markdown texts and cards. Which sections and fields
// there are is the service's to say.
#include "core/inputs/Checks.h"
#include "core/inputs/TextInput.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "library/Library.h"

namespace orvane {

namespace {

constexpr const char* cardSectionHelp =
    "The section: education, workExperience, connections, projects, decisions, expertise, upcoming.";

using Words = std::vector<std::string_view>;

Words scalarFields() {
    return {"name", "preferredName", "dateOfBirth", "email", "phone", "address", "employer", "jobTitle"};
}

Words cardSections() {
    return {"education", "workExperience", "connections", "projects", "decisions", "expertise", "upcoming"};
}

Words textSections() {
    return {"biography", "communication", "personality"};
}

Words allSections() {
    Words all = scalarFields();
    for (const Words& more : {cardSections(), textSections()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

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
    for (const auto& [key, value] : document->object().members()) {
        const auto text = value.text();
        if (!text) {
            throw CLIError::invalidInput(message);
        }
        object.set(key, *text);
    }
    return object;
}

struct ProfileGet final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "get", .abstract = "Get the user's structured profile."};
    }

    Option<std::optional<std::string>> section{
        *this, "section",
        "Read a specific section: name, preferredName, dateOfBirth, email, phone, address, employer, jobTitle, "
        "education, workExperience, connections, projects, decisions, expertise, upcoming, biography, communication, "
        "personality.",
        offering(allSections())};

    void run() const override {
        passOnGet(buildQueryPath("/api/profile", QueryItems().addIfGiven("section", section)));
    }
};

struct ProfileEditField final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "edit-field",
                .abstract = "Update a scalar profile field (name, email, phone, employer, jobTitle, etc.)."};
    }

    Option<std::string> field{
        *this, "field",
        "The field to update: name, preferredName, dateOfBirth, email, phone, address, employer, jobTitle.",
        offering(scalarFields())};
    Option<std::string> value{*this, "value", "The new value for the field."};

    void run() const override {
        JsonBody body;
        body.set("field", field).set("value", value);
        passOnPostJSON("/api/profile/edit-field", std::move(body));
    }
};

struct ProfileEditText final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "edit-text",
                .abstract = "Replace a markdown text section (biography, communication, personality)."};
    }

    Option<std::string> section{*this, "section", "The section to replace: biography, communication, personality.",
                                offering(textSections())};
    Option<std::optional<std::string>> content{*this, "content", "The new markdown content for the section."};
    Option<std::optional<FilePath>> contentFile{
        *this, "content-file",
        "Path to a file containing the new markdown content. Mutually exclusive with --content."};

    void validate() const override {
        validateExactlyOne({content, contentFile}, {.none = "Provide either --content or --content-file.",
                                                    .several = "Cannot use both --content and --content-file."});
    }

    void run() const override {
        JsonBody body;
        body.set("section", section).set("content", TextOrFile{content, contentFile}.read());
        passOnPostJSON("/api/profile/edit-text", std::move(body));
    }
};

struct ProfileAddCard final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "add-card", .abstract = "Add a new card to a structured section."};
    }

    Option<std::string> section{*this, "section", cardSectionHelp, offering(cardSections())};
    Option<std::string> fields{*this, "fields",
                               R"(Card fields as a JSON object, e.g. '{"name":"Alice","shortDescription":"Friend"}'.)"};

    void run() const override {
        JsonBody body;
        body.set("section", section)
            .set("card", objectOfTexts(*fields, "--fields must be a valid JSON object with string values."));
        passOnPostJSON("/api/profile/add-card", std::move(body));
    }
};

struct ProfileUpdateCard final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "update-card",
                .abstract = "Update specific fields on an existing card by section and index."};
    }

    Option<std::string> section{*this, "section", cardSectionHelp, offering(cardSections())};
    Option<Integer> index{*this, "index", "0-based index of the card to update."};
    Option<std::string> updates{*this, "updates",
                                R"(Fields to update as a JSON object, e.g. '{"description":"New description"}'.)"};

    void run() const override {
        JsonBody body;
        body.set("section", section)
            .set("index", index)
            .set("updates", objectOfTexts(*updates, "--updates must be a valid JSON object with string values."));
        passOnPostJSON("/api/profile/update-card", std::move(body));
    }
};

struct ProfileRemoveCard final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "remove-card", .abstract = "Remove a card from a structured section by index."};
    }

    Option<std::string> section{*this, "section", cardSectionHelp, offering(cardSections())};
    Option<Integer> index{*this, "index", "0-based index of the card to remove."};

    void run() const override {
        JsonBody body;
        body.set("section", section).set("index", index);
        passOnPostJSON("/api/profile/remove-card", std::move(body));
    }
};

struct Profile final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "profile",
            .abstract = "View and edit the user's structured profile.",
            .ungroupedSubcommands = {CommandType::of<ProfileGet>(), CommandType::of<ProfileEditField>(),
                                     CommandType::of<ProfileEditText>(), CommandType::of<ProfileAddCard>(),
                                     CommandType::of<ProfileUpdateCard>(), CommandType::of<ProfileRemoveCard>()},
            .defaultSubcommand = CommandType::of<ProfileGet>(),
        };
    }
};

} // namespace

CommandType profileCommand() {
    return CommandType::of<Profile>();
}

} // namespace orvane
