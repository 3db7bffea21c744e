#include <gtest/gtest.h>

#include "core/inputs/Identifiers.h"

namespace {

TEST(Identifiers, AreUUIDsOfEitherCaseAndNothingElse) {
    for (const char* text : {"7f1b103c-df15-42b0-aab4-77d26415479c", "7F1B103C-DF15-42B0-AAB4-77D26415479C",
                             "00000000-0000-0000-0000-000000000000", "FfFfFfFf-9aA0-FfFf-ffFF-ffffffffffff"}) {
        EXPECT_TRUE(orvane::isUUID(text)) << text;
    }
    for (const char* text :
         {"", "abc", "grp_x", "7f1b103cdf1542b0aab477d26415479c", "{7f1b103c-df15-42b0-aab4-77d26415479c}",
          " 7f1b103c-df15-42b0-aab4-77d26415479c", "7f1b103c-df15-42b0-aab4-77d26415479c ",
          "7f1b103c-df15-42b0-aab4-77d26415479", "7f1b103c-df15-42b0-aab4-77d26415479g",
          "gf1b103c-df15-42b0-aab4-77d26415479c", "7f1b103cd-f15-42b0-aab4-77d26415479c",
          "7f1b103c-df15-42b0-aab477d26415479cc", "7f1b103c-df15-42b0-aab4-77d2641547٣"}) {
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
