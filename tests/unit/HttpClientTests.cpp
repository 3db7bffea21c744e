#include <chrono>
#include <cstdlib>
#include <fstream>
#include <optional>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/HttpClient.h"
#include "support/ScriptedService.h"
#include "support/TestNetwork.h"

using namespace std::chrono_literals;
using platform::HttpFailure;
using platform::HttpRequest;
using testing::ElementsAre;
using testing::HasSubstr;
using testsupport::answer;
using testsupport::Answer;
using testsupport::applicationPort;
using testsupport::cutAnswer;
using testsupport::Headers;
using testsupport::rawAnswer;
using testsupport::ScriptedService;

namespace {

HttpRequest get(std::string target, std::string_view host = "localhost", std::chrono::milliseconds idleTimeout = 10s) {
    return {"GET", host, applicationPort, std::move(target), {}, {}, idleTimeout};
}

HttpRequest send(std::string_view method, std::string target, std::string body, std::chrono::milliseconds idleTimeout = 10s) {
    return {method, "localhost", applicationPort, std::move(target), std::move(body), "application/json", idleTimeout};
}

/// The status and the body, or the failure and its description.
struct Outcome {
    int status = 0;
    std::string body{};
    std::optional<HttpFailure> failure{};
    std::string description{};
};

Outcome outcomeOf(HttpRequest request) {
    try {
        auto response = platform::sendHttpRequest(std::move(request));
        return {response.status, std::move(response.body)};
    } catch (const platform::HttpError& error) {
        return {0, {}, error.failure(), error.what()};
    }
}

void expectAnswered(const Outcome& outcome, int status, const std::string& body) {
    EXPECT_EQ(outcome.failure, std::nullopt) << outcome.description;
    EXPECT_EQ(outcome.status, status);
    EXPECT_TRUE(outcome.body == body) << outcome.body.size() << " bytes: " << outcome.body.substr(0, 200);
}

void expectFailed(const Outcome& outcome, HttpFailure failure, const std::string& description = {}) {
    EXPECT_EQ(outcome.failure, failure) << outcome.status << " " << outcome.body.substr(0, 200);
    EXPECT_THAT(outcome.description, HasSubstr(description));
    EXPECT_FALSE(outcome.description.empty());
}

/// A text in which no two stretches are alike.
std::string largeText(std::size_t size) {
    std::string text;
    text.reserve(size + 8);
    for (std::uint32_t i = 0; text.size() < size; ++i) {
        text += std::to_string(i * 2654435761U);
    }
    text.resize(size);
    return text;
}

/// Sets a value of the kernel's network settings and sets it back.
class NetworkSetting {
public:
    NetworkSetting(std::string path, const std::string& value) : path_("/proc/sys/net/" + std::move(path)) {
        std::getline(std::ifstream(path_) >> std::ws, old_);
        changed_ = testsupport::networkIsOwn() && static_cast<bool>(std::ofstream(path_) << value << std::flush);
    }
    ~NetworkSetting() {
        if (changed_) {
            std::ofstream(path_) << old_;
        }
    }
    NetworkSetting(const NetworkSetting&) = delete;
    NetworkSetting& operator=(const NetworkSetting&) = delete;
    bool isChanged() const { return changed_; }

private:
    std::string path_;
    std::string old_;
    bool changed_ = false;
};

constexpr std::size_t fiftyMegabytes = 50'000'000;

} // namespace

