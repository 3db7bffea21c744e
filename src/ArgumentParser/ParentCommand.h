// A subcommand's view of one of its ancestors on the command line.
#pragma once

#include "ArgumentParser/declaration/DecodedCommands.h"
#include "ArgumentParser/declaration/DecodedInput.h"

namespace argumentparser {

/// Reads as the decoded ancestor: `parent->verbose`. Decoding fails when `Command` is no ancestor.
template <class Command>
class ParentCommand final : public DeclaredInput {
public:
    explicit ParentCommand(ParsableArguments& owner) : DeclaredInput(owner) {}

    const Command& operator*() const {
        if (ancestor_ == nullptr) {
            undecodedInputFailure();
        }
        return *ancestor_;
    }
    const Command* operator->() const { return &**this; }

    void addDefinitions(ArgumentSet&, const InputContext&) override {}
    void decode(const DecodedCommands& ancestors, const InputContext&) override {
        ancestor_ = &static_cast<const Command&>(ancestors.ancestor(CommandType::of<Command>()));
    }

private:
    const Command* ancestor_ = nullptr;
};

} // namespace argumentparser
