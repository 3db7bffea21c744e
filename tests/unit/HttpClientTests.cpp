#include <chrono>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <system_error>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/http/HttpClient.h"
#include "platform/http/HttpResponseReader.h"
#include "support/ScriptedService.h"
#include "support/TestNetwork.h"

using namespace std::chrono_literals;
using namespace testsupport;
using platform::HttpRequest;
using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;
using Ending = Answer::Ending;
using Families = ScriptedService::Families;
using Reading = Answer::Reading;

namespace {

HttpRequest get(std::string target, std::string_view host = "localhost", milliseconds idleTimeout = 10s) {
    return {"GET", host, applicationPort, std::move(target), {}, {}, idleTimeout};
}

HttpRequest send(std::string_view method, std::string target, std::string body, milliseconds idleTimeout = 10s) {
    return {method, "localhost", applicationPort, std::move(target), std::move(body), "application/json", idleTimeout};
}

/// A large text as its size and a digest.
std::string abbreviated(const std::string& text) {
    return text.size() < 1000 ? text
                              : std::to_string(text.size()) + " #" + std::to_string(std::hash<std::string>()(text));
}

/// "status body" or the failure's description, in front of it "passed on body | " if something went to the sink.
std::string outcomeOf(HttpRequest request, bool withSink = false) {
    const char* const failures[] = {"cannot connect", "timed out", "lost", "other"};
    std::string passedOn;
    const platform::BodySink sink = [&passedOn](std::string_view piece) { passedOn.append(piece); };
    std::string outcome;
    try {
        const auto response = platform::sendHttpRequest(std::move(request), withSink ? sink : nullptr);
        EXPECT_EQ(response.bodyPassedOn, !passedOn.empty());
        outcome = std::to_string(response.status) + " " + abbreviated(response.body);
    } catch (const platform::HttpError& error) {
        EXPECT_STRNE(error.what(), "");
        const bool isOther = error.failure() == platform::HttpFailure::other;
        outcome = isOther ? error.what() : failures[static_cast<int>(error.failure())];
    }
    return (passedOn.empty() ? "" : "passed on " + abbreviated(passedOn) + " | ") + outcome;
}

/// The same for a request that is answered with `answers`.
std::string outcomeOf(std::vector<Answer> answers, const HttpRequest& request = get("/"), bool withSink = false) {
    const ScriptedService service(std::move(answers));
    return outcomeOf(request, withSink);
}

std::string outcomeOf(const Answer& answer, const HttpRequest& request = get("/"), bool withSink = false) {
    return outcomeOf(std::vector{answer}, request, withSink);
}

std::string outcomeOf(const std::string& bytes) {
    return outcomeOf(cutAnswer(bytes));
}

/// A text in which no two stretches are alike.
const std::string& largeBody() {
    static const std::string body = [] {
        std::string text;
        for (std::uint32_t i = 0; text.size() < 50'000'000; ++i) {
            text += std::to_string(i * 2654435761U);
        }
        return text;
    }();
    return body;
}

/// Whether the kernel's network settings could be changed.
bool setNetwork(const char* withoutIPv6, const char* outgoingPorts) {
    return networkIsOwn() && std::ofstream("/proc/sys/net/ipv6/conf/lo/disable_ipv6") << withoutIPv6 << std::flush &&
           std::ofstream("/proc/sys/net/ipv4/ip_local_port_range") << outgoingPorts << std::flush;
}

const std::string ok = "HTTP/1.1 200 OK\r\n";
const std::string fourBytes = ok + "Content-Length: 4\r\n\r\n";
const std::string chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";
const std::string proceed = "HTTP/1.1 100 Continue\r\n\r\n";
const std::string refusalHead = "HTTP/1.1 413 Too Large\r\nContent-Length: 8\r\n\r\n";
const std::string refusal = refusalHead + "too much";

/// What comes of `bytes`, received `size` at a time, and the end of the connection.
std::string outcomeInPieces(std::string_view bytes, std::size_t size) {
    const platform::BodySink noSink;
    platform::HttpResponseReader reader(noSink);
    try {
        for (; !bytes.empty() && !reader.isWhole(); bytes.remove_prefix(std::min(size, bytes.size()))) {
            bytes.copy(reader.room().data(), size);
            reader.received(std::min(size, bytes.size()));
        }
        if (!reader.isWhole()) {
            reader.ended();
        }
        return std::to_string(reader.status()) + " " + reader.takeResponse().body;
    } catch (const platform::HttpError& error) {
        return error.what();
    }
}

/// `body` in chunks of `size`, without the last, empty one.
std::string chunks(const std::string& body, std::size_t size) {
    std::ostringstream text;
    for (std::size_t at = 0; at < body.size(); at += size) {
        const std::string piece = body.substr(at, size);
        text << std::hex << piece.size() << "\r\n" << piece << "\r\n";
    }
    return chunked + text.str();
}

} // namespace

