// The process entry.
#include <cstdlib>
#include <exception>

#include "ArgumentParser/RunCommandLine.h"
#include "RootCommand.h"
#include "platform/files/Streams.h"

// The library's own prints the name of what was thrown, by code and tables that every run would have to load. What is
// thrown is caught long before.
void __gnu_cxx::__verbose_terminate_handler() {
    std::abort();
}

int main(int argumentCount, char** arguments) {
    platform::reserveStandardStreams();
    return argumentparser::runCommandLine(orvane::rootCommand(), argumentCount, arguments);
}
