// The children of `ontology`: of each resource a listing, and a group of what can be done with one of its kind.
#pragma once

#include "ArgumentParser/CommandType.h"

namespace orvane {

argumentparser::CommandType ontologySpacesCommand();
argumentparser::CommandType ontologySpaceCommand();
argumentparser::CommandType ontologyTypesCommand();
argumentparser::CommandType ontologyTypeCommand();
argumentparser::CommandType ontologyPrimitivesCommand();
argumentparser::CommandType ontologyFieldsCommand();
argumentparser::CommandType ontologyFieldCommand();
argumentparser::CommandType ontologyEnumsCommand();
argumentparser::CommandType ontologyEnumCommand();
argumentparser::CommandType ontologyEnumCasesCommand();
argumentparser::CommandType ontologyEnumCaseCommand();
argumentparser::CommandType ontologyObjectsCommand();
argumentparser::CommandType ontologyObjectCommand();
argumentparser::CommandType ontologyAssertionsCommand();
argumentparser::CommandType ontologyAssertionCommand();

} // namespace orvane
