#include "deck/fault.h"

#include <utility>

namespace deck
{

Problem problem_at(Place place, std::string code, std::string message, Severity severity)
{
    Problem problem;
    problem.place = std::move(place);
    problem.severity = severity;
    problem.code = std::move(code);
    problem.message = std::move(message);
    return problem;
}

std::string in_one_line(std::string text)
{
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ' || c == '\177') c = '?';
    return text;
}

std::string to_string(const Problem& problem)
{
    std::string text;
    if (!problem.place.file.empty()) {
        text += problem.place.file + ":";
        if (problem.place.line != 0) text += std::to_string(problem.place.line) + ":";
        if (problem.place.column != 0) text += std::to_string(problem.place.column) + ":";
        text += " ";
    }
    text += problem.message;
    if (!problem.code.empty()) text += " [" + problem.code + "]";
    return in_one_line(std::move(text));
}

Fault::Fault(const Problem& problem)
    : std::runtime_error(to_string(problem)), problem_(std::make_shared<const Problem>(problem))
{
}

Fault::Fault(const std::string& message) : Fault(problem_at({}, {}, message))
{
}

}  // namespace deck