TEST(HttpClient, sendsExactlyTheHeadersThatAreNeeded) {
    ::setenv("http_proxy", "http://127.0.0.1:9", 1);
    const auto sent = [](const HttpRequest& request) {
        const ScriptedService service({answer("ok")}, Families::ipv4);
        EXPECT_EQ(outcomeOf(request), "200 ok");
        return service.requests().at(0).head + service.requests().at(0).body;
    };
    const std::string json = "Host: localhost:44360\r\nContent-Type: application/json\r\n";
    EXPECT_EQ(sent(get("/a?b=%20c")), "GET /a?b=%20c HTTP/1.1\r\nHost: localhost:44360\r\n\r\n");
    EXPECT_EQ(sent(get("/", "127.0.0.1")), "GET / HTTP/1.1\r\nHost: 127.0.0.1:44360\r\n\r\n");
    EXPECT_EQ(sent(send("PUT", "/", "[1]")), "PUT / HTTP/1.1\r\n" + json + "Content-Length: 3\r\n\r\n[1]");
    EXPECT_EQ(sent(send("POST", "/", "")), "POST / HTTP/1.1\r\n" + json + "\r\n");
    ::unsetenv("http_proxy");
}

TEST(HttpClient, prefersIPv6) {
    if (!hasIPv6()) {
        GTEST_SKIP() << "loopback has no IPv6 address";
    }
    const ScriptedService six({answer("six"), answer(302, "", {{"Location", "http://[::1]:44360/b"}}), answer("again")},
                              Families::ipv6);
    const ScriptedService four({}, Families::ipv4);
    EXPECT_EQ(outcomeOf(get("/")), "200 six");
    EXPECT_EQ(outcomeOf(get("/", "[::1]")), "200 again");
    EXPECT_EQ(six.requests().at(2).headers, (Headers{{"Host", "[::1]:44360"}}));
}

TEST(HttpClient, connectsToLoopbackAlone) {
    for (const std::string_view host : {"localhost", "127.0.0.1", "127.1.2.3", "[::1]"}) {
        EXPECT_EQ(outcomeOf(get("/", host)), "cannot connect") << host;
    }
    const ScriptedService service({}, Families::ipv4);
    EXPECT_EQ(outcomeOf(get("/", "127.1.2.3")), "cannot connect");
    for (const std::string_view host : {"192.0.2.1", "example.com", "[2001:db8::1]", ""}) {
        EXPECT_TRUE(outcomeOf(get("/", host, 200ms)).starts_with("cannot connect to " + std::string(host))) << host;
    }
}

TEST(HttpClient, doesWithoutIPv6AndNeverTakesItselfForTheService) {
    const bool isSet = setNetwork("1", "44360 44360");
    const std::string outcome = isSet ? outcomeOf(get("/")) : "";
    setNetwork("0", "32768 60999");
    if (!isSet) {
        GTEST_SKIP() << "the network's settings cannot be changed here";
    }
    EXPECT_EQ(outcome, "cannot connect");
    EXPECT_EQ(outcomeOf(answer("here")), "200 here");
}

