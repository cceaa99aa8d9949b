// A deck as the readers see it, in the plainest way: one string, one position, no window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

class PlainText
{
public:
    explicit PlainText(std::string_view text) : text_(text) {}

    // The text ends its last line, and goes on with "*END" lines for ever.
    [[nodiscard]] char at(std::uint64_t place) const
    {
        if (place < text_.size()) return text_[place];
        place -= text_.size();
        if (!text_.empty() && text_.back() != '\n') {
            if (place == 0) return '\n';
            --place;
        }
        return "*END\n"[place % 5];
    }

    char next() { return at(position++); }
    void skip_line()
    {
        while (next() != '\n') {}
    }

    // The line from the position on, without its newline, and not more than `most` characters of it.
    [[nodiscard]] std::string_view::size_type length(std::size_t most) const
    {
        std::size_t n = 0;
        while (n < most && at(position + n) != '\n') ++n;
        return n;
    }

    void to_keyword()
    {
        while (at(position) != '*') skip_line();
    }

    // Where the lines that begin with "*" begin.
    static std::vector<std::uint64_t> keyword_lines(std::string_view text)
    {
        std::vector<std::uint64_t> found;
        for (std::size_t i = 0; i < text.size(); ++i)
            if (text[i] == '*' && (i == 0 || text[i - 1] == '\n')) found.push_back(i);
        return found;
    }

    std::uint64_t position = 0;

private:
    std::string_view text_;
};
