#pragma once
// mayasim-batch run as a user runs it, for tests of whole program runs: the
// script editor's output it prints and its exit status.
#include <cstdio>
#include <string>
#include <sys/wait.h>

struct BatchRun
{
    std::string output; // stdout and stderr
    int status = -1;    // the exit status; -1 when it didn't exit
};

inline std::string batchProgram() { return std::string(ORVANE_BINARY_DIR) + "/mayasim/mayasim-batch"; }

// Runs a shell command line and collects what it prints.
inline BatchRun runCommandLine(const std::string& line)
{
    BatchRun result;
    FILE* pipe = popen((line + " 2>&1").c_str(), "r");
    char buffer[256];
    while (pipe && std::fgets(buffer, sizeof buffer, pipe))
        result.output += buffer;
    const int status = pipe ? pclose(pipe) : -1;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

// The arguments go to the program as written in a shell; the environment
// assignments ("NAME=value ...") apply to this run only.
inline BatchRun runBatch(const std::string& arguments, const std::string& environment = "")
{
    return runCommandLine((environment.empty() ? "" : "env " + environment + " ") + batchProgram() + " " + arguments);
}
