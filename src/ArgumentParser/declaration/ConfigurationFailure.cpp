#include "ArgumentParser/declaration/ConfigurationFailure.h"

#include <cstdlib>
#include <string>

#include "platform/files/Streams.h"

namespace argumentparser {

void configurationFailure(std::string_view message) {
    const std::string rule(70, '-');
    platform::writeStandardError("\n" + rule + "\n" + std::string(message) + "\n" + rule + "\n\n");
    std::exit(EXIT_FAILURE);
}

} // namespace argumentparser
