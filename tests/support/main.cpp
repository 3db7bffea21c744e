#include <csignal>

#include <gtest/gtest.h>

#include "support/TestNetwork.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::signal(SIGPIPE, SIG_IGN);
    if (!GTEST_FLAG_GET(list_tests)) {
        testsupport::isolateNetwork();
    }
    return RUN_ALL_TESTS();
}
