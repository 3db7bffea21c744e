// The process entry.
#include "ArgumentParser/RunCommandLine.h"
#include "RootCommand.h"
#include "platform/Streams.h"

int main(int argumentCount, char** arguments) {
    platform::reserveStandardStreams();
    return argumentparser::runCommandLine(orvane::rootCommand(), argumentCount, arguments);
}
