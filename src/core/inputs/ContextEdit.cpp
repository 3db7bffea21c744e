#include "core/inputs/ContextEdit.h"

namespace orvane {

JsonBody contextEditBody(const TextOrFile& oldText, const TextOrFile& newText, bool replaceAll) {
    JsonBody body;
    body.set("old_string", oldText.read());
    body.set("new_string", newText.read());
    if (replaceAll) {
        body.set("replace_all", true);
    }
    return body;
}

} // namespace orvane
