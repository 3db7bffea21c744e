// `cat`, `head` and `tail`: a node's text, whole or its ends.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Cat final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the node to read."};

    void validate() const override;
    void run() const override;
};

struct Head final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the node to read."};
    Option<Integer> lines{
        *this, "lines", 10, "Number of lines to print (default: 10).", {.names = {longName(), customShort("n")}}};

    void validate() const override;
    void run() const override;
};

struct Tail final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the node to read."};
    Option<Integer> lines{
        *this, "lines", 10, "Number of lines to print (default: 10).", {.names = {longName(), customShort("n")}}};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
