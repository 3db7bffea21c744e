#include "shell/ContextEditing.h"

#include "core/Query.h"

namespace orvane {

ServiceReply postContextEdit(const std::string& id, JsonBody body, std::string_view verb) {
    const std::string path = buildQueryPath("/api/contexts/" + id + "/edit", QueryItems().add("cliVerb", verb));
    ServiceReply reply = servicePostJSON(path, std::move(body), standardTimeout);
    failOnErrorStatus(reply);
    return reply;
}

} // namespace orvane
