#include "shell/ContextEditRequest.h"

#include "core/service/Query.h"

namespace orvane {

ServiceReply postContextEdit(const std::string& id, JsonBody body, std::string_view verb) {
    return servicePostJSON(buildQueryPath("/api/contexts/" + id + "/edit", QueryItems().add("cliVerb", verb)),
                           std::move(body));
}

} // namespace orvane
