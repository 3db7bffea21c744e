#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string contextNode = R"({"kind":"orvane_context"})";
const std::string folderNode = R"({"kind":"orvane_folder"})";

/// Looks up what `id` is, then sends `request`.
CommandRow mvRow(const Words& options, const std::string& node, const std::string& request, const std::string& reply,
                 const std::string& out, Location where = Location::current()) {
    return {.arguments = with("mv " + id, options),
            .answers = {answer(node), answer(reply)},
            .requests = {"GET /api/nodes/" + id + "?meta=true&cliVerb=mv", "POST /api/" + request},
            .out = out,
            .where = where};
}

TEST(Mv, MovesRenamesAndUnfiles) {
    const std::string context = "contexts/" + id;
    const std::string folder = "folders/" + id;
    const std::string moveContext = context + "/move?cliVerb=mv\n{\"folderId\":\"" + other + "\"}";
    const std::string moveFolder = folder + "/move?cliVerb=mv\n{\"parentId\":\"" + other + "\"}";
    const std::string toRoot = folder + "/move?cliVerb=mv\n{\"root\":true}";
    expectRows({
        mvRow({"--name", "New \"name\""}, contextNode, context + "/rename?cliVerb=mv\n{\"name\":\"New \\\"name\\\"\"}",
              R"({"contextId":"c","name":"N"})", "renamed context \"N\"  c\n"),
        mvRow({"--name", ""}, folderNode, folder + "/rename?cliVerb=mv\n{\"name\":\"\"}",
              R"({"folderId":"f","contextId":"c","name":"N"})", "renamed folder \"N\"  f\n"),
        mvRow("--to " + other, contextNode, moveContext, R"({"contextId":"c","folderId":"dest"})",
              "moved context  c  → folder dest\n"),
        mvRow("--to " + other, contextNode, moveContext, R"({"contextId":"c","folderId":null})",
              "moved context  c  → folder " + other + "\n"),
        mvRow("--to " + other, folderNode, moveFolder, R"({"folderId":"f","parentId":"p"})",
              "moved folder  f  → folder p\n"),
        mvRow("--unfiled", contextNode, context + "/move?cliVerb=mv\n{\"unfiled\":true}", R"({"contextId":"c"})",
              "unfiled context  c\n"),
        mvRow("--unfiled", folderNode, toRoot, R"({"folderId":"f"})", "moved folder  f  → root\n"),
        mvRow("--unfiled", folderNode, toRoot, "7", "7\n"),
    });
    expectServiceRefusal("mv " + id + " --unfiled", {answer(contextNode)});
}

TEST(Mv, RefusesWhatItCannotMove) {
    const std::string modes = "Provide exactly one of --to <folder-id>, --name <new-name>, or --unfiled.";
    expectRefused("mv x", modes);
    expectRefused("mv " + id + " --to x --unfiled", modes);
    expectRefused("mv x --to x", "--to must be a folder UUID.");
    expectFailed("mv x --unfiled", {}, "Invalid UUID: x");
    expectFailed("mv " + id + " --unfiled", {answer(R"({"kind":"codex_chat"})")},
                 "Nodes of kind 'codex_chat' cannot be moved or renamed.");
    expectFailed("mv " + id + " --unfiled", {answer(R"({"kind":"a\r\nb\tc\u0000d"})")},
                 std::string("Nodes of kind 'a  b c\0d' cannot be moved or renamed.", 52));
    for (const char* node : {"[]", "x", "{}", R"({"kind":1})"}) {
        expectFailed("mv " + id + " --unfiled", {answer(node)},
                     "Could not determine whether " + id + " is a context or folder.");
    }
}

TEST(Rm, DeletesWithoutAsking) {
    const std::string context = "DELETE /api/contexts/" + id + "?cliVerb=rm";
    expectRows({
        row("rm " + id, context, R"({"contextId":"c"})", "deleted context  c\n"),
        row("rm " + id, context, "", "\n"),
        row("rmdir " + id, "DELETE /api/folders/" + id + "?cliVerb=rmdir", R"({"folderId":"f"})",
            "deleted folder  f\n"),
    });
    expectFailed("rm x", {}, "Invalid UUID: x");
    expectFailed("rmdir x", {}, "Invalid UUID: x");
}

/// A person who is shown a preview, types `typed`, and lets `reply` come of it.
CommandRow deleteRow(const std::string& typed, const std::string& reply, const std::string& out,
                     const std::string& preview = R"({"message":"Gone."})", Location where = Location::current()) {
    const std::string path = " /api/transcripts/" + id;
    return {.arguments = "delete " + id,
            .answers = {answer(preview), answer(reply)},
            .requests = {"GET" + path + "/delete-preview", "POST" + path + "/delete\n{}"},
            .out = "Gone.\nContinue? [y/N] " + out,
            .setting = {.input = Input::terminal(typed)},
            .where = where};
}

TEST(Delete, AsksAPersonFirst) {
    CommandRow byDefault = deleteRow("y\n", "{}", "", "{}");
    byDefault.out = "This will remove this chat from your Orvane library and exclude it from future syncs.\n"
                    "Continue? [y/N] deleted chat\n";
    CommandRow refused = deleteRow("y\n", "", "");
    refused.answers.back() = answer(400, R"({"message":"x"})");
    refused.err = "error: x\n";
    refused.status = 1;
    expectRows({
        deleteRow("y\n", R"({"name":"N","transcriptId":"t","deletedNodes":1})",
                  "deleted chat \"N\"  t  1 node soft-deleted; cloud sync triggered if idle\n"),
        deleteRow(" YES \n", R"({"transcriptId":"t","deletedNodes":3})",
                  "deleted chat  t  3 nodes soft-deleted; cloud sync triggered if idle\n"),
        deleteRow("y\n", R"({"deletedNodes":0})", "deleted chat  0 nodes soft-deleted; cloud sync triggered if idle\n"),
        deleteRow("Y\n", R"({"deletedNodes":"3"})", "deleted chat\n"),
        deleteRow("y\n", "[]", "[]\n"),
        byDefault,
        refused,
    });
}

TEST(Delete, ChangesNothingWithoutAYes) {
    for (const char* typed : {"n\n", "\n", "", "yep\n", "y es\n"}) {
        expectRow(stopped(deleteRow(typed, "", ""), "Gone.\nContinue? [y/N] ", "Deletion cancelled."));
    }
    expectRow(stopped(withInput(deleteRow("", "", ""), Input::pipe("y\n")), "",
                      "Deletion requires interactive confirmation from a terminal."));
    expectFailed("delete x", {}, "Invalid UUID: x");
    expectFailed("delete " + id, {answer("[]")}, "Invalid delete preview response.");
    expectFailed("delete " + id, {answer("{")}, "The data is not valid JSON: incomplete JSON.");
}

} // namespace
