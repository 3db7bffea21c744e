// The process entry.
#include "ArgumentParser/CommandLine.h"
#include "core/RootCommand.h"
#include "platform/Streams.h"

int main(int argumentCount, char** arguments) {
    platform::reserveStandardStreams();
    return argumentparser::runCommandLine(argumentparser::CommandType::of<orvane::OrvaneCLI>(), argumentCount,
                                          arguments);
}
