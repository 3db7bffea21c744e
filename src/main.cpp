// The process entry.
#include <cstdlib>

#include "ArgumentParser/RunCommandLine.h"
#include "RootCommand.h"
#include "platform/files/Streams.h"

// The library's own prints the name of what was thrown, by code and tables that every run would have to load. What is
// thrown is caught long before.
namespace __gnu_cxx {
void __verbose_terminate_handler();
void __verbose_terminate_handler() {
    std::abort();
}
} // namespace __gnu_cxx

int main(int argumentCount, char** arguments) {
    platform::reserveStandardStreams();
    return argumentparser::runCommandLine(orvane::rootCommand(), argumentCount, arguments);
}
