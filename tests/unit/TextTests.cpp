#include <cstdlib>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/inputs/TextInput.h"
#include "core/output/SingleLine.h"
#include "core/service/CLIError.h"
#include "platform/files/Files.h"
#include "platform/text/TerminalText.h"
#include "platform/text/Text.h"
#include "shell/RepoArgument.h"
#include "shell/TabTable.h"
#include "support/TemporaryFiles.h"

using namespace orvane;
using namespace platform;

namespace {

TEST(Characters, AreWhatPeopleCount) {
    const std::vector<std::pair<std::string, std::size_t>> cases{
        {"", 0},     {"abc", 3}, {"a\r\nb", 3},       {"\n\ra", 3},     {"e\u0301", 1}, {"👩‍🌾", 1},
        {"🇩🇪🇫🇷", 2}, {"ก็", 1},   {"\xFF\xE2\x82", 2}, {"é\r\n\r\n", 3}, {"한국어", 3},  {"\u0301", 1},
    };
    for (const auto& [text, count] : cases) {
        EXPECT_EQ(characterCount(text), count) << text;
        EXPECT_EQ(splitCharacters(text).size(), count) << text;
    }
    EXPECT_EQ(firstCharacters("👩‍🌾e\u0301x", 2), "👩‍🌾e\u0301");
    EXPECT_EQ(firstCharacters("ab\r\nc", 3), "ab\r\n");
    EXPECT_EQ(firstCharacters("ab", 3), "ab");
    EXPECT_EQ(firstCharacters("ae\u0301", 1), "a");
    EXPECT_EQ(firstCharacters("🇩🇪🇫🇷🇬🇧", 2), "🇩🇪🇫🇷");
}

TEST(Text, IsTrimmedRepairedAndCapitalized) {
    EXPECT_EQ(trimmed(" \t\u00A0\u3000a b\u2028\u0085\r\n"), "a b");
    EXPECT_EQ(trimmed("\u200Ba"), "\u200Ba");
    EXPECT_EQ(trimmed(" \u2003 "), "");
    EXPECT_EQ(repairedUtf8("a\xC3(\xE2\x82\xED\xA0\x80"), "a�(����");
    EXPECT_EQ(repairedUtf8("\xF1\x80\x80\xE1\x80\xC2(\x80)\x80\xBF-"), "���(�)��-");
    EXPECT_EQ(repairedUtf8("\xC0\xAF\xE0\x80\xF0\x81\x82(\xF4\x91\xFF"), "�������(���");
    for (const char* text : {"aé春🌱", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                             "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(isValidUtf8(text) && isValidUtf8(std::string(100, 'a') + text + "b")) << text;
        EXPECT_EQ(repairedUtf8(text), text);
    }
    for (const char* text :
         {"\x80", "\xC1\xBF", "\xC2", "\xC2(", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xE2\x82", "\xE2(\x82", "\xE2\x82(",
          "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xF0\x90\x80", "\xF0\x90\x80("}) {
        EXPECT_FALSE(isValidUtf8(text) || isValidUtf8(std::string(100, 'a') + text)) << text;
    }
    EXPECT_EQ(capitalized("job tITLE éa"), "Job Title Éa");
}

TEST(Text, IsSearchedToItsLastByte) {
    for (std::size_t length = 0; length < 200; ++length) {
        EXPECT_FALSE(isValidUtf8(std::string(length, 'a') + "\xFF" + std::string(200, 'a'))) << length;
    }
}

TEST(TerminalText, ShowsWhatWouldSteerATerminal) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"a\x1B[31mb\a\x1F", "a^[[31mb^G^_"},
        {"\r\v\x7F", "^M^K^?"},
        {"\u0080\u009B\u00A0", "<U+0080><U+009B>\u00A0"},
        {"\u061C\u200E\u200F\u2028\u2029\u202A\u202E\u2066\u2069",
         "<U+061C><U+200E><U+200F><U+2028><U+2029><U+202A><U+202E><U+2066><U+2069>"},
        {"\u200D\u200C\u2027\u202F\u2065\u206A", "\u200D\u200C\u2027\u202F\u2065\u206A"},
        {"👩‍🌾 می‌خواهم ~", "👩‍🌾 می‌خواهم ~"},
        {"a\xFF\xE2\x80z", "a��z"},
    };
    const std::string plain(100, 'x');
    for (const auto& [text, shown] : cases) {
        EXPECT_EQ(terminalLine(text), shown);
        EXPECT_EQ(terminalText(plain + text + plain), plain + shown + plain);
    }
    EXPECT_EQ(terminalText("a\n\tb"), "a\n\tb");
    EXPECT_EQ(terminalJson("[\r\n\t\"\x7F\u009B\u202E\uFF76\"]\x1B"), "[ \n\t\"\\u007f\\u009b\\u202e\uFF76\"]^[");
    EXPECT_EQ(terminalLine("a\n\tb"), "a^J^Ib");
}

TEST(SingleLine, FoldsTrimsAndCuts) {
    EXPECT_EQ(singleLine("abc", 3), "abc");
    EXPECT_EQ(singleLine("abcd", 3), "ab…");
    EXPECT_EQ(singleLine("\na\r\nb\tc ", 80), "a  b c");
    EXPECT_EQ(singleLine("ab cdef", 4), "ab…");
    EXPECT_EQ(singleLine("e\u0301e\u0301e\u0301", 3), "e\u0301e\u0301e\u0301");
}

TEST(TabTable, AlignsByCharactersAndEndsShortRowsEarly) {
    TableRows rows;
    EXPECT_EQ(renderTabTable(rows, 8), "");
    for (const std::vector<std::string_view>& row :
         {std::vector<std::string_view>{"a", "b", "c"}, {"12345678", " é\t", ""}, {"x"}}) {
        for (const std::string_view text : row) {
            rows.add(text);
        }
        rows.endRow();
    }
    EXPECT_EQ(renderTabTable(rows, 8), "a\t\tb\tc\n12345678\té\t\nx\t\t\n");
}

TEST(RepoArguments, BecomeFullPathsOrStayKeys) {
    const auto start = std::filesystem::current_path();
    std::filesystem::current_path("/usr/lib");
    setenv("HOME", "/home/me", 1);
    EXPECT_EQ(normalizeRepoArgument(" . "), "/usr/lib");
    EXPECT_EQ(normalizeRepoArgument("../y/"), "/usr/y");
    EXPECT_EQ(normalizeRepoArgument(".."), "/usr");
    EXPECT_EQ(normalizeRepoArgument("/a//b/./../c"), "/a/c");
    EXPECT_EQ(normalizeRepoArgument(" ~/x"), "/home/me/x");
    EXPECT_EQ(normalizeRepoArgument("github.com/acme/widgets"), "github.com/acme/widgets");
    EXPECT_EQ(normalizeRepoArgument(".hidden"), ".hidden");
    std::filesystem::current_path(start);
}

class TextFiles : public testsupport::TemporaryFiles {
protected:
    TextFiles() { setenv("HOME", directory.c_str(), 1); }

