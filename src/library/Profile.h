// `profile`: the user's structured profile, made of scalar fields, Markdown texts and cards. Which sections and fields
// there are is the service's to say.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Profile final : ParsableCommand {
    static CommandConfiguration configuration();
};

struct ProfileGet final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::optional<std::string>> section{
        *this, "section",
        "Read a specific section: name, preferredName, dateOfBirth, email, phone, address, employer, jobTitle, "
        "education, workExperience, connections, projects, decisions, expertise, upcoming, biography, communication, "
        "personality."};

    void run() const override;
};

struct ProfileEditField final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::string> field{
        *this, "field",
        "The field to update: name, preferredName, dateOfBirth, email, phone, address, employer, jobTitle."};
    Option<std::string> value{*this, "value", "The new value for the field."};

    void run() const override;
};

struct ProfileEditText final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::string> section{*this, "section", "The section to replace: biography, communication, personality."};
    Option<std::optional<std::string>> content{*this, "content", "The new markdown content for the section."};
    Option<std::optional<std::string>> contentFile{
        *this, "contentFile", "Path to a file containing the new markdown content. Mutually exclusive with --content."};

    void validate() const override;
    void run() const override;
};

/// The help of an option that names a section of cards.
inline constexpr const char* cardSectionHelp =
    "The section: education, workExperience, connections, projects, decisions, expertise, upcoming.";

struct ProfileAddCard final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::string> section{*this, "section", cardSectionHelp};
    Option<std::string> fields{*this, "fields",
                               R"(Card fields as a JSON object, e.g. '{"name":"Alice","shortDescription":"Friend"}'.)"};

    void run() const override;
};

struct ProfileUpdateCard final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::string> section{*this, "section", cardSectionHelp};
    Option<Integer> index{*this, "index", "0-based index of the card to update."};
    Option<std::string> updates{*this, "updates",
                                R"(Fields to update as a JSON object, e.g. '{"description":"New description"}'.)"};

    void run() const override;
};

struct ProfileRemoveCard final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::string> section{*this, "section", cardSectionHelp};
    Option<Integer> index{*this, "index", "0-based index of the card to remove."};

    void run() const override;
};

} // namespace orvane
