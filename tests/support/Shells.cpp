#include "support/Shells.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include <gtest/gtest.h>

#include "support/ToolRunner.h"

namespace testsupport {

namespace {

// The words at the end of each start-up file are filled in. TAB completes; ^T tells and drops the command line.
// What is offered goes to a file of its own: a line that begins with "+" for a candidate, with "=" for what the command
// line has become.

constexpr const char* bashSetup = R"sh(PS1='> '
set -o history
bind 'set bell-style none' 'set page-completions off' 'set completion-query-items 0'
source "${files}/script"
tell_candidates() {
    "${completed_by}" "$@"
    [[ ${#COMPREPLY[@]} -eq 0 ]] || printf '+%s\n' "${COMPREPLY[@]}" >>"${files}/offered"
}
completed_by="$(complete -p "${tool}")"
completed_by="${completed_by#*-F }"
completed_by="${completed_by%% *}"
complete -o filenames -F tell_candidates "${tool}"
tell_line() {
    printf '=%s\n' "${READLINE_LINE}" >>"${files}/offered"
    READLINE_LINE='' READLINE_POINT=0
}
bind -x '"\C-t": tell_line'
)sh";

constexpr const char* zshSetup = R"sh(PS1='> '
autoload -Uz compinit
compinit -u -D
setopt no_beep
LISTMAX=10000
source "${files}/script"
compadd() {
    if [[ ${@[1,(i)(-|--)]} != *-(O|A|D)\ * ]]; then
        local -a candidates
        builtin compadd -A candidates "$@"
        candidates=("${(@Q)candidates:#}")
        local descriptions="${@[(i)-(l|)d]}"
        ((descriptions < $#)) && print -rl -- "${(@P)@[descriptions + 1]}" >>"${files}/described"
        ((${#candidates})) && print -rl -- "+${(@)^candidates}" >>"${files}/offered"
    fi
    builtin compadd "$@"
}
tell_line() {
    print -r -- "=${BUFFER}" >>"${files}/offered"
    BUFFER=
}
zle -N tell_line
bindkey "^T" tell_line
)sh";

constexpr const char* fishSetup = R"sh(source "$files/script"
)sh";

// From 4.0 on fish offers what holds the word's letters anywhere where nothing begins with it.
constexpr const char* fishEnd = R"sh(while read -l line
    set -l word (string split ' ' -- $line)[-1]
    complete -C "$line" | string replace -rf -- '^(?='(string escape --style=regex -- $word)')' '+' >>"$files/offered"
    echo '=' >>"$files/offered"
    complete -C "$line"
end
)sh";

void write(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

std::string normalized(std::string candidate, Shell shell) {
    if (shell == Shell::fish) {
        candidate = candidate.substr(0, candidate.find('\t'));
    }
    if (candidate.starts_with('-') && candidate.find('=') != std::string::npos) {
        candidate.erase(0, candidate.find('=') + 1);
    }
    if (candidate.size() > 1 && candidate.ends_with('/')) {
        candidate.pop_back();
    }
    std::replace(candidate.begin(), candidate.end(), ' ', '_');
    return candidate;
}

std::vector<Offered> readOffered(const std::string& path, Shell shell) {
    std::vector<Offered> all;
    std::set<std::string> candidates;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('+')) {
            candidates.insert(normalized(line.substr(1), shell));
            continue;
        }
        Offered offered{"", line.substr(1)};
        for (const std::string& candidate : candidates) {
            offered.candidates += (offered.candidates.empty() ? "" : " ") + candidate;
        }
        all.push_back(std::move(offered));
        candidates.clear();
    }
    return all;
}

} // namespace

ShellSession completeIn(Shell shell, const CompletedTool& tool, const std::vector<std::string>& lines) {
    std::string files = testing::TempDir() + "orvane-shell-XXXXXX";
    EXPECT_NE(mkdtemp(files.data()), nullptr);
    write(files + "/script", tool.script);

    std::string typed;
    std::vector<std::string> command;
    ToolSetting setting;
    setting.binary = "/usr/bin/setsid"; // A session of its own, so that no shell looks for the terminal of the tests.
    setting.directory = tool.directory;
    setting.environment = {{"TERM", "xterm"},
                           {"COLUMNS", "200"},
                           {"HOME", files},
                           {"ZDOTDIR", files},
                           {"files", files},
                           {"tool", tool.name},
                           {"PATH", tool.directory + ":/usr/bin:/bin"}};
    if (shell == Shell::fish) {
        write(files + "/setup", fishSetup + tool.setup + fishEnd);
        for (const std::string& line : lines) {
            typed += line + "\n";
        }
        command = {"--wait", "fish", "--no-config", files + "/setup"};
        setting.input = Input::pipe(typed);
    } else {
        for (const std::string& line : lines) {
            typed += line + "\t\x14\n";
        }
        const bool isBash = shell == Shell::bash;
        const std::string setup = files + (isBash ? "/setup" : "/.zshrc");
        write(setup, (isBash ? bashSetup : zshSetup) + tool.setup);
        command = {"--ctty", "--wait"};
        const std::vector<std::string> start =
            isBash ? std::vector<std::string>{"bash", "--rcfile", setup, "-i"} : std::vector<std::string>{"zsh", "-di"};
        command.insert(command.end(), start.begin(), start.end());
        setting.input = Input::terminal(typed + "exit\n");
        setting.out = setting.err = Output::terminal(200);
    }
    const ToolResult result = runTool(command, setting);
    std::ifstream described(files + "/described");
    const std::string descriptions(std::istreambuf_iterator<char>(described), {});
    const ShellSession session{readOffered(files + "/offered", shell), descriptions + result.out + result.err};
    std::filesystem::remove_all(files);
    EXPECT_EQ(session.offered.size(), lines.size()) << "from " << command[command.size() - 2] << "\n" << session.screen;
    return session;
}

void expectOffered(Shell shell, const CompletedTool& tool, const std::vector<CompletionRow>& rows) {
    std::vector<std::string> lines;
    for (const CompletionRow& row : rows) {
        lines.push_back(row.line);
    }
    const ShellSession session = completeIn(shell, tool, lines);
    for (std::size_t i = 0; i < std::min(rows.size(), session.offered.size()); ++i) {
        const testing::ScopedTrace trace(rows[i].where.file_name(), static_cast<int>(rows[i].where.line()),
                                         rows[i].line);
        const std::string name(argumentparser::completionShellNames[static_cast<std::size_t>(shell)]);
        EXPECT_EQ(name + " offers " + session.offered[i].candidates, name + " offers " + rows[i].candidates);
    }
}

} // namespace testsupport
