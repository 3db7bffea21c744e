#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/json/Json.h"

using namespace platform;
using testing::ElementsAre;

namespace {

std::string nested(std::size_t levels) {
    return std::string(levels, '[') + std::string(levels, ']');
}

/// A document of `text`, which must outlive it.
JsonObjectDocument object(std::string_view text) {
    auto document = JsonDocument::parseObject(text);
    EXPECT_TRUE(document) << text;
    return document ? *std::move(document) : JsonDocument::parseObject("{}").value();
}

std::string problem(std::string_view text) {
    try {
        JsonDocument::parseOrThrow(text);
        return {};
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

TEST(Json, IsReadStrictly) {
    using namespace std::string_view_literals;
    const std::string padding(40, 'x');
    for (const std::string& text : {std::string(" null "), std::string("[true,\t-0.5e+3]\r\n"),
                                    std::string("[0.01e310, 1e-999]"), "\"" + padding + "\\u0000\x7F\"", nested(512)}) {
        EXPECT_EQ(problem(text), "") << text;
    }
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "incomplete JSON"},
        {" [1, 2", "incomplete JSON"},
        {"\"" + padding, "incomplete JSON"},
        {"1 2", "something follows its end"},
        {std::string("1\0"sv), "something follows its end"},
        {"{'a':1}", "an object's key is missing"},
        {"{\"a\" 1}", "the colon behind a key is missing"},
        {R"({"a":1 "b":2})", "a comma or } is missing in an object"},
        {"[1 2]", "a comma or ] is missing in an array"},
        {"[1,]", "malformed value"},
        {"NaN", "malformed value"},
        {"// 1", "malformed value"},
        {R"(["\x"])", "malformed escape in a text"},
        {R"(["\ud800"])", "malformed escape in a text"},
        {R"(["\udc00"])", "malformed escape in a text"},
        {"1e999 ", "a number is too large"},
        {R"(["\u00e"])", "malformed escape in a text"},
        {R"(["\ud83c\u0041"])", "malformed escape in a text"},
        {R"(["\ud83cx"])", "malformed escape in a text"},
        {"\"" + padding + "\x1F\"", "unescaped control character"},
        {"\"\t\"", "unescaped control character"},
        {std::string("\"a\0\""sv), "unescaped control character"},
        {"\"" + padding + "é\xED\xA0\x80\"", "malformed UTF-8"},
        {nested(513), "nested too deeply"},
    };
    for (const auto& [text, words] : cases) {
        EXPECT_EQ(problem(text), "The data is not valid JSON: " + words + ".") << text;
    }
}

TEST(Json, TextsStayWhereTheyAreUntilTheyAreRead) {
    // A piece of 64 KB ends before a letter that its end would cut, and behind an escape that it would.
    const std::string run(65533, 'x');
    const std::string json =
        R"({"plain":"p","esc\u0061ped":"\/\b\f\n\r\t\\\u00e9\ud83c\udf31","quoted":"\/\"x","long":"\n)" + run + "yé" +
        run + R"(\ud83c\udf31z","none":"","nonet":null,"two":1,"two":"2"})";
    const std::string before = json;
    const JsonObjectDocument document = object(json);
    const JsonObject root = document.object();
    EXPECT_EQ(root.text("plain")->data(), json.data() + json.find("\"p\"") + 1);
    EXPECT_EQ(root.text("escaped"), "/\b\f\n\r\t\\é🌱");
    EXPECT_EQ(root.text("quoted"), "/\"x");
    std::vector<std::string> pieces;
    root.longText("long")->forEachPiece([&](std::string_view piece) { pieces.emplace_back(piece); });
    EXPECT_THAT(pieces, ElementsAre("\n" + run + "y", "é" + run + "🌱", "z"));
    root.longText("none")->forEachPiece([](std::string_view) { FAIL(); });
    EXPECT_FALSE(root.longText("nonet") || root.longText("absent"));
    const auto [two, absent, plain] = root.values({"two", "absent", "plain"});
    EXPECT_TRUE(two->text() == "2" && !absent && plain->isText());
    EXPECT_EQ(json, before);
}

