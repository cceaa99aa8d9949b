// The prepared deck as it is written, line by line, and what was changed on the way.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>

namespace prepare
{

// A line that is written otherwise, taken out or put in. The views last as long as the call that passes it.
struct Change {
    std::string_view code;
    std::string_view file;           // as findings show it
    std::size_t line = 0;            // in that file
    std::size_t line_in_output = 0;  // of the first line that it is about; of the next line, when one is taken out
    std::string_view before;         // the line, without its end; empty when one is put in
    std::string_view after;          // lines have "\n" between them; empty when one is taken out
    std::string_view message;
};

using ChangeReport = std::function<void(const Change&)>;

class Output
{
public:
    Output(std::ostream& stream, ChangeReport report);

    void line(std::string_view text);
    void flush();

    // Tells of a change that is about to be written: `line_in_output` is set here.
    void change(Change change);

    [[nodiscard]] std::size_t lines() const { return lines_; }
    [[nodiscard]] const std::map<std::string, std::size_t, std::less<>>& changes() const { return changes_; }

private:
    std::ostream* stream_;
    ChangeReport report_;
    std::string buffer_;
    std::size_t lines_ = 0;
    std::map<std::string, std::size_t, std::less<>> changes_;  // by code
};

}  // namespace prepare