TEST(HttpClient, sendsExactlyTheHeadersThatAreNeeded) {
    const struct {
        HttpRequest request;
        std::string head;
        std::string body;
    } rows[] = {
        {get("/api/a?b=%20c"), "GET /api/a?b=%20c HTTP/1.1\r\nHost: localhost:44360\r\n\r\n", ""},
        {get("/x", "127.0.0.1"), "GET /x HTTP/1.1\r\nHost: 127.0.0.1:44360\r\n\r\n", ""},
        {send("DELETE", "/x", "{\"a\":\"\\u0000\"}"),
         "DELETE /x HTTP/1.1\r\nHost: localhost:44360\r\nContent-Type: application/json\r\nContent-Length: 14\r\n\r\n",
         "{\"a\":\"\\u0000\"}"},
        {send("POST", "/x", ""), "POST /x HTTP/1.1\r\nHost: localhost:44360\r\nContent-Type: application/json\r\n\r\n",
         ""},
    };
    for (const auto& row : rows) {
        const ScriptedService service({answer("ok")});
        expectAnswered(outcomeOf(row.request), 200, "ok");
        ASSERT_EQ(service.requests().size(), 1U);
        EXPECT_EQ(service.requests()[0].head, row.head);
        EXPECT_EQ(service.requests()[0].body, row.body);
    }
}

TEST(HttpClient, findsTheServiceOnIPv4WithoutAProxy) {
    for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"}) {
        ::setenv(name, "http://127.0.0.1:9", 1);
    }
    const ScriptedService service({answer("found")}, ScriptedService::Families::ipv4);
    expectAnswered(outcomeOf(get("/")), 200, "found");
    for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"}) {
        ::unsetenv(name);
    }
}

TEST(HttpClient, prefersIPv6) {
    if (!testsupport::hasIPv6()) {
        GTEST_SKIP() << "loopback has no IPv6 address";
    }
    const ScriptedService six({answer("six"), answer("literal"),
                               answer(302, "", {{"Location", "http://[::1]:44360/b"}}), answer("redirected")},
                              ScriptedService::Families::ipv6);
    const ScriptedService four({}, ScriptedService::Families::ipv4);
    expectAnswered(outcomeOf(get("/")), 200, "six");
    expectAnswered(outcomeOf(get("/", "[::1]")), 200, "literal");
    expectAnswered(outcomeOf(get("/")), 200, "redirected");
    EXPECT_EQ(six.requests()[1].headers, (Headers{{"Host", "[::1]:44360"}}));
    EXPECT_EQ(six.requests()[3].headers, (Headers{{"Host", "[::1]:44360"}}));
}

TEST(HttpClient, aLiteralAddressIsTheOnlyOneTried) {
    const ScriptedService service({}, ScriptedService::Families::ipv4);
    expectFailed(outcomeOf(get("/", "[::1]")), HttpFailure::cannotConnect);
    expectFailed(outcomeOf(get("/", "127.1.2.3")), HttpFailure::cannotConnect);
}

TEST(HttpClient, cannotConnectWhenEveryAddressRefuses) {
    for (const std::string_view host : {"localhost", "127.0.0.1", "127.1.2.3", "[::1]"}) {
        expectFailed(outcomeOf(get("/", host)), HttpFailure::cannotConnect, "44360");
    }
}

TEST(HttpClient, connectsToLoopbackAlone) {
    for (const std::string_view host : {"192.0.2.1", "example.com", "[2001:db8::1]", ""}) {
        expectFailed(outcomeOf(get("/", host, 200ms)), HttpFailure::other, "cannot connect");
    }
}

TEST(HttpClient, doesWithoutIPv6) {
    const NetworkSetting setting("ipv6/conf/lo/disable_ipv6", "1");
    if (!setting.isChanged()) {
        GTEST_SKIP() << "the network's settings cannot be changed here";
    }
    expectFailed(outcomeOf(get("/")), HttpFailure::cannotConnect);
    const ScriptedService service({answer("four")}, ScriptedService::Families::ipv4);
    expectAnswered(outcomeOf(get("/")), 200, "four");
}

TEST(HttpClient, neverTakesItselfForTheService) {
    {
        const NetworkSetting setting("ipv4/ip_local_port_range", "44360 44360");
        if (!setting.isChanged()) {
            GTEST_SKIP() << "the network's settings cannot be changed here";
        }
        expectFailed(outcomeOf(get("/")), HttpFailure::cannotConnect);
    }
    const ScriptedService service({answer("here")});
    expectAnswered(outcomeOf(get("/")), 200, "here");
}

