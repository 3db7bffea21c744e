// `folder`: folders, which hold contexts and other folders.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Folder final : ParsableCommand {
    static CommandConfiguration configuration();
};

struct FolderList final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<Integer> limit{*this, "limit", 100, "Maximum number of results (default: 100, max: 500)."};

    void run() const override;
};

struct FolderGet final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the folder."};

    void run() const override;
};

struct FolderCreate final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::string> name{*this, "name", "The folder name."};
    Option<std::optional<std::string>> emoji{*this, "emoji", "A single emoji character for the folder."};

    void run() const override;
};

struct FolderRename final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the folder."};
    Option<std::string> name{*this, "name", "The new name."};
    Option<std::optional<std::string>> emoji{*this, "emoji", "A single emoji character for the folder."};

    void run() const override;
};

struct FolderMove final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the folder to move."};
    Option<std::optional<std::string>> to{*this, "to", "Destination parent folder UUID."};
    Flag<bool> toRoot{*this, "toRoot", "Move the folder to the top level (no parent)."};

    void validate() const override;
    void run() const override;
};

struct FolderDelete final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the folder."};

    void run() const override;
};

} // namespace orvane
