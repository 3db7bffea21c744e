// Whether the tool has its `ontology` command, which the hosting application may turn off.
#pragma once

#include "platform/InfoDictionary.h"

namespace orvane {

/// True unless `lookup` says that the application turned it off.
inline bool isOntologyEnabled(platform::InfoDictionaryLookup lookup) {
    return lookup("OrvaneOntologyEnabled") != false;
}

} // namespace orvane