TEST(HttpClient, readsEveryFormOfAnswer) {
    const struct {
        const char* name;
        Answer given;
        int status;
        std::string body;
    } rows[] = {
        {"length", answer(404, "no"), 404, "no"},
        {"empty", answer(500, ""), 500, ""},
        {"no reason", rawAnswer("HTTP/1.1 200 \r\ncontent-length:2\r\n\r\nok"), 200, "ok"},
        {"to the end", cutAnswer("HTTP/1.1 200 OK\r\n\r\nall of it\n"), 200, "all of it\n"},
        {"to the end, nothing", cutAnswer("HTTP/1.1 200 OK\r\n\r\n"), 200, ""},
        {"old version", cutAnswer("HTTP/1.0 200 OK\r\nContent-Type: text/plain\r\n\r\nold"), 200, "old"},
        {"chunks",
         rawAnswer("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3;x=y\r\nabc\r\nA\r\n0123456789\r\n"
                   "0\r\nTrailer: t\r\n\r\n"),
         200, "abc0123456789"},
        {"no chunk", rawAnswer("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n"), 200, ""},
        {"no content", rawAnswer("HTTP/1.1 204 No Content\r\n\r\n"), 204, ""},
        {"not modified", rawAnswer("HTTP/1.1 304 Not Modified\r\nContent-Length: 9\r\n\r\n"), 304, ""},
        {"interim",
         rawAnswer("HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103 Early Hints\r\nLink: x\r\n\r\n"
                   "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nok"),
         200, "ok"},
        {"in pieces",
         testsupport::dribbledAnswer({"HTTP/1.1 102 Pro", "cessing\r\n\r\n", "HTTP/1.1 200 O",
                                      "K\r\nContent-Length: ", "4\r\n\r", "\no", "ka", "y"},
                                     1ms),
         200, "okay"},
        {"chunks in pieces",
         testsupport::dribbledAnswer({"HTTP/1.1 200 OK\r\nTransfer-Encoding: chu", "nked\r\n\r\n1", "0\r\n01234567",
                                      "89abcdef\r", "\n0\r\n\r", "\n"},
                                     1ms),
         200, "0123456789abcdef"},
        {"bytes", answer(std::string("\0\r\n\xff", 4)), 200, std::string("\0\r\n\xff", 4)},
        {"large head", answer(200, "ok", {{"X", std::string(900'000, 'x')}}), 200, "ok"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const ScriptedService service({row.given});
        expectAnswered(outcomeOf(get("/")), row.status, row.body);
    }
}

TEST(HttpClient, tellsALostConnectionFromNonsense) {
    const std::string ok = "HTTP/1.1 200 OK\r\n";
    const std::string five = ok + "Content-Length: 5\r\n\r\n";
    const std::string chunks = ok + "Transfer-Encoding: chunked\r\n\r\n";
    const Answer lost[] = {
        cutAnswer(""),
        testsupport::resetAnswer(),
        cutAnswer("HTTP/1.1 20"),
        cutAnswer(ok + "Content-"),
        cutAnswer("HTTP/1.1 100 Continue\r\n\r\n"),
        cutAnswer(five),
        cutAnswer(five + "1234"),
        cutAnswer(ok + "Content-Length: 9000000000000000000\r\n\r\nx"),
        testsupport::resetAnswer(five + "1234"),
        testsupport::resetAnswer(ok + "\r\nabc"),
        cutAnswer(chunks + "5\r\nabc"),
        cutAnswer(chunks + "3\r\nabc\r\n"),
    };
    for (const Answer& given : lost) {
        SCOPED_TRACE(testing::PrintToString(given.pieces));
        const ScriptedService service({given});
        expectFailed(outcomeOf(get("/")), HttpFailure::connectionLost);
    }
    const std::pair<Answer, std::string> nonsense[] = {
        {cutAnswer("SSH-2.0-server\r\n"), "not valid HTTP (bad version)"},
        {cutAnswer("no"), "not valid HTTP"},
        {rawAnswer("hello there, who is it?"), "not valid HTTP"},
        {rawAnswer("HTTP/2.0 200 OK\r\n\r\n"), "not valid HTTP (bad version)"},
        {rawAnswer("HTTP/1.1 abc OK\r\n\r\n"), "not valid HTTP (bad status)"},
        {rawAnswer(ok + "what is this\r\n\r\n"), "not valid HTTP (bad"},
        {rawAnswer(ok + "Content-Length: x\r\n\r\n"), "not valid HTTP (bad Content-Length)"},
        {rawAnswer(chunks + "xyz\r\n"), "not valid HTTP (bad chunk)"},
        {rawAnswer(ok + "X: " + std::string(1'200'000, 'x')), "the head of the answer is too large"},
    };
    for (const auto& [given, description] : nonsense) {
        SCOPED_TRACE(description);
        const ScriptedService service({given});
        expectFailed(outcomeOf(get("/")), HttpFailure::other, description);
    }
}

TEST(HttpClient, givesUpWhenNothingMoves) {
    const Answer rows[] = {
        testsupport::stall(),
        rawAnswer("HTTP/1.1 200 OK\r\nContent-"),
        rawAnswer("HTTP/1.1 100 Continue\r\n\r\n"),
        rawAnswer("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n1234"),
        rawAnswer("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n"),
        rawAnswer("HTTP/1.1 200 OK\r\n\r\nno end"),
    };
    for (const Answer& given : rows) {
        const ScriptedService service({given});
        const auto start = std::chrono::steady_clock::now();
        expectFailed(outcomeOf(get("/", "localhost", 150ms)), HttpFailure::timedOut);
        EXPECT_GE(std::chrono::steady_clock::now() - start, 150ms);
        EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    }
}

TEST(HttpClient, givesUpOnAConnectionThatIsNotAccepted) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(applicationPort);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const auto* const place = reinterpret_cast<const sockaddr*>(&address);
    int sockets[4];
    for (int& socket : sockets) {
        socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    }
    const int on = 1;
    ::setsockopt(sockets[0], SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    ASSERT_EQ(::bind(sockets[0], place, sizeof address), 0);
    ASSERT_EQ(::listen(sockets[0], 0), 0);
    for (int filler = 1; filler < 4; ++filler) {
        ::connect(sockets[filler], place, sizeof address);
    }
    expectFailed(outcomeOf(get("/", "localhost", 150ms)), HttpFailure::timedOut);
    for (const int socket : sockets) {
        ::close(socket);
    }
}

TEST(HttpClient, waitsAsLongAsBytesMove) {
    std::vector<std::string> pieces{"HTTP/1.1 200 OK\r\nContent-Length: 15\r\n\r\n"};
    pieces.resize(16, ".");
    const ScriptedService service({testsupport::dribbledAnswer(pieces, 100ms)});
    const auto start = std::chrono::steady_clock::now();
    expectAnswered(outcomeOf(get("/", "localhost", 1s)), 200, std::string(15, '.'));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 1400ms);
}

TEST(HttpClient, givesUpOnARequestThatIsNotTaken) {
    const ScriptedService service({testsupport::deafness()});
    const auto start = std::chrono::steady_clock::now();
    expectFailed(outcomeOf(send("POST", "/", std::string(fiftyMegabytes, 'x'), 2s)), HttpFailure::timedOut);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 3900ms) << "waited for an answer as well";
}

TEST(HttpClient, movesLargeBodiesUnchanged) {
    const std::string body = largeText(fiftyMegabytes);
    const ScriptedService service({answer(body), cutAnswer("HTTP/1.1 200 OK\r\n\r\n" + body)});
    expectAnswered(outcomeOf(send("PUT", "/up", body)), 200, body);
    expectAnswered(outcomeOf(get("/down")), 200, body);
    EXPECT_TRUE(service.requests()[0].body == body) << service.requests()[0].body.size();
}

TEST(HttpClient, hearsAServiceThatAnswersEarly) {
    const std::string body = largeText(fiftyMegabytes);
    Answer early = testsupport::earlyAnswer(413, "too much");
    const ScriptedService service({early, {{}, Answer::Ending::close, Answer::Reading::head}});
    expectAnswered(outcomeOf(send("POST", "/", body)), 413, "too much");
    expectFailed(outcomeOf(send("POST", "/", body)), HttpFailure::connectionLost);
}

TEST(HttpClient, followsRedirects) {
    const struct {
        const char* method;
        int status;
        const char* location;
        const char* request; ///< The second.
    } rows[] = {
        {"GET", 301, "/b?c=d", "GET /b?c=d"},
        {"POST", 301, "/b", "GET /b"},
        {"POST", 302, "/b", "GET /b"},
        {"PUT", 302, "/b", "PUT /b\nbody"},
        {"PUT", 303, "/b", "GET /b"},
        {"POST", 307, "/b", "POST /b\nbody"},
        {"POST", 308, "/b", "POST /b\nbody"},
        {"GET", 302, "c/../d#e", "GET /a/d"},
        {"GET", 302, "?q", "GET /a/x?q"},
        {"GET", 302, "http://localhost:44360", "GET /"},
        {"GET", 302, "HTTP://LocalHost:44360/%C3%A4", "GET /%C3%A4"},
        {"GET", 302, "http://127.0.0.1:44360?q", "GET /?q"},
        {"GET", 302, "//[::1]:44360/../b/./c/..", "GET /b/"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.method) + " " + std::to_string(row.status) + " " + row.location);
        const bool hasBody = std::string_view(row.method) != "GET";
        const ScriptedService service({answer(row.status, "moved", {{"Location", row.location}}), answer("there")});
        expectAnswered(outcomeOf(hasBody ? send(row.method, "/a/x", "body") : get("/a/x")), 200, "there");
        ASSERT_EQ(service.requests().size(), 2U);
        EXPECT_EQ(service.requests()[1].text(), row.request);
        const bool keepsBody = std::string_view(row.request).ends_with("body");
        EXPECT_EQ(service.requests()[1].headers.size(), keepsBody ? 3U : 1U);
    }
}

TEST(HttpClient, namesTheHostItWasRedirectedTo) {
    const ScriptedService first({answer(302, "", {{"Location", "http://127.0.0.1/b"}})});
    const ScriptedService second({answer("there")}, ScriptedService::Families::ipv4, 80);
    expectAnswered(outcomeOf(get("/")), 200, "there");
    EXPECT_EQ(second.requests()[0].headers, (Headers{{"Host", "127.0.0.1"}}));
}

TEST(HttpClient, doesNotFollowRedirectsAnywhereElse) {
    const char* locations[] = {"https://localhost:44360/b",
                               "http://example.com/",
                               "http://127.example.com/",
                               "//192.0.2.1/b",
                               "ftp://localhost/b",
                               "http://localhost:99999/",
                               "http://[::2]:44360/",
                               "http://a b/",
                               "mailto:a@b",
                               "http:/b",
                               "http://user@127.0.0.1:44360/b",
                               "http://127.0.0.256:44360/b",
                               "http://localhost:0/b",
                               "http://localhost.example/"};
    for (const char* location : locations) {
        SCOPED_TRACE(location);
        const ScriptedService service({answer(302, "moved", {{"Location", location}})});
        expectAnswered(outcomeOf(get("/")), 302, "moved");
    }
    const ScriptedService service({answer(302, "nowhere"), answer(300, "many", {{"Location", "/b"}})});
    expectAnswered(outcomeOf(get("/")), 302, "nowhere");
    expectAnswered(outcomeOf(get("/")), 300, "many");
}

TEST(HttpClient, followsSixteenRedirectsAtMost) {
    std::vector<Answer> answers(16, answer(302, "", {{"Location", "/again"}}));
    answers.push_back(answer("at last"));
    {
        const ScriptedService service(answers);
        expectAnswered(outcomeOf(get("/")), 200, "at last");
    }
    answers.back() = answers.front();
    const ScriptedService endless(answers);
    expectFailed(outcomeOf(get("/")), HttpFailure::other, "too many redirects");
}