    std::string write(const std::string& bytes) const {
        file("file", bytes);
        return "~/file";
    }
    static std::string failure(const std::string& path) {
        try {
            readTextFile({path});
        } catch (const CLIError& error) {
            return error.message;
        }
        return {};
    }
};

TEST_F(TextFiles, LoseOneLineFeed) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", ""}, {"\n", ""}, {"a\n\n", "a\n"}, {"a\r\n", "a\r\n"}, {"a\r\n\n", "a\r\n"}, {"é", "é"},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(readTextFile({write(bytes)}), text);
    }
    const std::string large(300'000, 'x');
    EXPECT_EQ(readTextFile({write(large + "\n")}), large);
}

TEST_F(TextFiles, FailInWordsOfTheirOwn) {
    EXPECT_EQ(failure("~/none"), "File not found: ~/none");
    EXPECT_EQ(failure("~nobody-of-that-name/x"), "File not found: ~nobody-of-that-name/x");
    EXPECT_EQ(expandTilde("~root/x"), "/root/x");
    EXPECT_NE(expandTilde("~nobody/x"), "/root/x");
    EXPECT_EQ(failure(directory), "Could not read file: " + directory);
    EXPECT_EQ(failure(write("a\xFF")), "Could not read file: ~/file");
}

} // namespace
