// A user's side of a run: control files, decks, the files that are there afterwards, and a program that waits for an
// answer.
#pragma once

#include <sys/types.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/convert.h"
#include "support/process.h"

// A control file for the deck; flags that are not named are missing in it.
std::string settings(std::string_view deck, std::initializer_list<std::pair<std::string_view, int>> flags = {});

// The same with every flag on and the comprehensive deck.
std::string every_flag(std::string_view deck, int stndflag = 0, int contflag = 1);

// A small model with one of each that matters here: part, section, material, two nodes, a solid, a shell, two
// particles, one set of each kind, coordinate nodes, a curve and a keyword that nobody knows.
extern const std::string_view model;

// The names of what is in the present folder, sorted and separated by blanks.
std::string files();

// The main deck with its date masked.
std::string masked(std::string main_deck);

// What the run left in the present folder, by name; the date in main decks is masked.
std::vector<std::pair<std::string, std::string>> outputs(std::string_view base);

bool contains(std::string_view text, std::string_view part);

// The exit status as a shell tells it: the signal's number above 128.
int exit_status(int wait_status);

// The program while it runs, with its standard input and output in the test's hands. What it writes on standard error
// goes to the file `err` beside the test's folder.
class Running
{
public:
    explicit Running(const std::string& command = program());
    ~Running();
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    // Reads standard output until the text appears in it, or until it ends; all that was read so far. A program that
    // says nothing for two minutes is killed.
    const std::string& read_until(std::string_view text);

    void type(std::string_view text);  // on standard input
    void close_input();
    void close_output();
    void signal(int number) const;
    void kill();

    // Reads the rest of the output and waits for the end.
    int status();
    [[nodiscard]] const std::string& output() const { return output_; }
    [[nodiscard]] std::string errors() const { return contents(folder_.path() / "err"); }

private:
    TemporaryName folder_;
    pid_t process_ = -1;
    int input_ = -1;
    int read_ = -1;
    std::string output_;
};
