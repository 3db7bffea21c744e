#include <chrono>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <source_location>
#include <sstream>
#include <system_error>

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
using testing::HasSubstr;
using testsupport::answer;
using testsupport::Answer;
using testsupport::applicationPort;
using testsupport::cutAnswer;
using testsupport::dribbledAnswer;
using testsupport::earlyAnswer;
using testsupport::Headers;
using testsupport::rawAnswer;
using testsupport::resetAnswer;
using testsupport::ScriptedService;
using Clock = std::chrono::steady_clock;
using Here = std::source_location;

namespace {

HttpRequest get(std::string target, std::string_view host = "localhost", std::chrono::milliseconds idleTimeout = 10s) {
    return {"GET", host, applicationPort, std::move(target), {}, {}, idleTimeout};
}

HttpRequest send(std::string_view method, std::string target, std::string body,
                 std::chrono::milliseconds idleTimeout = 10s) {
    return {method, "localhost", applicationPort, std::move(target), std::move(body), "application/json", idleTimeout};
}

/// The status and the body, or the failure and its description; and what was passed on.
struct Outcome {
    int status = 0;
    std::string body{};
    std::optional<HttpFailure> failure{};
    std::string description{};
    std::string passedOn{};
    bool isPassedOn = false;
};

Outcome outcomeOf(HttpRequest request, bool withSink = false) {
    Outcome outcome;
    const platform::BodySink sink = [&outcome](std::string_view piece) {
        EXPECT_FALSE(piece.empty());
        outcome.passedOn.append(piece);
    };
    try {
        auto response = platform::sendHttpRequest(std::move(request), withSink ? sink : nullptr);
        outcome.status = response.status;
        outcome.body = std::move(response.body);
        outcome.isPassedOn = response.bodyPassedOn;
    } catch (const platform::HttpError& error) {
        outcome.failure = error.failure();
        outcome.description = error.what();
    }
    return outcome;
}

void expectAnswered(const Outcome& outcome, int status, const std::string& body, Here here = Here::current()) {
    const testing::ScopedTrace trace(here.file_name(), static_cast<int>(here.line()), "expected an answer");
    EXPECT_EQ(outcome.failure, std::nullopt) << outcome.description;
    EXPECT_EQ(outcome.status, status);
    EXPECT_TRUE(outcome.body == body) << outcome.body.size() << " bytes: " << outcome.body.substr(0, 200);
}

void expectFailed(const Outcome& outcome, HttpFailure failure, const std::string& description = {},
                  Here here = Here::current()) {
    const testing::ScopedTrace trace(here.file_name(), static_cast<int>(here.line()), "expected a failure");
    EXPECT_EQ(outcome.failure, failure) << outcome.status << " " << outcome.body.substr(0, 200);
    EXPECT_THAT(outcome.description, HasSubstr(description));
    EXPECT_FALSE(outcome.description.empty());
}

/// What a service answers and what must come of it.
void expectExchange(const Answer& given, int status, const std::string& body, Here here = Here::current()) {
    const ScriptedService service({given});
    expectAnswered(outcomeOf(get("/")), status, body, here);
}

void expectFailure(const Answer& given, HttpFailure failure, const std::string& description = {},
                   Here here = Here::current()) {
    const ScriptedService service({given});
    expectFailed(outcomeOf(get("/", "localhost", failure == HttpFailure::timedOut ? 150ms : 10s)), failure, description,
                 here);
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

const std::string& largeBody() {
    static const std::string body = largeText(50'000'000);
    return body;
}

const std::string ok = "HTTP/1.1 200 OK\r\n";
const std::string refusal = "HTTP/1.1 413 Too Large\r\nContent-Length: 8\r\n\r\ntoo much";
const std::string chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";

std::string chunks(std::string_view body, std::size_t size) {
    std::string text;
    for (std::size_t at = 0; at < body.size(); at += size) {
        const std::string_view piece = body.substr(at, size);
        text.append((std::ostringstream() << std::hex << piece.size()).str()).append("\r\n").append(piece) += "\r\n";
    }
    return text;
}

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
    expectExchange(answer(404, "no"), 404, "no");
    expectExchange(answer(500, ""), 500, "");
    expectExchange(rawAnswer(ok + "Content-Length: 2\r\nContent-Length: 2\r\n\r\nok"), 200, "ok");
    expectExchange(cutAnswer(ok + "\r\nall of it\n"), 200, "all of it\n");
    expectExchange(cutAnswer("HTTP/1.0 200 OK\r\n\r\n"), 200, "");
    expectExchange(rawAnswer(chunked + "3;x=y\r\nabc\r\nA\r\n0123456789\r\n0\r\nTrailer: t\r\n\r\n"), 200,
                   "abc0123456789");
    expectExchange(rawAnswer(ok + "Transfer-Encoding:\r\n Chunked \r\n\r\n0\r\n\r\n"), 200, "");
    expectExchange(rawAnswer("HTTP/1.1 204 No Content\r\n\r\n"), 204, "");
    expectExchange(rawAnswer("HTTP/1.1 304 Not Modified\r\nContent-Length: 9\r\n\r\n"), 304, "");
    expectExchange(rawAnswer("HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103 Early Hints\r\nLink: x\r\n\r\n" + ok +
                             "Content-Length: 2\r\n\r\nok"),
                   200, "ok");
    expectExchange(
        dribbledAnswer({"HTTP/1.1 102 Pro", "cessing\r\n\r\n", "HTTP/1.1 200 O", "K\r\nTransfer-Encoding: chu",
                        "nked\r\n\r\n1", "0\r\n01234567", "89abcdef\r", "\n0\r\n\r", "\n"},
                       1ms),
        200, "0123456789abcdef");
    expectExchange(answer(std::string("\0\r\n\xff", 4)), 200, std::string("\0\r\n\xff", 4));
    expectExchange(answer(200, "ok", {{"X", std::string(900'000, 'x')}}), 200, "ok");
    expectExchange(rawAnswer("HTTP/1.1 302 Found\r\nTransfer-Encoding: chunked\r\n\r\n0\r\nLocation: /b\r\n\r\n"), 302,
                   "");
}

TEST(HttpClient, tellsALostConnectionFromNonsense) {
    const std::string five = ok + "Content-Length: 5\r\n\r\n";
    for (const Answer& given :
         {cutAnswer(""), resetAnswer(), cutAnswer("HTTP/1.1 20"), cutAnswer(ok + "Content-"),
          cutAnswer("HTTP/1.1 100 Continue\r\n\r\n"), cutAnswer(five), cutAnswer(five + "1234"),
          cutAnswer(ok + "Content-Length: 9000000000000000000\r\n\r\nx"), resetAnswer(five + "1234"),
          resetAnswer(ok + "\r\nabc"), resetAnswer("HTTP/1.1 500 No\r\n\r\nabc"), cutAnswer(chunked + "5\r\nabc"),
          cutAnswer(chunked + "3\r\nabc\r\n")}) {
        SCOPED_TRACE(testing::PrintToString(given.pieces));
        expectFailure(given, HttpFailure::connectionLost);
    }
    const auto expectNonsense = [](const Answer& given, const std::string& description, Here here = Here::current()) {
        expectFailure(given, HttpFailure::other, description, here);
    };
    expectNonsense(cutAnswer("SSH-2.0-server\r\n"), "not valid HTTP (bad version)");
    expectNonsense(cutAnswer("no"), "not valid HTTP");
    expectNonsense(rawAnswer("HTTP/2.0 200 OK\r\n\r\n"), "not valid HTTP (bad version)");
    expectNonsense(rawAnswer("HTTP/1.1 099 OK\r\n\r\n"), "not valid HTTP (bad status)");
    expectNonsense(rawAnswer("HTTP/1.1 101 Switching\r\nUpgrade: x\r\n\r\n"), "not valid HTTP (bad status)");
    expectNonsense(rawAnswer(ok + "what is this\r\n\r\n"), "not valid HTTP (bad");
    expectNonsense(rawAnswer(ok + "Content-Length: 2\r\nContent-Length: 3\r\n\r\nabc"), "not valid HTTP (multiple");
    for (const char* const framing :
         {"Transfer-Encoding: gzip", "Transfer-Encoding: gzip, chunked", "Transfer-Encoding: chunked, gzip",
          "Transfer-Encoding: gzip\r\nTransfer-Encoding: chunked", "Transfer-Encoding: chunked\r\nContent-Length: 2",
          "Content-Length: 2\r\nTransfer-Encoding: chunked"}) {
        expectNonsense(cutAnswer(ok + framing + "\r\n\r\n0\r\n\r\n"), "not valid HTTP (bad ");
    }
    expectNonsense(rawAnswer(chunked + "xyz\r\n"), "not valid HTTP (bad chunk)");
    expectNonsense(rawAnswer(ok + "X: " + std::string(1'200'000, 'x')), "the head of the answer is too large");
    expectNonsense(rawAnswer(chunked + "1;" + std::string(1'200'000, 'x')), "too large");
}

TEST(HttpClient, givesUpWhenNothingMoves) {
    for (const Answer& given :
         {testsupport::stall(), rawAnswer(ok + "Content-"), rawAnswer("HTTP/1.1 100 Continue\r\n\r\n"),
          rawAnswer(ok + "Content-Length: 5\r\n\r\n1234"), rawAnswer(ok + "\r\nno end")}) {
        SCOPED_TRACE(testing::PrintToString(given.pieces));
        const auto start = Clock::now();
        expectFailure(given, HttpFailure::timedOut);
        EXPECT_GE(Clock::now() - start, 150ms);
        EXPECT_LT(Clock::now() - start, 5s);
    }
}

TEST(HttpClient, givesUpOnAConnectionThatIsNotAccepted) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(applicationPort);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const auto* const service = reinterpret_cast<const sockaddr*>(&address);
    int sockets[4];
    for (int& socket : sockets) {
        socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    }
    const int on = 1;
    ::setsockopt(sockets[0], SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    ASSERT_EQ(::bind(sockets[0], service, sizeof address), 0);
    ASSERT_EQ(::listen(sockets[0], 0), 0);
    for (int filler = 1; filler < 4; ++filler) {
        ::connect(sockets[filler], service, sizeof address);
    }
    expectFailed(outcomeOf(get("/", "localhost", 150ms)), HttpFailure::timedOut);
    for (const int socket : sockets) {
        ::close(socket);
    }
}

TEST(HttpClient, waitsAsLongAsBytesMove) {
    std::vector<std::string> pieces{ok + "Content-Length: 15\r\n\r\n"};
    pieces.resize(16, ".");
    const ScriptedService service({dribbledAnswer(pieces, 50ms)});
    expectAnswered(outcomeOf(get("/", "localhost", 500ms)), 200, std::string(15, '.'));
}

TEST(HttpClient, givesUpOnARequestThatIsNotTaken) {
    const ScriptedService service({testsupport::deafness()});
    const auto start = Clock::now();
    expectFailed(outcomeOf(send("POST", "/", largeBody(), 1s)), HttpFailure::timedOut);
    EXPECT_LT(Clock::now() - start, 1900ms) << "waited for an answer as well";
}

TEST(HttpClient, movesLargeBodiesUnchanged) {
    const ScriptedService service(
        {answer(largeBody()), rawAnswer(chunked + chunks(largeBody(), 700'000) + "0\r\n\r\n")});
    expectAnswered(outcomeOf(send("PUT", "/up", largeBody())), 200, largeBody());
    expectAnswered(outcomeOf(get("/down")), 200, largeBody());
    EXPECT_TRUE(service.requests()[0].body == largeBody()) << service.requests()[0].body.size();
}

TEST(HttpClient, hearsAnAnswerWhileItSends) {
    using Ending = Answer::Ending;
    const auto expectHeard = [](const Answer& given, int status, const std::string& body, Here here = Here::current()) {
        const ScriptedService service({given});
        const auto start = Clock::now();
        expectAnswered(outcomeOf(send("POST", "/", largeBody())), status, body, here);
        EXPECT_LT(Clock::now() - start, 5s) << here.line();
    };
    const std::string accepted = ok + "Content-Length: 4\r\n\r\ndone";
    expectHeard(earlyAnswer({refusal}, Ending::leaveOpen), 413, "too much");
    expectHeard(earlyAnswer({refusal}, Ending::close), 413, "too much");
    expectHeard(earlyAnswer({refusal}, Ending::reset), 413, "too much");
    expectHeard(earlyAnswer({"HTTP/1.0 413 No\r\n\r\nends with a reset"}, Ending::close), 413, "ends with a reset");
    expectHeard(earlyAnswer({refusal.substr(0, 12), refusal.substr(12, 40), refusal.substr(52)}, Ending::leaveOpen,
                            Answer::Reading::head, 20ms),
                413, "too much");
    expectHeard(earlyAnswer({"HTTP/1.1 100 Continue\r\n\r\n" + refusal}, Ending::leaveOpen), 413, "too much");
    expectHeard(earlyAnswer({accepted}, Ending::leaveOpen), 200, "done");
    expectHeard(earlyAnswer({accepted}, Ending::close), 200, "done");

    const ScriptedService lost({earlyAnswer({}, Ending::close), earlyAnswer({ok + "\r\nhalf"}, Ending::close)});
    expectFailed(outcomeOf(send("POST", "/", largeBody())), HttpFailure::connectionLost);
    expectFailed(outcomeOf(send("POST", "/", largeBody())), HttpFailure::connectionLost);
}

TEST(HttpClient, sendsTheRestUnlessItIsRefused) {
    const auto expectSent = [](std::vector<std::string> pieces, int status, bool isWhole, Here here = Here::current()) {
        const auto given = earlyAnswer(std::move(pieces), Answer::Ending::leaveOpen, Answer::Reading::rest);
        const ScriptedService service({given, answer("next")});
        EXPECT_EQ(outcomeOf(send("POST", "/", largeBody())).status, status) << here.line();
        expectAnswered(outcomeOf(get("/next")), 200, "next", here); // what came before is recorded then
        EXPECT_EQ(service.requests().at(0).body == largeBody(), isWhole) << here.line();
    };
    const std::string length = "Content-Length: 4\r\n\r\n";
    expectSent({"HTTP/1.1 100 Continue\r\n\r\n", ok + length + "done"}, 200, true);
    expectSent({ok + length + "do", "ne"}, 200, true);
    expectSent({ok + length + "done"}, 200, true);
    expectSent({refusal}, 413, false);
}

TEST(HttpClient, passesALongBodyOn) {
    const std::string longBody = largeBody().substr(0, platform::passOnThreshold + 1);
    const std::string shortBody = longBody.substr(1);
    const std::string end = "0\r\n\r\n";
    const auto expectBody = [](const Answer& given, const std::string& body, bool isPassedOn,
                               Here here = Here::current()) {
        const ScriptedService service({given});
        const Outcome outcome = outcomeOf(get("/"), true);
        EXPECT_EQ(outcome.failure, std::nullopt) << here.line();
        EXPECT_EQ(outcome.isPassedOn, isPassedOn) << here.line();
        EXPECT_TRUE(outcome.passedOn == (isPassedOn ? body : "")) << here.line() << ", " << outcome.passedOn.size();
        EXPECT_TRUE(outcome.body == (isPassedOn ? "" : body)) << here.line() << ", " << outcome.body.size();
    };
    expectBody(answer(longBody), longBody, true);
    expectBody(answer(201, longBody), longBody, true);
    expectBody(rawAnswer(chunked + chunks(longBody, 999) + end), longBody, true);
    expectBody(rawAnswer(chunked + chunks(longBody, 3'000'000) + end), longBody, true);
    expectBody(cutAnswer(ok + "\r\n" + longBody), longBody, true);
    expectBody(answer(shortBody), shortBody, false);
    expectBody(rawAnswer(chunked + chunks(shortBody, 999) + end), shortBody, false);
    expectBody(answer(302, longBody), longBody, false);
    expectBody(answer(500, longBody), longBody, false);

    const auto expectLost = [](const std::string& bytes, const std::string& passedOn, Here here = Here::current()) {
        const ScriptedService service({cutAnswer(bytes)});
        const Outcome outcome = outcomeOf(get("/"), true);
        expectFailed(outcome, HttpFailure::connectionLost, "", here);
        EXPECT_TRUE(outcome.passedOn == passedOn) << here.line() << ", " << outcome.passedOn.size();
    };
    expectLost(ok + "Content-Length: 5000000\r\n\r\nabc", "abc");
    expectLost(chunked + chunks(longBody, 999) + "5\r\nabc", longBody + "abc");
    expectLost(chunked + chunks(shortBody, 999), "");
}

TEST(HttpClient, letsAFailedSinkEndTheExchange) {
    for (const std::size_t chunkSize : {std::size_t{100}, std::size_t{1'000'000}}) {
        const ScriptedService service({rawAnswer(chunked + chunks(largeBody().substr(0, 6'000'000), chunkSize))});
        EXPECT_THROW(platform::sendHttpRequest(
                         get("/"), [](std::string_view) { throw std::system_error(ENOSPC, std::generic_category()); }),
                     std::system_error);
    }
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
    std::optional<ScriptedService> second;
    try {
        second.emplace(std::vector{answer("there")}, ScriptedService::Families::ipv4, std::uint16_t{80});
    } catch (const std::system_error& error) {
        outcomeOf(get("/")); // the first service's answer is to be asked for
        GTEST_SKIP() << "port 80: " << error.what();
    }
    expectAnswered(outcomeOf(get("/")), 200, "there");
    EXPECT_EQ(second->requests()[0].headers, (Headers{{"Host", "127.0.0.1"}}));
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
