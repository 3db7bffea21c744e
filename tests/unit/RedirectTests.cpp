#include <gtest/gtest.h>

#include "platform/http/Redirect.h"

namespace {

/// Where `reference` leads from http://localhost:44360/a/x?y; empty when that is nowhere on loopback.
std::string resolved(std::string_view reference) {
    const auto location = platform::resolveRedirect({"localhost", 44360, "/a/x?y"}, reference);
    return location ? platform::hostAndPort(location->host, location->port) + " " + location->target : "";
}

} // namespace

TEST(Redirect, resolvesAReferenceAgainstTheURLThatWasAsked) {
    EXPECT_EQ(resolved(""), "localhost:44360 /a/x?y");
    EXPECT_EQ(resolved("/b?c=../d"), "localhost:44360 /b?c=../d");
    EXPECT_EQ(resolved("c/../d#e"), "localhost:44360 /a/d");
    EXPECT_EQ(resolved("?q"), "localhost:44360 /a/x?q");
    EXPECT_EQ(resolved("../.."), "localhost:44360 /");
    EXPECT_EQ(resolved("HTTP://LocalHost:44360/%C3%A4"), "localhost:44360 /%C3%A4");
    EXPECT_EQ(resolved("http://127.0.0.1?q"), "127.0.0.1 /?q");
    EXPECT_EQ(resolved("http://127.0.0.1:/b"), "127.0.0.1 /b");
    EXPECT_EQ(resolved("//[::1]:8080/../b/./c/.."), "[::1]:8080 /b/");
}

TEST(Redirect, leadsToPlainHttpOnLoopbackAlone) {
    for (const std::string_view reference :
         {"https://localhost:44360/b", "http://example.com/", "http://127.example.com/", "//192.0.2.1/b",
          "ftp://localhost/b", "http://localhost:99999/", "http://[::2]:44360/", "http://a b/", "/a b", "mailto:a@b",
          "http:/b", "http://user@127.0.0.1:44360/b", "http://127.0.0.256:44360/b", "http://localhost:0/b",
          "http://localhost.example/", "http://[::1", "http://127.0.0.+1/", "http://127.0.0.010/",
          "http://localhost:+80/"}) {
        EXPECT_EQ(resolved(reference), "") << reference;
    }
}
