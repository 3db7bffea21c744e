#include "shell/Cat.h"

#include "core/Identifiers.h"
#include "core/Query.h"
#include "shell/NodeReading.h"

namespace orvane {

namespace {

void validateLines(Integer lines) {
    if (lines <= 0) {
        throw ValidationError{"lines must be greater than 0."};
    }
}

} // namespace

CommandConfiguration Cat::configuration() {
    return {.commandName = "cat",
            .abstract = "Print a node's full content (transcript, context, note, or a single message). Containers are "
                        "rejected — use `ls`."};
}

void Cat::validate() const {
    validateUUID(*id);
}

void Cat::run() const {
    readNodeText(nodePath(*id, QueryItems().add("full", "true").add("cliVerb", "cat")), "cat", *id);
}

CommandConfiguration Head::configuration() {
    return {.commandName = "head",
            .abstract = "Print the first N lines of a node's content (default 10). Reads only enough from the start — "
                        "cheaper than `cat`."};
}

void Head::validate() const {
    validateUUID(*id);
    validateLines(lines);
}

void Head::run() const {
    readNodeText(nodePath(*id, QueryItems().add("headLines", lines).add("cliVerb", "head")), "head", *id);
}

CommandConfiguration Tail::configuration() {
    return {.commandName = "tail",
            .abstract = "Print the last N lines of a node's content (default 10). Reads only enough from the end — "
                        "cheaper than `cat`."};
}

void Tail::validate() const {
    validateUUID(*id);
    validateLines(lines);
}

void Tail::run() const {
    readNodeText(nodePath(*id, QueryItems().add("tailLines", lines).add("cliVerb", "tail")), "tail", *id);
}

} // namespace orvane