TEST(Json, ObjectsAnswerForTheTypeAsked) {
    const JsonObjectDocument document = object(
        R"( {"t":"a\"\u00e9\ud83c\udf31\u0000","no":false,"yes":true,"null":null,"o":{"t":"x"},"os":[{"t":"y"},{}],)"
        R"("mixed":[{},1],"none":[],"deep":{"a":[[{"t":2}],{"t":3}]},"t2":"first","t2":"last"})");
    const JsonObject root = document.object();
    EXPECT_EQ(root.text("t"), std::string_view("a\"é🌱\0", 9));
    EXPECT_EQ(root.text("t2"), "last");
    EXPECT_EQ(root.boolean("no"), false);
    EXPECT_EQ(root.boolean("yes"), true);
    EXPECT_EQ(root.object("o")->text("t"), "x");
    EXPECT_EQ(root.objects("os")->at(0).text("t"), "y");
    EXPECT_EQ(root.objects("os")->size(), 2U);
    EXPECT_EQ(root.objects("none")->size(), 0U);
    EXPECT_EQ(root.texts("none")->size(), 0U);
    EXPECT_THAT(*object(R"({"a":["x","\u00e9"]})").object().texts("a"), ElementsAre("x", "é"));
    EXPECT_FALSE(root.texts("mixed") || root.texts("os") || root.texts("t") || root.texts("a") ||
                 object(R"({"a":["x",[]]})").object().texts("a"));
    EXPECT_FALSE(root.objects("mixed") || root.objects("o") || root.object("os") || root.text("null") ||
                 root.boolean("t") || root.integer("yes") || root.value("a"));
    EXPECT_TRUE(root.value("null"));
    std::vector<std::string_view> keys;
    for (const auto& member : root.members()) {
        keys.push_back(member.first);
    }
    EXPECT_THAT(keys, ElementsAre("deep", "mixed", "no", "none", "null", "o", "os", "t", "t2", "yes"));
    EXPECT_EQ(object(R"({"b":0,"a":"1","b":"2"})").object().members().rbegin()->second.text(), "2");
    EXPECT_FALSE(JsonDocument::parseObject("[{}]") || JsonDocument::parseObject(" ") ||
                 JsonDocument::parseObject("{} 1"));
}

TEST(Json, IntegersHaveNoFractionAndFit64Bits) {
    const std::vector<std::pair<std::string, std::optional<std::int64_t>>> cases{
        {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
        {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {"9223372036854775808", std::nullopt},
        {"-0", 0},
        {"2.0", 2},
        {"1e3", 1000},
        {"2.5", std::nullopt},
        {"9223372036854775808.0", std::nullopt},
        {"-1e19", std::nullopt},
    };
    for (const auto& [number, value] : cases) {
        const std::string text = "{\"n\":" + number + "}";
        EXPECT_EQ(object(text).object().integer("n"), value) << number;
    }
}

TEST(Json, NumbersArePrintedPlainlyOrAsTheyCame) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"2024", "2024"},
        {"2.0", "2"},
        {"-3.50", "-3.5"},
        {"0.0", "0"},
        {"15e-1", "1.5"},
        {"1e20", "100000000000000000000"},
        {"1e21", "1e+21"},
        {"-1.5E+30", "-1.5e+30"},
        {"1e-20", "0.00000000000000000001"},
        {"25e-21", "2.5e-20"},
        {"185.25362004445742", "185.25362004445742"},
        {"123456789012345678901234", "123456789012345678901234"},
        {"0.10000000000000000001", "0.10000000000000000001"},
        {"9007199254740993.0", "9007199254740993.0"},
        {"1e-400", "1e-400"},
        {"1e-99999999999", "1e-99999999999"},
    };
    for (const auto& [number, text] : cases) {
        EXPECT_EQ(prettyJsonNumber(number), text);
    }
}

TEST(Json, PrettyTextIsIndentedAndSorted) {
    EXPECT_EQ(JsonDocument::parseOrThrow(R"({"b":[1.0,{"y":"\n","x":[]}],"a":{},"a":null})").root().prettyText(),
              "{\n  \"a\": null,\n  \"b\": [\n    1,\n    {\n      \"x\": [],\n      \"y\": \"\\n\"\n    }\n  ]\n}");
}

TEST(Json, QuotingEscapesWhatItMust) {
    using namespace std::string_view_literals;
    const std::string run(100, 'x');
    std::string json = "[";
    appendJsonQuoted(json, "\"\\/\b\f\n\r\t\0\x1F\x7F é🌱"sv);
    appendJsonQuoted(json, run + "\n" + run);
    EXPECT_EQ(json, R"(["\"\\/\b\f\n\r\t\u0000\u001f)"
                    "\x7F é🌱\"\"" +
                        run + "\\n" + run + "\"");
}

} // namespace
