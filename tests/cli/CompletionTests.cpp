// The completion scripts of the tool itself, loaded by real shells.
#include <fstream>

#include <gtest/gtest.h>

#include "support/CommandRow.h"
#include "support/Shells.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

class Completions : public TemporaryFiles {
protected:
    Completions() {
        file("a b.md", "");
        file("plain.md", "");
        std::filesystem::create_directory(directory + "/ls");
        std::filesystem::create_directory(directory + "/sub dir");
        file("sub dir/inner", "");
        // No script runs the tool, as long as no candidates must be computed by it.
        std::ofstream(file("orvane-cli", "#!/bin/sh\necho ran >>" + directory + "/ran\n"));
        std::filesystem::permissions(directory + "/orvane-cli", std::filesystem::perms::owner_all);
    }
    ~Completions() override { EXPECT_FALSE(std::filesystem::exists(directory + "/ran")); }

    CompletedTool tool(Shell shell) const {
        const std::string name(argumentparser::completionShellNames[static_cast<std::size_t>(shell)]);
        return {"orvane-cli", runTool({"--generate-completion-script", name}).out, directory};
    }
};

TEST_F(Completions, AreTheSameInAllShells) {
    const std::vector<CompletionRow> rows{
        CompletionRow{"orvane-cli l", "ls"},
        CompletionRow{"orvane-cli --", "--help --version"},
        CompletionRow{"orvane-cli context ", "create delete edit get list move rename"},
        CompletionRow{"orvane-cli ontology enum", "enum enum-case enum-cases enums"},
        CompletionRow{"orvane-cli ontology enum-case c", "create"},
        CompletionRow{"orvane-cli sed --", "--all --help --new --new-file --old --old-file --version"},
        CompletionRow{"orvane-cli sed --all x --old y --", "--help --new --new-file --old-file --version"},
        CompletionRow{"orvane-cli ls --type=me", "meeting memory messaging"},
        CompletionRow{"orvane-cli ls a:b@c --initiated=", "agent automation human"},
        CompletionRow{"orvane-cli ls \"a b\" --initiated a", "agent automation"},
        CompletionRow{"orvane-cli -- l", ""},
        // The inputs of a default subcommand, with its word or without.
        CompletionRow{"orvane-cli transcript ", "get list"},
        CompletionRow{"orvane-cli transcript --", "--help --limit --owner --type --version"},
        CompletionRow{"orvane-cli transcript --limit 5 --", "--help --owner --type --version"},
        CompletionRow{"orvane-cli transcript list --limit 5 --", "--help --owner --type --version"},
        CompletionRow{"orvane-cli transcript --type=g", "gemini grok"},
        // `help` knows the words of commands.
        CompletionRow{"orvane-cli help ontology space", "space spaces"},
        CompletionRow{"orvane-cli help ontology space ", "create delete get update"},
        CompletionRow{"orvane-cli help ls ", ""},
        CompletionRow{"orvane-cli analytics --range 3", "30d"},
        CompletionRow{"orvane-cli skill analytics --granularity d", "day"},
        CompletionRow{"orvane-cli skill install x --agent c", "claude codex"},
        // Names of files.
        CompletionRow{"orvane-cli sed --old-file ", "a_b.md ls orvane-cli plain.md sub_dir"},
        CompletionRow{"orvane-cli sed --old-file \"a ", "a_b.md"},
        // Redirections are the shell's.
        CompletionRow{"orvane-cli cat x 2> p", "plain.md"},
    };
    for (const Shell shell : allShells) {
        expectOffered(shell, tool(shell), rows);
    }
}

/// fish tells no script which words are the files of redirections.
TEST_F(Completions, PassOverRedirections) {
    const std::vector<CompletionRow> rows{
        CompletionRow{"orvane-cli modality x >out st", "stale"},
        CompletionRow{"orvane-cli modality 2> /dev/null x st", "stale"},
        CompletionRow{"orvane-cli cat x >p", "plain.md"},
    };
    for (const Shell shell : {Shell::bash, Shell::zsh}) {
        expectOffered(shell, tool(shell), rows);
    }
}

