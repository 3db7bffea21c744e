// `modality`: how a slice that a search returned is to be read.
#include "core/inputs/Identifiers.h"
#include "core/service/Answers.h"
#include "extras/Extras.h"

namespace orvane {

namespace {

enum class SliceModalityArgument { invalid, stale, hypothetical, misattributed, ironic, clear };

constexpr ClosedSet<SliceModalityArgument, 6> closedSet(SliceModalityArgument) {
    using enum SliceModalityArgument;
    return {{{invalid, "invalid"},
             {stale, "stale"},
             {hypothetical, "hypothetical"},
             {misattributed, "misattributed"},
             {ironic, "ironic"},
             {clear, "clear"}}};
}

struct Modality final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "modality",
                .abstract = "Set or clear the server-managed correction for a cloud search slice."};
    }

    Argument<std::string> sliceId{*this, "slice-id", "The slice UUID returned by cloud search."};
    Argument<SliceModalityArgument> modality{
        *this, "modality", "Correction: invalid, stale, hypothetical, misattributed, ironic, or clear."};

    void validate() const override { validateUUID(*sliceId, "slice-id"); }

    void run() const override {
        JsonBody body;
        if (*modality == SliceModalityArgument::clear) {
            body.setNull("modality");
        } else {
            body.set("modality", modality);
        }
        passOnPutJSON("/api/slices/modality/" + canonicalUUID(*sliceId, "slice-id"), std::move(body));
    }
};

} // namespace

CommandType modalityCommand() {
    return CommandType::of<Modality>();
}

} // namespace orvane
