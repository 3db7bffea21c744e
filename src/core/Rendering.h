// What commands share in printing: raw answers, colour, labelled rows and one-line reports.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ServiceClient.h"
#include "platform/Json.h"

namespace orvane {

/// Writes `data` byte for byte and one line feed to standard output.
void printRawResponse(std::string_view data);

/// failOnErrorStatus, then printRawResponse: all that most commands do with an answer.
void printReply(const ServiceReply& reply);

/// Gives the answer's object to `render`. An answer that holds none is no failure: it is printed as it came.
template <class Render>
void renderObject(std::string_view data, Render render) {
    if (const auto document = platform::JsonDocument::parseObject(data)) {
        render(document->object());
    } else {
        printRawResponse(data);
    }
}

/// Whether standard output is a terminal, asked once. Colour depends on nothing else.
bool stdoutIsTerminal();

/// `text` in the style of an ANSI code such as "1" (bold), "2" (dim), "31" (red), "32" (green) or "36" (cyan), when
/// standard output is a terminal and `code` is not empty.
std::string ansiStyled(std::string_view text, std::string_view code);

struct LabelledRow {
    std::string_view label;
    std::string value;
    std::string_view code; ///< The value's ANSI code; empty for none.
};

/// The rows with their values in one column behind dim labels, each on a line of its own.
std::string labelledRowsText(const std::vector<LabelledRow>& rows);

/// Prints the rows; an empty line when there are none.
void printLabelledRows(const std::vector<LabelledRow>& rows);

/// `text` on one line of at most `limit` characters, which end in "…" when some had to go.
std::string singleLine(std::string_view text, std::size_t limit);

/// Reports a completed change on one line, such as: created folder "Notes"  <id>  <detail>. What is absent or empty
/// leaves no trace.
void printMutationLine(std::string_view verb, std::optional<std::string_view> name, std::optional<std::string_view> id,
                       std::optional<std::string_view> detail);

/// Whom a node belongs to, from its "sourceOwner": "me", an email or a name.
std::string ownerLabel(const std::optional<platform::JsonObject>& owner);

} // namespace orvane
