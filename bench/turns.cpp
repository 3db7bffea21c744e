// Runs commands in turns, so that what else the machine does touches all of them alike, and tells the medians:
//   turns RUNS < commands
//
// A line of standard input is a name, a tab and a command: words between blanks, 'quoted' where they hold blanks, with
// "|" between the programs of a pipeline and "< file" for the first one's input. There is no shell in between, so that
// none is measured. What a command prints goes to /dev/null. One round that is not counted
// goes ahead. The order changes from round to round: a command behind a large one finds little of its own in the
// caches.
//
// A line of the result is the name, the wall time and the processor time in milliseconds, the peak memory of the
// largest program in KiB, and the page faults, with tabs between. A command that fails ends everything.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Words = std::vector<std::string>;

struct Command {
    std::string name;
    std::string input = "/dev/null";
    std::vector<Words> programs;
    std::vector<double> wallTimes{};
    std::vector<double> processorTimes{};
    std::vector<double> peaks{};
    std::vector<double> faults{};
};

[[noreturn]] void fail(const std::string& message) {
    std::fprintf(stderr, "bench-turns: %s\n", message.c_str());
    std::exit(EXIT_FAILURE);
}

Words splitWords(const std::string& line) {
    Words words;
    bool isQuoted = false;
    bool isInWord = false;
    for (const char c : line) {
        if (c == '\'') {
            isQuoted = !isQuoted;
        }
        if (c == ' ' && !isQuoted) {
            isInWord = false;
            continue;
        }
        if (!isInWord) {
            words.emplace_back();
            isInWord = true;
        }
        if (c != '\'') {
            words.back() += c;
        }
    }
    return words;
}

Command parsedCommand(const std::string& line) {
    const std::size_t tab = line.find('\t');
    if (tab == std::string::npos) {
        fail("no tab in: " + line);
    }
    Command command{.name = line.substr(0, tab), .programs = {{}}};
    const Words words = splitWords(line.substr(tab + 1));
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "|") {
            command.programs.emplace_back();
        } else if (words[i] == "<" && i + 1 < words.size()) {
            command.input = words[++i];
        } else {
            command.programs.back().push_back(words[i]);
        }
    }
    return command;
}

int opened(const std::string& path, int flags) {
    const int file = open(path.c_str(), flags | O_CLOEXEC);
    if (file < 0) {
        fail("can't open " + path);
    }
    return file;
}

/// Starts `words` with these streams; /dev/null takes its errors.
pid_t started(Words& words, int input, int output, int errors) {
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    // A shared memory until exec: nothing of this process is copied on behalf of the command.
    const pid_t child = vfork();
    if (child == 0) {
        dup2(input, STDIN_FILENO);
        dup2(output, STDOUT_FILENO);
        dup2(errors, STDERR_FILENO);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    if (child < 0) {
        fail("can't start " + words[0]);
    }
    return child;
}

double milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

void runOnce(Command& command, bool counts) {
    const int sink = opened("/dev/null", O_WRONLY);
    std::vector<pid_t> children;
    int input = opened(command.input, O_RDONLY);
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < command.programs.size(); ++i) {
        int ends[2] = {-1, -1};
        const bool isLast = i + 1 == command.programs.size();
        if (!isLast && pipe2(ends, O_CLOEXEC) != 0) {
            fail("can't make a pipe");
        }
        children.push_back(started(command.programs[i], input, isLast ? sink : ends[1], sink));
        close(input);
        close(ends[1]);
        input = ends[0];
    }
    double processorTime = 0;
    double peak = 0;
    double faults = 0;
    for (const pid_t child : children) {
        int status = 0;
        rusage usage{};
        wait4(child, &status, 0, &usage);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
            fail("failed: " + command.name);
        }
        processorTime += milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
        peak = std::max(peak, static_cast<double>(usage.ru_maxrss));
        faults += static_cast<double>(usage.ru_minflt);
    }
    const std::chrono::duration<double, std::milli> wallTime = std::chrono::steady_clock::now() - start;
    close(sink);
    if (counts) {
        command.wallTimes.push_back(wallTime.count());
        command.processorTimes.push_back(processorTime);
        command.peaks.push_back(peak);
        command.faults.push_back(faults);
    }
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

} // namespace

int main(int count, char** arguments) {
    const int runs = count == 2 ? std::atoi(arguments[1]) : 0;
    if (runs < 1) {
        fail("usage: turns RUNS < commands");
    }
    std::vector<Command> commands;
    for (std::string line; std::getline(std::cin, line);) {
        commands.push_back(parsedCommand(line));
    }
    std::vector<std::size_t> order(commands.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::minstd_rand random; // The same orders in every run of this program.
    for (int run = 0; run <= runs; ++run) {
        std::shuffle(order.begin(), order.end(), random);
        for (const std::size_t index : order) {
            runOnce(commands[index], run > 0);
        }
    }
    for (const Command& command : commands) {
        std::printf("%s\t%.3f\t%.3f\t%.0f\t%.0f\n", command.name.c_str(), median(command.wallTimes),
                    median(command.processorTimes), median(command.peaks), median(command.faults));
    }
}
