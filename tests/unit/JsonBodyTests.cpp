#include <gtest/gtest.h>

#include "core/service/JsonBody.h"

using orvane::JsonBody;

namespace {

TEST(JsonBody, HoldsEveryKindOfValueInOrder) {
    JsonBody card;
    card.set("a", "x");
    JsonBody body;
    EXPECT_TRUE(body.isEmpty());
    body.setNull("none").set("flag", false).set("number", std::int64_t{-7}).set("text", "\"\n");
    EXPECT_FALSE(body.isEmpty());
    body.set("texts", std::vector<std::string>{"b", ""}).set("cards", std::vector<JsonBody>{card, JsonBody()});
    body.set("noCards", std::vector<JsonBody>()).set("card", card).setJson("own", R"({"n": 1e308 })");
    EXPECT_EQ(std::move(body).finish(),
              R"({"none":null,"flag":false,"number":-7,"text":"\"\n","texts":["b",""],"cards":[{"a":"x"},{}],)"
              R"("noCards":[],"card":{"a":"x"},"own":{"n": 1e308 }})");
    EXPECT_EQ(JsonBody().finish(), "{}");
}

} // namespace
