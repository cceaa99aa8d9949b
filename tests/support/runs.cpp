#include "support/runs.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <stdexcept>

namespace fs = std::filesystem;

namespace
{
constexpr std::string_view switches[] = {"cardflag", "setflag", "geomflag", "icflag",   "lcflag",
                                         "tranflag", "amrflag", "sphflag",  "plotflag", "accelflag"};

constexpr int patience = 120'000;  // milliseconds without a word before a program is taken to hang, and killed

std::string line(std::string_view label, std::string_view value)
{
    return " " + std::string(label) + " : " + std::string(value) + "\n";
}
}  // namespace

std::string settings(std::string_view deck, std::initializer_list<std::pair<std::string_view, int>> flags)
{
    std::string file = line("sourcefile", deck);
    for (const auto& [label, value] : flags) file += line(label, std::to_string(value));
    return file;
}

std::string every_flag(std::string_view deck, int stndflag, int contflag)
{
    std::string file = settings(deck, {{"defflag", 1}, {"stndflag", stndflag}, {"contflag", contflag}});
    for (const std::string_view label : switches) file += line(label, "1");
    return file;
}

const std::string_view model = "*KEYWORD\n"
                               "*TITLE\n"
                               "one of each\n"
                               "*PART\n"
                               "the block\n"
                               "         1         1         7\n"
                               "*SECTION_SOLID\n"
                               "         1         1\n"
                               "*MAT_ELASTIC\n"
                               "         7  7.85E-09    210000       0.3\n"
                               "*NODE\n"
                               "       1             0.0             0.0             0.1       0       0\n"
                               "       2             1.0             0.0             0.0       0       0\n"
                               "*ELEMENT_SOLID\n"
                               "       1       1       1       2       3       4       5       6       7       8\n"
                               "*ELEMENT_SHELL\n"
                               "       2       1       1       2       3       4       0       0       0       0\n"
                               "*ELEMENT_SPH\n"
                               "      11       1             0.5\n"
                               "      12       1            0.25\n"
                               "*ELEMENT_BEAM\n"
                               "       3       1       1       2       3\n"
                               "*SET_NODE_LIST\n"
                               "        11       0.0       0.0       0.0       0.0\n"
                               "         1         2         0         0         0         0         0         0\n"
                               "*SET_SEGMENT\n"
                               "        12       0.0       0.0       0.0       0.0\n"
                               "         1         2         3         4       0.0       0.0       0.0       0.0\n"
                               "*DEFINE_COORDINATE_NODES_TITLE\n"
                               "acc1\n"
                               "         1        11        12        13\n"
                               "*DEFINE_CURVE_TITLE\n"
                               "ramp\n"
                               "         5         0       1.0       1.0       0.0       0.0\n"
                               "                 0.0                 1.0\n"
                               "                 1.0                 2.0\n"
                               "*END\n";

std::string files()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(".")) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    std::string all;
    for (const std::string& name : names) all += (all.empty() ? "" : " ") + name;
    return all;
}

std::string masked(std::string main_deck)
{
    const std::size_t at = main_deck.find("!  Version 2.601 : ");
    if (at == std::string::npos) return main_deck;
    const std::size_t date = at + std::string_view("!  Version 2.601 : ").size();
    return main_deck.replace(date, main_deck.find('\n', date) - date, "DATE");
}

std::vector<std::pair<std::string, std::string>> outputs(std::string_view base)
{
    std::vector<std::pair<std::string, std::string>> all;
    for (const char* suffix : {"card", "geom", "sets"}) {
        const std::string name = std::string(base) + suffix;
        all.emplace_back(name, masked(contents(name)));
    }
    for (const char* name : {"debug.morvex", "keywords.k", "accel_def.kinc"}) all.emplace_back(name, contents(name));
    return all;
}

bool contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

int exit_status(int wait_status)
{
    return WIFEXITED(wait_status) ? WEXITSTATUS(wait_status) : 128 + WTERMSIG(wait_status);
}

Running::Running(const std::string& command)
{
    std::signal(SIGPIPE, SIG_IGN);  // a program that ended early does not end the test
    const std::string line = "exec " + command;
    const std::string errors = (folder_.path() / "err").string();
    int in[2];
    int out[2];
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    process_ = fork();
    if (process_ < 0) throw std::runtime_error("no process");
    if (process_ == 0) {
        std::signal(SIGPIPE, SIG_DFL);
        dup2(in[0], 0);
        dup2(out[1], 1);
        dup2(open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), 2);
        execl("/bin/sh", "sh", "-c", line.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    close(in[0]);
    close(out[1]);
    input_ = in[1];
    read_ = out[0];
}

Running::~Running()
{
    close_input();
    close_output();
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

const std::string& Running::read_until(std::string_view text)
{
    char buffer[4096];
    while (read_ >= 0 && (text.empty() || !contains(output_, text))) {
        pollfd ready{read_, POLLIN, 0};
        if (poll(&ready, 1, patience) <= 0) {
            kill();
            break;
        }
        const ssize_t count = read(read_, buffer, sizeof buffer);
        if (count <= 0) break;
        output_.append(buffer, static_cast<std::size_t>(count));
    }
    return output_;
}

void Running::type(std::string_view text)
{
    if (write(input_, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        throw std::runtime_error("nobody reads what is typed");
}

void Running::close_input()
{
    if (input_ >= 0) close(input_);
    input_ = -1;
}

void Running::close_output()
{
    if (read_ >= 0) close(read_);
    read_ = -1;
}

void Running::signal(int number) const
{
    ::kill(process_, number);
}

void Running::kill()
{
    signal(SIGKILL);
}

int Running::status()
{
    close_input();
    read_until("");
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    return exit_status(status);
}
