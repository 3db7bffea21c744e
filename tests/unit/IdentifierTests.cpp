#include <gtest/gtest.h>

#include "core/inputs/Identifiers.h"

namespace {

TEST(Identifiers, AreUUIDsOfEitherCaseAndNothingElse) {
    EXPECT_TRUE(orvane::isUUID("09afAFBb-df15-42b0-aab4-77d26415479c"));
    for (const char* text : {"", "7f1b103c-df15-42b0-aab4-77d26415479", "7f1b103c-df15-42b0-aab4-77d26415479c ",
                             "gf1b103c-df15-42b0-aab4-77d26415479c", "7f1b103cd-f15-42b0-aab4-77d26415479c",
                             "/f1b103c-df15-42b0-aab4-77d26415479c", "7f1b103c-df15-42b0-aab477d26415479cc"}) {
        EXPECT_FALSE(orvane::isUUID(text)) << text;
    }
}

TEST(Identifiers, BecomeCanonicalOrAreRefusedByTheirLabel) {
    EXPECT_EQ(orvane::canonicalUUID("7F1B103C-DF15-42b0-AAB4-77D26415479C", "id"),
              "7f1b103c-df15-42b0-aab4-77d26415479c");
    try {
        orvane::canonicalUUID("grp_x", "space-id");
        FAIL() << "accepted";
    } catch (const orvane::ValidationError& refusal) {
        EXPECT_EQ(refusal.message, "space-id must be a UUID.");
    }
}

} // namespace
