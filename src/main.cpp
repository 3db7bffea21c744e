// The process entry.
#include "ArgumentParser/RunCommandLine.h"
#include "RootCommand.h"
#include "platform/files/Streams.h"

int main(int argumentCount, char** arguments) {
    platform::reserveStandardStreams();
    return argumentparser::runCommandLine(orvane::rootCommand(), argumentCount, arguments);
}
