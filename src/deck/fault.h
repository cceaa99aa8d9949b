// What can be wrong with a deck, and where.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace deck
{

// A place in a file for people; line and column count from 1, and 0 means the file or the line as a whole.
struct Place {
    std::string file;  // as findings show it: see SourceFile::name
    std::size_t line = 0;
    std::size_t column = 0;
    std::size_t end_column = 0;  // behind the last character; 0 when only a point is meant
};

enum class Severity { note, warning, error };

// Something that reading a deck has found. `code` is one of the stable codes ("MD122").
struct Problem {
    Place place;
    Severity severity = Severity::error;
    std::string code;
    std::string message;
};

Problem problem_at(Place place, std::string code, std::string message, Severity severity = Severity::error);

// Where the room tells what it finds. It goes on reading behind the call; who wants to stop there throws a Fault.
using Report = std::function<void(const Problem&)>;

// An error of the surroundings (a file that cannot be read or written), or a problem that its reader cannot go on with.
// `main` makes a line and a status of it. The only exception that leaves this room.
class Fault : public std::runtime_error
{
public:
    explicit Fault(const Problem& problem);
    explicit Fault(const std::string& message);  // without a place or a code

    [[nodiscard]] const Problem& problem() const { return *problem_; }

private:
    std::shared_ptr<const Problem> problem_;  // shared: a copy of an exception must not fail
};

// The text for a terminal: "?" for control characters, since what a deck holds must not move the cursor, nor end the
// line.
std::string in_one_line(std::string text);

// "file:line:column: message [code]" in one line, without the parts that there are not.
std::string to_string(const Problem& problem);

}  // namespace deck
