// The graph-native ontology: Spaces of Types with Fields and Enums, and Objects that Assertions are made of.
#pragma once

#include "ArgumentParser/CommandType.h"

namespace orvane {

argumentparser::CommandType ontologyCommand();

} // namespace orvane