/// Ways in which users have their shells, which no script may change or stumble over.
TEST_F(Completions, LeaveTheUsersSettingsAlone) {
    const std::vector<CompletionRow> rows{
        CompletionRow{"orvane-cli sed --old-file ", "a_b.md ls orvane-cli plain.md sub_dir"},
        CompletionRow{"orvane-cli ls --type=me", "meeting memory messaging"},
        CompletionRow{"orvane-cli help ontology space ", "create delete get update"},
    };
    CompletedTool bash = tool(Shell::bash);
    bash.setup = R"sh(
set -u
shopt -s failglob nocasematch
IGNOREEOF=7
state() {
    shopt -p
    shopt -po
    compgen -v | grep -vE '^(_|BASH.*|COMP.*|PIPESTATUS|RANDOM|SECONDS|EPOCH.*|SRANDOM)$'
    printf '%q\n' "${IFS}" "${IGNOREEOF}"
}
tell_candidates() {
    local before='' after=''
    before="$(state)"
    set -e
    "${completed_by}" "$@" || true
    [[ "${-}" = *e* ]] || echo +no-errexit >>"${files}/offered"
    set +e
    after="$(state)"
    [[ "${before}" = "${after}" ]] || diff <(echo "${before}") <(echo "${after}") | sed 's/^/+/; s/ /~/g' >>"${files}/offered"
    printf '+%s\n' "${COMPREPLY[@]}" >>"${files}/offered"
}
alias local=false printf=false
IFS=:
)sh";
    bash.setup += R"sh(bind -x '"\C-t": trap -p RETURN >>"${files}/offered"; tell_line'
)sh";
    expectOffered(Shell::bash, bash, rows);
    bash.setup += "COMP_WORDBREAKS=' '\n";
    expectOffered(Shell::bash, bash, rows);
    EXPECT_EQ(completeIn(Shell::bash, bash, {"orvane-cli ls --type=pro"}).offered.at(0).line,
              "orvane-cli ls --type=profile ");

    CompletedTool zsh = tool(Shell::zsh);
    zsh.setup = R"sh(
setopt ksh_arrays sh_word_split no_unset no_match ksh_glob
unsetopt nomatch
IFS=:
alias -g local=false
)sh";
    expectOffered(Shell::zsh, zsh, rows);
}

/// As packages install them: found by the tool's name, and loaded when it is first completed.
TEST_F(Completions, AreLoadedOnDemand) {
    const std::vector<CompletionRow> rows{
        CompletionRow{"orvane-cli ls --type=me", "meeting memory messaging"},
        CompletionRow{"orvane-cli transcript --lim", "--limit"},
    };
    const auto install = [&](const std::string& place, Shell shell) {
        std::filesystem::create_directories(directory + "/" + place);
        std::ofstream(directory + "/" + place +
                      (shell == Shell::zsh    ? "/_orvane_cli"
                       : shell == Shell::fish ? "/orvane-cli.fish"
                                              : "/orvane-cli"))
            << tool(shell).script;
    };
    install("bash-completion/completions", Shell::bash);
    CompletedTool bash{"orvane-cli", "complete -F none orvane-cli", directory};
    bash.setup = R"sh(
complete -r
XDG_DATA_DIRS="${PWD}"
source /usr/share/bash-completion/bash_completion
_completion_loader orvane-cli
complete -p orvane-cli >/dev/null && complete -F tell_candidates orvane-cli
completed_by=_orvane_cli
)sh";
    expectOffered(Shell::bash, bash, rows);

    install("functions", Shell::zsh);
    CompletedTool zsh{"orvane-cli", "fpath=(${PWD}/functions ${fpath})\ncompinit -u -D\n", directory};
    expectOffered(Shell::zsh, zsh, rows);

    install("completions", Shell::fish);
    expectOffered(Shell::fish, {"orvane-cli", "set -p fish_complete_path $PWD/completions\n", directory}, rows);
}

TEST(CompletionRequest, TakesTheShellByNameOrFromTheEnvironment) {
    const auto firstLine = [](const Words& arguments, const char* shell) {
        ToolSetting setting;
        if (shell != nullptr) {
            setting.environment["SHELL"] = shell;
        }
        const ToolResult result = runTool(arguments, setting);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.out.substr(result.out.size() - 2).find("\n\n"), std::string::npos);
        return result.out.substr(0, result.out.find('\n'));
    };
    const std::string zsh = "#compdef orvane-cli";
    const std::string bash = "#!/bin/bash";
    const std::string fish = "# Succeeds if the current word may be a flag or option of a command, none of whose other "
                             "names was used.";
    EXPECT_EQ(firstLine("--generate-completion-script=zsh", nullptr), zsh);
    EXPECT_EQ(firstLine("--generate-completion-script= fish", "/bin/bash"), fish);
    EXPECT_EQ(firstLine("--generate-completion-script", "/bin/fish"), fish);
    EXPECT_EQ(firstLine("--generate-completion-script", "zsh"), zsh);
    EXPECT_EQ(firstLine("--help --generate-completion-script --version", "/usr/local/bin/bash"), bash);
    EXPECT_EQ(firstLine("ls --generate-completion-script zsh --nonsense", nullptr), zsh);
}

TEST(CompletionRequest, IsRefusedForOtherShells) {
    const std::string others = "\nPlease use --generate-completion-script=<shell> with one of:\n    zsh bash fish";
    const std::string unknown = "Can't autodetect a supported shell." + others;
    for (const std::string name : {"Bash", "/bin/bash"}) {
        expectRefusedByRun({"--generate-completion-script", name},
                           "Can't generate completion scripts for '" + name + "'." + others);
    }
    expectRefusedByRun("--generate-completion-script", unknown);
    expectRefusedByRun("--generate-completion-script", unknown, {.environment = {{"SHELL", "/bin/tcsh"}}});
}

TEST(CompletionRequest, IsNoneBehindTheTerminator) {
    expectRefused("-- --generate-completion-script=zsh", "Unexpected argument '--generate-completion-script=zsh'");
}

} // namespace