TEST(HttpClient, readsEveryFormOfAnswer) {
    EXPECT_EQ(outcomeOf(answer(404, "no")), "404 no");
    EXPECT_EQ(outcomeOf(answer(std::string("\0\r\n\xff", 4))), "200 " + std::string("\0\r\n\xff", 4));
    EXPECT_EQ(outcomeOf(ok + "\r\nall of it\n"), "200 all of it\n");
    EXPECT_EQ(outcomeOf("HTTP/1.0 200 OK\r\n\r\n"), "200 ");
    EXPECT_EQ(outcomeOf(chunked + "3;x=y\r\nabc\r\nA\r\n0123456789\r\n0\r\nTrailer: t\r\n\r\n"), "200 abc0123456789");
    EXPECT_EQ(outcomeOf(ok + "Transfer-Encoding:\r\n Chunked \r\n\r\n0\r\n\r\n"), "200 ");
    EXPECT_EQ(outcomeOf(rawAnswer("HTTP/1.1 204 No Content\r\n\r\n")), "204 ");
    EXPECT_EQ(outcomeOf("HTTP/1.1 302 Found\r\nTransfer-Encoding: chunked\r\n\r\n0\r\nLocation: /\r\n\r\n"), "302 ");
    EXPECT_EQ(outcomeOf(rawAnswer(proceed + "HTTP/1.1 103 Hints\r\nLink: x\r\n\r\n" + fourBytes + "okay")), "200 okay");
    const std::vector<std::string> pieces{
        "HTTP/1.1 102 Pro", "cessing\r\n\r\nHTTP/1.1 200 O",    "K\r\nTransfer-Encoding: chu",
        "nked\r\n\r\n1",    "0\r\n0123456789abcdef\r\n0\r\n\r", "\n"};
    EXPECT_EQ(outcomeOf(dribbledAnswer(pieces, 1ms)), "200 0123456789abcdef");
    EXPECT_EQ(outcomeOf(answer(200, "ok", {{"X", std::string(900'000, 'x')}})), "200 ok");
}

TEST(HttpClient, losesAConnectionThatIsGoneBeforeItIsSeenToStand) {
    const ScriptedService service(std::vector(20, Answer{.ending = Ending::reset, .reading = Reading::nothing}));
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(outcomeOf(get("/")), "lost");
    }
}

TEST(HttpClient, tellsALostConnectionFromNonsense) {
    for (const std::string& bytes :
         {std::string(), std::string("HTTP/1.1 20"), ok + "Content-", proceed, fourBytes + "123", chunked + "5\r\nabc",
          ok + "Content-Length: 9000000000000000000\r\n\r\nx", chunked + "3\r\nabc\r\n"}) {
        EXPECT_EQ(outcomeOf(bytes), "lost") << bytes;
        EXPECT_EQ(outcomeOf(resetAnswer(bytes)), "lost") << bytes;
    }
    EXPECT_EQ(outcomeOf(resetAnswer("HTTP/1.1 500 No\r\n\r\nabc")), "lost");
    const auto noHttp = [](const std::string& why) { return "the answer is not valid HTTP (bad " + why + ")"; };
    const std::string badCoding = noHttp("Transfer-Encoding");
    EXPECT_EQ(outcomeOf("SSH-2.0-server\r\n"), noHttp("version"));
    EXPECT_EQ(outcomeOf("no"), noHttp("version"));
    EXPECT_EQ(outcomeOf("HTTP/1.1 099 OK\r\n\r\n"), noHttp("status"));
    EXPECT_EQ(outcomeOf("HTTP/1.1 101 Switching\r\nUpgrade: x\r\n\r\n"), noHttp("status"));
    EXPECT_EQ(outcomeOf(ok + "Transfer-Encoding: gzip\r\n\r\n"), badCoding);
    EXPECT_EQ(outcomeOf(ok + "Transfer-Encoding: gzip, chunked\r\n\r\n0\r\n\r\n"), badCoding);
    EXPECT_EQ(outcomeOf(ok + "Transfer-Encoding: gzip\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n"), badCoding);
    EXPECT_EQ(outcomeOf(ok + "Content-Length: 0\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n"), badCoding);
    EXPECT_EQ(outcomeOf(ok + "Content-Length: 2\r\nContent-Length: 3\r\n\r\nabc"),
              "the answer is not valid HTTP (multiple Content-Length)");
    EXPECT_EQ(outcomeOf(ok + "X: " + std::string(1'200'000, 'x')), "the head of the answer is too large");
    EXPECT_EQ(outcomeOf(chunked + "1;" + std::string(1'200'000, 'x')), "the head of the answer is too large");
}

TEST(HttpClient, readsTheSameInWhateverPieces) {
    const auto noHttp = [](const std::string& why) { return "the answer is not valid HTTP (bad " + why + ")"; };
    const std::string lost = platform::connectionLost().what();
    const std::vector<std::pair<std::string, std::string>> cases{
        {chunked + "0\r\n\r\n", "200 "},
        {chunked + "0\r\nT: x\r\nU: y\r\n\r\n", "200 "},
        {proceed + chunked + "3;x=\"y\"\r\nabc\r\n00\r\n\r\nmore", "200 abc"},
        {chunked + "3\r\nabcd\r\n0\r\n\r\n", noHttp("chunk")},
        {chunked + "0\r\n\r", lost},
        {ok + "Content-Length: 5\xC7\n\r\n", noHttp("value")},
        {ok + "Connection: ;\r\n\r\n", noHttp("value")},
        {"HTTP/1.1 200 OK\nContent-Length: 2\n\nok", noHttp("reason")},
        {ok + "\nContent-Length: 2\r\n\r\nok", noHttp("line ending")},
        {"HTTP/\n\nok", noHttp("line ending")},
        {"HTTP/1.1 2OO ", noHttp("status")},
        {"HTTP/1.1 200", lost},
    };
    for (const auto& [bytes, outcome] : cases) {
        for (std::size_t size = 1; size <= bytes.size(); ++size) {
            EXPECT_EQ(outcomeInPieces(bytes, size), outcome) << bytes << " by " << size;
        }
    }
}

TEST(HttpClient, givesUpWhenNothingMoves) {
    for (const Answer& given :
         {stall(), rawAnswer(ok + "Content-"), rawAnswer(proceed), rawAnswer(fourBytes + "123")}) {
        const auto start = Clock::now();
        EXPECT_EQ(outcomeOf(given, get("/", "localhost", 150ms)), "timed out");
        EXPECT_GE(Clock::now() - start, 150ms);
        EXPECT_LT(Clock::now() - start, 5s);
    }
    const HttpRequest upload = send("POST", "/", largeBody(), 2s);
    const auto start = Clock::now();
    EXPECT_EQ(outcomeOf(deafness(), upload), "timed out");
    EXPECT_LT(Clock::now() - start, 3900ms) << "waited for an answer as well";
}

TEST(HttpClient, givesUpOnAConnectionThatIsNotAccepted) {
    sockaddr_in address{AF_INET, htons(applicationPort), {htonl(INADDR_LOOPBACK)}, {}};
    const auto* const service = reinterpret_cast<const sockaddr*>(&address);
    int sockets[4];
    for (int& socket : sockets) {
        socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    }
    const int on = 1;
    ::setsockopt(sockets[0], SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    EXPECT_TRUE(::bind(sockets[0], service, sizeof address) == 0 && ::listen(sockets[0], 0) == 0);
    for (int filler = 1; filler < 4; ++filler) {
        ::connect(sockets[filler], service, sizeof address);
    }
    EXPECT_EQ(outcomeOf(get("/", "localhost", 150ms)), "timed out");
    for (const int socket : sockets) {
        ::close(socket);
    }
}

TEST(HttpClient, waitsAsLongAsBytesMove) {
    const auto slow = dribbledAnswer({ok, "Content-", "Length: 4\r\n\r\n", "1", "2", "3", "4"}, 150ms);
    EXPECT_EQ(outcomeOf(slow, get("/", "localhost", 600ms)), "200 1234");
}

TEST(HttpClient, movesLargeBodiesUnchanged) {
    const ScriptedService service({answer(largeBody()), rawAnswer(chunks(largeBody(), 700'000) + "0\r\n\r\n")});
    EXPECT_EQ(outcomeOf(send("PUT", "/up", largeBody())), "200 " + abbreviated(largeBody()));
    EXPECT_EQ(outcomeOf(get("/down")), "200 " + abbreviated(largeBody()));
    EXPECT_TRUE(service.requests().at(0).body == largeBody());
}

TEST(HttpClient, hearsAnAnswerWhileItSends) {
    const HttpRequest upload = send("POST", "/", largeBody(), 30s);
    const auto heard = [&](std::vector<std::string> pieces, Ending ending, Reading reading = Reading::head) {
        const auto start = Clock::now();
        const std::string outcome = outcomeOf(earlyAnswer(std::move(pieces), ending, reading, 20ms), upload);
        return Clock::now() - start < 12s ? outcome : "late " + outcome;
    };
    EXPECT_EQ(heard({refusal}, Ending::leaveOpen), "413 too much");
    EXPECT_EQ(heard({refusal}, Ending::close), "413 too much");
    EXPECT_EQ(heard({refusal}, Ending::reset), "413 too much");
    EXPECT_EQ(heard({"HTTP/1.0 413 No\r\n\r\nends with a reset"}, Ending::close), "413 ends with a reset");
    EXPECT_EQ(heard({ok + "\r\nends with a reset"}, Ending::close), "200 ends with a reset");
    EXPECT_EQ(heard({ok + "\r\nends with a reset"}, Ending::reset), "200 ends with a reset");
    EXPECT_EQ(heard({"HTTP/1.1 413 ", "Too Large\r\nContent-Le", "ngth: 2\r\n\r\nn", "o"}, Ending::leaveOpen),
              "413 no");
    EXPECT_EQ(heard({proceed + refusal}, Ending::leaveOpen), "413 too much");
    EXPECT_EQ(heard({fourBytes + "done"}, Ending::leaveOpen), "200 done");
    EXPECT_EQ(heard({fourBytes + "done"}, Ending::close), "200 done");
    EXPECT_EQ(heard({fourBytes + "do"}, Ending::close), "lost");
    EXPECT_EQ(heard({}, Ending::close), "lost");
    // Why it is refused is not waited for in vain, nor until a slow service has read it all.
    EXPECT_EQ(heard({refusalHead}, Ending::close), "413 ");
    EXPECT_EQ(heard({refusalHead + "too"}, Ending::reset), "413 too");
    EXPECT_EQ(heard({refusalHead}, Ending::leaveOpen, Reading::rest), "413 ");
    EXPECT_EQ(heard({"HTTP/1.1 413 No\r\n\r\nno end"}, Ending::leaveOpen), "413 no end");
    EXPECT_EQ(heard({"HTTP/1.1 307 Elsewhere\r\nLocation: /b\r\nContent-Length: 2\r\n\r\n"}, Ending::close), "lost");
}

TEST(HttpClient, sendsTheRestUnlessItIsRefused) {
    const auto uploaded = [](std::vector<std::string> pieces) {
        const auto given = earlyAnswer(std::move(pieces), Ending::leaveOpen, Reading::rest);
        const ScriptedService service({given, answer("next")});
        const std::string body = largeBody().substr(0, 16'000'000);
        const std::string outcome = outcomeOf(send("POST", "/", body));
        EXPECT_EQ(outcomeOf(get("/next")), "200 next"); // what came before is recorded then
        return outcome + (service.requests().at(0).body == body ? ", all sent" : ", not all sent");
    };
    EXPECT_EQ(uploaded({proceed, fourBytes + "done"}), "200 done, all sent");
    EXPECT_EQ(uploaded({fourBytes + "do", "ne"}), "200 done, all sent");
    EXPECT_EQ(uploaded({fourBytes + "done"}), "200 done, all sent");
    EXPECT_EQ(uploaded({refusal}), "413 too much, not all sent");
    EXPECT_EQ(uploaded({refusalHead, "too much"}), "413 too much, all sent");
    EXPECT_EQ(uploaded({refusalHead}), "413 , all sent");
}

TEST(HttpClient, passesALongBodyOn) {
    const std::string longBody = largeBody().substr(0, platform::passOnThreshold + 1);
    const std::string shortBody = longBody.substr(1);
    const std::string end = "0\r\n\r\n";
    const std::string passedOn = "passed on " + abbreviated(longBody) + " | ";
    const auto outcome = [](const Answer& given) { return outcomeOf(given, get("/"), true); };
    EXPECT_EQ(outcome(answer(201, longBody)), passedOn + "201 ");
    EXPECT_EQ(outcome(rawAnswer(chunks(longBody, 999) + end)), passedOn + "200 ");
    EXPECT_EQ(outcome(rawAnswer(chunks(largeBody(), 40'000) + end)),
              "passed on " + abbreviated(largeBody()) + " | 200 ");
    EXPECT_EQ(outcome(cutAnswer(ok + "\r\n" + longBody)), passedOn + "200 ");
    EXPECT_EQ(outcome(answer(shortBody)), "200 " + abbreviated(shortBody));
    EXPECT_EQ(outcome(rawAnswer(chunks(shortBody, 999) + end)), "200 " + abbreviated(shortBody));
    EXPECT_EQ(outcome(answer(302, longBody)), "302 " + abbreviated(longBody));
    EXPECT_EQ(outcome(answer(500, longBody)), "500 " + abbreviated(longBody));
    EXPECT_EQ(outcome(cutAnswer(ok + "Content-Length: 5000000\r\n\r\nabc")), "passed on abc | lost");
    EXPECT_EQ(outcome(cutAnswer(chunks(longBody, 999))), passedOn + "lost");
    EXPECT_EQ(outcome(cutAnswer(chunks(shortBody, 999))), "lost");
    const ScriptedService service({answer(longBody)});
    const auto fail = [](std::string_view) { throw std::system_error(ENOSPC, std::generic_category()); };
    EXPECT_THROW(platform::sendHttpRequest(get("/"), fail), std::system_error);
}

TEST(HttpClient, followsRedirects) {
    const auto redirected = [](const std::string& method, int status, const char* location) {
        const ScriptedService service({answer(status, "moved", {{"Location", location}}), answer("there")});
        EXPECT_EQ(outcomeOf(method == "GET" ? get("/a/x") : send(method, "/a/x", "body")), "200 there");
        const RecordedRequest last = service.requests().back();
        return last.text() + (last.headers.size() == 1 ? "" : " and more headers");
    };
    EXPECT_EQ(redirected("GET", 301, "/b?c=d"), "GET /b?c=d");
    EXPECT_EQ(redirected("POST", 301, "/b"), "GET /b");
    EXPECT_EQ(redirected("POST", 302, "/b"), "GET /b");
    EXPECT_EQ(redirected("PUT", 302, "/b"), "PUT /b\nbody and more headers");
    EXPECT_EQ(redirected("PUT", 303, "/b"), "GET /b");
    EXPECT_EQ(redirected("POST", 307, "/b"), "POST /b\nbody and more headers");
    EXPECT_EQ(redirected("POST", 308, "/b"), "POST /b\nbody and more headers");

    std::vector<Answer> answers(17, answer(302, "", {{"Location", "/again"}}));
    EXPECT_EQ(outcomeOf(answers), "too many redirects");
    answers.back() = answer("at last");
    EXPECT_EQ(outcomeOf(answers), "200 at last");
}

TEST(HttpClient, namesTheHostItWasRedirectedTo) {
    const ScriptedService first({answer(302, "", {{"Location", "http://127.0.0.1/b"}})});
    std::optional<ScriptedService> second;
    try {
        second.emplace(std::vector{answer("there")}, Families::ipv4, std::uint16_t{80});
    } catch (const std::system_error& error) {
        outcomeOf(get("/")); // an answer that nobody asks for is a fault
        GTEST_SKIP() << "port 80: " << error.what();
    }
    EXPECT_EQ(outcomeOf(get("/")), "200 there");
    EXPECT_EQ(second->requests().at(0).headers, (Headers{{"Host", "127.0.0.1"}}));
}

TEST(HttpClient, returnsARedirectThatItMayNotFollow) {
    EXPECT_EQ(outcomeOf(answer(302, "moved", {{"Location", "https://localhost:44360/b"}})), "302 moved");
    EXPECT_EQ(outcomeOf(answer(302, "nowhere")), "302 nowhere");
    EXPECT_EQ(outcomeOf(answer(300, "many", {{"Location", "/b"}})), "300 many");
}
