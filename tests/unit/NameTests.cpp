#include <gtest/gtest.h>

#include "ArgumentParser/declaration/KebabCase.h"
#include "ArgumentParser/declaration/Name.h"
#include "ArgumentParser/messages/EditDistance.h"

using namespace argumentparser;

namespace {

std::string synopses(const std::vector<Name>& names) {
    std::string text;
    for (const Name& name : names) {
        text += (text.empty() ? "" : " ") + name.synopsis();
    }
    return text;
}

template <std::size_t size>
constexpr bool kebabCaseIs(const char (&identifier)[size], std::string_view expected) {
    return KebabCase<size>({identifier, size - 1}).text() == expected;
}

static_assert(kebabCaseIs("", "") && kebabCaseIs("CheckIn", "check-in") && kebabCaseIs("URLSession", "url-session"));
static_assert(kebabCaseIs("lastURL", "last-url") && kebabCaseIs("ABc", "a-bc") && kebabCaseIs("ABC", "abc"));
static_assert(kebabCaseIs("V2Only_x", "v2-only_x") && kebabCaseIs("TeamACLOnly", "team-acl-only"));

TEST(Names, ComeFromTheKeyOrLiterally) {
    const NameSpecification names{shortName(), longName(),         customLong("old", true), customShort("x", true),
                                  longName(),  customLong("later")};
    EXPECT_EQ(synopses(names.names("page-Token")), "-p --page-Token -old -x --later");
    EXPECT_EQ(synopses(NameSpecification().names("page-token")), "");
}

TEST(Names, ArePrefixedInTheirOwnStyle) {
    const NameSpecification literal{customLong("dry-run"), customLong("dry_run"),     customLong("dryRun"),
                                    customLong("dryrun"),  customLong("dry-run_now"), customLong("DryRun")};
    EXPECT_EQ(synopses(literal.prefixedNames("no", "key", false)),
              "--no-dry-run --no_dry_run --noDryRun --no-dryrun --no-dry-run_now --no-DryRun");
    const NameSpecification names{shortName(), longName(), customLong("all", true)};
    EXPECT_EQ(synopses(names.prefixedNames("enable", "recursive", true)), "-r --enable-recursive -enable-all");
    EXPECT_EQ(synopses(names.prefixedNames("disable", "recursive", false)), "--disable-recursive -disable-all");
    EXPECT_EQ(synopses(NameSpecification{longName()}.prefixedNames("no", "", false)), "--no");
}

TEST(Names, EditDistanceCountsWholeCharacters) {
    const std::tuple<const char*, const char*, std::size_t> rows[] = {
        {"", "", 0},           {"", "abc", 3},          {"abc", "", 3},
        {"abc", "abc", 0},     {"--nmae", "--name", 2}, {"kitten", "sitting", 3},
        {"flaw", "lawn", 2},   {"ab", "ba", 2},         {"aab", "ab", 1},
        {"e\u0301a", "ea", 1}, {"größe", "grosse", 3}};
    for (const auto& [left, right, expected] : rows) {
        EXPECT_EQ(editDistance(left, right), expected) << left << " " << right;
        EXPECT_EQ(editDistance(right, left), expected) << right << " " << left;
    }
}

} // namespace
