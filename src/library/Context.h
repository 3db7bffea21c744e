// `context`: the Markdown documents that the user keeps in the library.
#pragma once

#include "library/Paging.h"

namespace orvane {

struct Context final : ParsableCommand {
    static CommandConfiguration configuration();
};

struct ContextList final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<Integer> limit{*this, "limit", 100, "Maximum number of results (default: 100, max: 500)."};

    void run() const override;
};

struct ContextGet final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the context."};
    OptionGroup<ChunkPageOptions> page{*this, "page"};

    void run() const override;
};

struct ContextCreate final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::string> title{*this, "title", "The title of the context."};
    Option<std::optional<std::string>> body{*this, "body", "The markdown body of the context."};
    Option<std::optional<std::string>> bodyFile{
        *this, "bodyFile", "Path to a file containing the markdown body. Mutually exclusive with --body."};
    Option<std::optional<std::string>> emoji{*this, "emoji", "A single emoji character for the context."};
    Option<std::optional<std::string>> folder{*this, "folder", "The UUID of the folder to place the context in."};
    Option<std::vector<std::string>> sources{
        *this,
        "sources",
        std::vector<std::string>(),
        "Source document UUIDs for provenance tracking (e.g. transcript or context IDs that informed this context).",
        {.parsing = ParsingStrategy::upToNextOption}};

    void validate() const override;
    void run() const override;
};

struct ContextEdit final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the context to edit."};
    Option<std::optional<std::string>> oldString{*this, "oldString", "The exact text to find in the context body."};
    Option<std::optional<std::string>> oldStringFile{
        *this, "oldStringFile",
        "Path to a file containing the text to find. Mutually exclusive with --old-string. A single trailing newline "
        "is stripped."};
    Option<std::optional<std::string>> newString{*this, "newString", "The text to replace it with."};
    Option<std::optional<std::string>> newStringFile{
        *this, "newStringFile",
        "Path to a file containing the replacement text. Mutually exclusive with --new-string. A single trailing "
        "newline is stripped."};
    Flag<bool> replaceAll{*this, "replaceAll", "Replace all occurrences instead of just the first."};

    void validate() const override;
    void run() const override;
};

struct ContextMove final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the context to move."};
    Option<std::optional<std::string>> to{*this, "to", "The UUID of the destination folder."};
    Flag<bool> unfiled{*this, "unfiled", "Remove the context from its folder."};

    void validate() const override;
    void run() const override;
};

struct ContextRename final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the context."};
    Option<std::string> name{*this, "name", "The new name."};

    void run() const override;
};

struct ContextDelete final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the context."};

    void run() const override;
};

} // namespace orvane
