#include <gtest/gtest.h>

#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string id = "7f1b103c-df15-42b0-aab4-77d26415479c";
const std::string folder = "90C192CF-d3ac-44af-8f21-ddb66cad4a26";
const std::string lookUp = "GET /api/nodes/" + id + "?meta=true&cliVerb=mv";
const std::string contextNode = R"({"kind":"orvane_context"})";
const std::string folderNode = R"({"kind":"orvane_folder"})";

CommandRow mvRow(std::vector<std::string> options, const std::string& node, const std::string& request,
                 const std::string& reply, const std::string& out) {
    options.insert(options.begin(), {"mv", id});
    return {.arguments = std::move(options),
            .answers = {answer(node), answer(reply)},
            .requests = {lookUp, "POST /api/" + request},
            .out = out};
}

TEST(Mv, MovesRenamesAndUnfiles) {
    const std::string contexts = "contexts/" + id;
    const std::string folders = "folders/" + id;
    expectRows({
        mvRow({"--name", "New \"name\""}, contextNode,
              contexts + "/rename?cliVerb=mv\n"
                         R"({"name":"New \"name\""})",
              R"({"contextId":"c","name":"N"})", "renamed context \"N\"  c\n"),
        mvRow({"--name", ""}, folderNode,
              folders + "/rename?cliVerb=mv\n"
                        R"({"name":""})",
              R"({"folderId":"f","contextId":"c","name":"N"})", "renamed folder \"N\"  f\n"),
        mvRow({"--to", folder}, contextNode,
              contexts +
                  "/move?cliVerb=mv\n"
                  R"({"folderId":")" +
                  folder + "\"}",
              R"({"contextId":"c","folderId":"dest"})", "moved context  c  → folder dest\n"),
        mvRow({"--to", folder}, contextNode,
              contexts +
                  "/move?cliVerb=mv\n"
                  R"({"folderId":")" +
                  folder + "\"}",
              R"({"contextId":"c","folderId":null})", "moved context  c  → folder " + folder + "\n"),
        mvRow({"--to", folder}, folderNode,
              folders +
                  "/move?cliVerb=mv\n"
                  R"({"parentId":")" +
                  folder + "\"}",
              R"({"folderId":"f","parentId":"p"})", "moved folder  f  → folder p\n"),
        mvRow({"--unfiled"}, contextNode,
              contexts + "/move?cliVerb=mv\n"
                         R"({"unfiled":true})",
              R"({"contextId":"c"})", "unfiled context  c\n"),
        mvRow({"--unfiled"}, folderNode,
              folders + "/move?cliVerb=mv\n"
                        R"({"root":true})",
              R"({"folderId":"f"})", "moved folder  f  → root\n"),
        mvRow({"--unfiled"}, folderNode,
              folders + "/move?cliVerb=mv\n"
                        R"({"root":true})",
              "7", "7\n"),
    });
    expectServiceRefusal({"mv", id, "--unfiled"});
    expectServiceRefusal({"mv", id, "--unfiled"}, {answer(contextNode)});
}

TEST(Mv, RefusesWhatItCannotMove) {
    const std::string usage = "orvane-cli mv <id> [--to <to>] [--name <name>] [--unfiled]";
    const std::string modes = "Provide exactly one of --to <folder-id>, --name <new-name>, or --unfiled.";
    expectRefused({"mv", "x"}, modes, usage);
    expectRefused({"mv", id, "--to", "x", "--unfiled"}, modes, usage);
    expectRefused({"mv", "x", "--to", "x"}, "--to must be a folder UUID.", usage);
    expectFailed({"mv", "x", "--unfiled"}, {}, "Invalid UUID: x");
    expectFailed({"mv", id, "--unfiled"}, {answer(R"({"kind":"codex_chat"})")},
                 "Nodes of kind 'codex_chat' cannot be moved or renamed.");
    for (const char* node : {"[]", "x", "{}", R"({"kind":1})"}) {
        expectFailed({"mv", id, "--unfiled"}, {answer(node)},
                     "Could not determine whether " + id + " is a context or folder.");
    }
}

TEST(Rm, DeletesWithoutAsking) {
    expectRows({
        {.arguments = {"rm", id},
         .answers = {answer(R"({"contextId":"c"})")},
         .requests = {"DELETE /api/contexts/" + id + "?cliVerb=rm"},
         .out = "deleted context  c\n"},
        {.arguments = {"rmdir", id},
         .answers = {answer(R"({"folderId":"f"})")},
         .requests = {"DELETE /api/folders/" + id + "?cliVerb=rmdir"},
         .out = "deleted folder  f\n"},
        {.arguments = {"rm", id},
         .answers = {answer(204, "")},
         .requests = {"DELETE /api/contexts/" + id + "?cliVerb=rm"},
         .out = "\n"},
    });
    expectFailed({"rm", "x"}, {}, "Invalid UUID: x");
    expectFailed({"rmdir", "x"}, {}, "Invalid UUID: x");
    expectServiceRefusal({"rm", id});
    expectServiceRefusal({"rmdir", id});
}

const std::string preview = "GET /api/transcripts/" + id + "/delete-preview";
const std::string confirmed = "POST /api/transcripts/" + id + "/delete\n{}";

CommandRow deleteRow(const std::string& typed, const std::string& reply, const std::string& out) {
    CommandRow row{.arguments = {"delete", id},
                   .answers = {answer(R"({"message":"Gone."})"), answer(reply)},
                   .requests = {preview, confirmed},
                   .out = "Gone.\nContinue? [y/N] " + out};
    row.setting.input = Input::terminal(typed);
    return row;
}

TEST(Delete, AsksAPersonFirst) {
    expectRows({
        deleteRow("y\n", R"({"name":"N","transcriptId":"t","deletedNodes":1})",
                  "deleted chat \"N\"  t  1 node soft-deleted; cloud sync triggered if idle\n"),
        deleteRow(" YES \n", R"({"transcriptId":"t","deletedNodes":3})",
                  "deleted chat  t  3 nodes soft-deleted; cloud sync triggered if idle\n"),
        deleteRow("Y\n", R"({"deletedNodes":"3"})", "deleted chat\n"),
        deleteRow("y\n", "[]", "[]\n"),
    });
    CommandRow byDefault = deleteRow("y\n", "{}", "");
    byDefault.answers.front() = answer("{}");
    byDefault.out = "This will remove this chat from your Orvane library and exclude it from future syncs.\n"
                    "Continue? [y/N] deleted chat\n";
    expectRow(byDefault);
}

TEST(Delete, ChangesNothingWithoutAYes) {
    for (const char* typed : {"n\n", "\n", "", "yep\n", "y es\n"}) {
        CommandRow row = deleteRow(typed, "", "");
        row.answers.pop_back();
        row.requests.pop_back();
        row.err = "Error: Deletion cancelled.\n";
        row.status = 1;
        expectRow(row);
    }
    CommandRow piped = deleteRow("", "", "");
    piped.setting.input = Input::pipe("y\n");
    piped.answers.pop_back();
    piped.requests.pop_back();
    piped.out = "";
    piped.err = "Error: Deletion requires interactive confirmation from a terminal.\n";
    piped.status = 1;
    expectRow(piped);
    expectFailed({"delete", "x"}, {}, "Invalid UUID: x");
    expectFailed({"delete", id}, {answer("[]")}, "Invalid delete preview response.");
    expectFailed({"delete", id}, {answer("{")}, "The data is not valid JSON: incomplete JSON.");
    expectServiceRefusal({"delete", id});
}

} // namespace
