// Runs programs in turn, A B C A B C…, and prints what each run cost. It is small and allocates
// little, because a child's largest resident size counts from its parent's.
//
// Standard input says what to run, one word and its text a line:
//
//     rounds N
//     program         begins the next contender
//     input FILE      its standard input, /dev/null without one
//     env NAME=VALUE  added to its environment, which is empty otherwise
//     arg TEXT        its path, then its arguments
//
// A line of output a run: contender, wall time and CPU time in microseconds, largest resident size
// in KiB, bytes printed. A program that fails ends it all.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace {

struct Contender {
    std::string input = "/dev/null";
    std::vector<std::string> environment;
    std::vector<std::string> words;
};

struct Plan {
    int rounds = 1;
    std::vector<Contender> contenders;
};

struct Cost {
    double wallMicroseconds;
    double cpuMicroseconds;
    long residentKiB;
    long long printedBytes;
};

void require(bool done, const char* what) {
    if (!done) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

Plan readPlan(std::istream& in) {
    Plan plan;
    std::string word;
    while (in >> word) {
        std::string text;
        std::getline(in >> std::ws, text);
        if (word == "rounds") {
            plan.rounds = std::stoi(text);
        } else if (word == "program") {
            plan.contenders.emplace_back();
        } else if (word == "input") {
            plan.contenders.back().input = text;
        } else if (word == "env") {
            plan.contenders.back().environment.push_back(text);
        } else if (word == "arg") {
            plan.contenders.back().words.push_back(text);
        } else {
            throw std::invalid_argument("unknown word: " + word);
        }
    }
    return plan;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        result.push_back(text.data());
    }
    result.push_back(nullptr);
    return result;
}

/// Starts the program with `output` as its standard output.
pid_t start(Contender& contender, int output) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, contender.input.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t child = 0;
    errno = posix_spawn(&child, contender.words.at(0).c_str(), &actions, nullptr,
                        pointers(contender.words).data(), pointers(contender.environment).data());
    require(errno == 0, contender.words[0].c_str());
    posix_spawn_file_actions_destroy(&actions);
    return child;
}

/// Reads to the end, as a web server does.
long long drain(int descriptor) {
    static char block[65536];
    long long total = 0;
    ssize_t count = 0;
    while ((count = read(descriptor, block, sizeof block)) > 0) {
        total += count;
    }
    require(count == 0, "read");
    return total;
}

double microseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_usec);
}

Cost run(Contender& contender) {
    int ends[2];
    require(pipe2(ends, O_CLOEXEC) == 0, "pipe");
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = start(contender, ends[1]);
    close(ends[1]);
    const long long printed = drain(ends[0]);
    close(ends[0]);
    int status = 0;
    rusage usage{};
    require(wait4(child, &status, 0, &usage) == child, "wait4");
    const auto end = std::chrono::steady_clock::now();
    if (status != 0) {
        throw std::runtime_error(contender.words[0] + " failed, status " + std::to_string(status));
    }
    return {std::chrono::duration<double, std::micro>(end - begin).count(),
            microseconds(usage.ru_utime) + microseconds(usage.ru_stime), usage.ru_maxrss, printed};
}

}  // namespace

int main() {
    try {
        Plan plan = readPlan(std::cin);
        for (int round = 0; round < plan.rounds; ++round) {
            for (std::size_t i = 0; i < plan.contenders.size(); ++i) {
                const Cost cost = run(plan.contenders[i]);
                std::printf("%zu %.1f %.1f %ld %lld\n", i, cost.wallMicroseconds,
                            cost.cpuMicroseconds, cost.residentKiB, cost.printedBytes);
            }
        }
    } catch (const std::exception& e) {
        std::fprintf(stderr, "repeat: %s\n", e.what());
        return 1;
    }
    return 0;
}
