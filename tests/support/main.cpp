#include <csignal>
#include <cstdio>
#include <exception>

#include <gtest/gtest.h>

#include "support/TestNetwork.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::signal(SIGPIPE, SIG_IGN);
    if (!GTEST_FLAG_GET(list_tests)) {
        try {
            testsupport::isolateNetwork();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "orvane-tests: %s\n", error.what());
            return 1;
        }
    }
    return RUN_ALL_TESTS();
}
