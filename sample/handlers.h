// What the sample library does for each of its paths.
#pragma once

#include "library.h"
#include "request.h"

namespace sample {

Response status(Library& library, const Request& request);
Response whoami(Library& library, const Request& request);
Response checkIn(Library& library, const Request& request);

Response listNodes(Library& library, const Request& request);
Response readNode(Library& library, const Request& request);
Response searchNodes(Library& library, const Request& request);
Response searchContexts(Library& library, const Request& request);

// The paths of contexts and of folders share those that are common to both.
Response createContext(Library& library, const Request& request);
Response createFolder(Library& library, const Request& request);
Response editContext(Library& library, const Request& request);
Response renameNode(Library& library, const Request& request);
Response moveNode(Library& library, const Request& request);
Response removeNode(Library& library, const Request& request);

Response previewTranscriptRemoval(Library& library, const Request& request);
Response removeTranscript(Library& library, const Request& request);

} // namespace sample
