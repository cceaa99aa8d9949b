// The quick way through bulk cards: a whole line's fields at once, and rows composed in the output's buffer.
//
// Card and print define what is read and written; nothing here may differ from them by a byte. Every bulk handler takes
// this way only for lines that stand whole in the window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "reader/card.h"
#include "reader/numbers.h"
#include "reader/output_stream.h"

// The fields of a card's line in order. A field beyond the line's end is empty, and so is one whose last column is
// blank.
class LineFields
{
public:
    explicit LineFields(std::string_view line) : line_(line) {}

    // The next field's characters; empty when the field is empty.
    std::string_view take(std::size_t width)
    {
        const std::size_t begin = at_;
        at_ += width;
        if (at_ > line_.size() || line_[at_ - 1] == ' ') return {};
        return line_.substr(begin, width);
    }
    double number(std::size_t width)
    {
        const std::string_view field = take(width);
        return field.empty() ? 0.0 : field_value(field);
    }
    float real(std::size_t width) { return static_cast<float>(number(width)); }
    int integer(std::size_t width) { return to_int(number(width)); }
    std::int64_t integer64(std::size_t width) { return to_int64(number(width)); }

private:
    std::string_view line_;
    std::size_t at_ = 0;
};

// A row in the making, at most OutputStream::largest_row characters.
class Row
{
public:
    explicit Row(OutputStream& stream) : stream_(stream), to_(stream.room(OutputStream::largest_row)) {}
    ~Row() { stream_.commit(to_); }
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;

    // "%<width>li" of a field eight or ten columns wide. What the field holds is most often what is printed.
    Row& integer64(std::string_view field, int width)
    {
        return copied(field, width) ? *this : integer64(field.empty() ? 0 : to_int64(field_value(field)), width);
    }
    Row& integer64(std::int64_t value, int width)
    {
        to_ = write_integer(to_, value, width);
        return *this;
    }

    // "%<width>i" of the same.
    Row& integer(std::string_view field, int width)
    {
        return copied(field, width) ? *this : integer(field.empty() ? 0 : to_int(field_value(field)), width);
    }
    Row& integer(int value, int width) { return integer64(static_cast<std::int64_t>(value), width); }

    // "%<width>.<digits>e"
    template <int digits>
    Row& real(float value, int width)
    {
        to_ = write_real<digits>(to_, value, width);
        return *this;
    }
    Row& text(std::string_view characters)
    {
        characters.copy(to_, characters.size());
        to_ += characters.size();
        return *this;
    }
    Row& blank()
    {
        *to_++ = ' ';
        return *this;
    }
    void end() { *to_++ = '\n'; }

private:
    // True when what the field holds is also what is printed, and has been copied.
    bool copied(std::string_view field, int width)
    {
        if (field.size() == 10 && field[0] == ' ' && field[1] == ' ') field.remove_prefix(2);
        if (field.size() != 8 || !is_printed_integer(field.data())) return false;
        for (int i = 8; i < width; ++i) *to_++ = ' ';
        std::uint64_t columns = eight_columns(field.data());
        if (width < 8) {
            const auto left_out = static_cast<std::size_t>(8 - width);
            if (field[left_out - 1] != ' ') return false;
            columns >>= 8 * left_out;
            field.remove_prefix(left_out);
        }
        put_eight_columns(to_, columns);
        to_ += field.size();
        return true;
    }

    OutputStream& stream_;
    char* to_;
};

// The last columns of a block's latest card, from `begin` on: the fields that are read only to be logged once the block
// has ended.
class LastColumns
{
public:
    explicit LastColumns(std::size_t begin) : begin_(begin) {}

    void keep(std::string_view line)
    {
        length_ = line.size() > begin_ ? line.substr(begin_).copy(columns_, sizeof columns_) : 0;
    }
    [[nodiscard]] LineFields fields() const { return LineFields({columns_, length_}); }

private:
    std::size_t begin_;
    std::size_t length_ = 0;
    char columns_[40]{};
};

// Converts the cards of a block and adds them to the count: each by its line where that can be taken whole, else field
// by field.
template <auto convert_line, auto convert_card>
void convert_cards(int& count)
{
    for (Card card; card.next(); ++count) {
        std::string_view line;
        if (card.take_line(line))
            convert_line(line);
        else
            convert_card(card);
    }
}
