// Inputs that several commands share, spliced into a command at the place of the group.
#pragma once

#include <algorithm>

#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

struct OptionGroupSettings {
    std::string_view title = {};                               ///< Heads a section of its own in help; empty for none.
    ArgumentVisibility visibility = ArgumentVisibility::shown; ///< Applies to every input inside.
};

/// Reads as its inputs: `group->sender`.
template <class Group>
class OptionGroup final : public DeclaredInput {
public:
    OptionGroup(ParsableArguments& owner, std::string_view key, OptionGroupSettings settings = {})
        : DeclaredInput(owner), key_(key), settings_(settings) {}

    const Group& operator*() const { return group_; }
    const Group* operator->() const { return &group_; }

    void addDefinitions(ArgumentSet& arguments, const InputContext& context) override {
        group_.addDefinitions(arguments, innerContext(context));
    }
    void decode(const DecodedCommands& ancestors, const InputContext& context) override {
        group_.decode(ancestors, innerContext(context));
        group_.validate();
    }

private:
    InputContext innerContext(InputContext context) const {
        context.path.push_back(key_);
        if (!settings_.title.empty()) {
            context.parentTitle = settings_.title;
        }
        context.visibility = std::max(context.visibility, settings_.visibility);
        return context;
    }

    std::string_view key_;
    OptionGroupSettings settings_;
    Group group_;
};

} // namespace argumentparser
