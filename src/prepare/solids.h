// Solids that stand on two lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "deck/card_format.h"
#include "deck/layout.h"

namespace prepare
{

// True when the first card of a block of solids has a number and a part, and no nodes: then they are on the next line.
bool is_on_two_lines(std::string_view first_card, deck::Format format);

// Puts cards of two lines, each in standard columns already, on one.
class SolidJoiner
{
public:
    // Keeps the first line.
    void take_first(std::string_view text, std::size_t line);

    // The whole card; nothing when there is no first line.
    std::optional<std::string> with_nodes(std::string_view nodes);

    [[nodiscard]] bool is_waiting() const { return waiting_; }
    [[nodiscard]] const std::string& first() const { return first_; }
    [[nodiscard]] std::size_t line() const { return line_; }

private:
    std::string first_;
    std::size_t line_ = 0;
    bool waiting_ = false;
};

}  // namespace prepare
