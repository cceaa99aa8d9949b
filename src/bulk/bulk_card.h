// Bulk cards: fields cut from a whole card's columns, and rows composed in the output's buffer.
//
// Card's field readers and print define what is read and written; nothing here may differ from them by a byte. Read a
// card's numbers first and write its row then: the two get in each other's way.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "bulk/eight_columns.h"
#include "reader/number_writers.h"
#include "reader/numbers.h"
#include "reader/observer.h"
#include "reader/output_stream.h"

// The whole number of type int or std::int64_t that a field stands for.
template <class Integer>
Integer integer_of(std::string_view field)
{
    static_assert(std::is_same_v<Integer, int> || std::is_same_v<Integer, std::int64_t>);
    const double value = field.empty() ? 0.0 : field_value(field);
    if constexpr (std::is_same_v<Integer, int>)
        return to_int(value);
    else
        return to_int64(value);
}

// The fields of a card in order. A field beyond the end of the card's columns is empty, and so is one whose last column
// is blank.
class Fields
{
public:
    Fields(std::string_view columns, bool watched = observer != nullptr) : columns_(columns), watched_(watched) {}

    // Passes over columns.
    void skip(std::size_t columns) { at_ += columns; }

    // The next field's characters; empty when the field is empty.
    std::string_view take(std::size_t width)
    {
        const std::size_t begin = at_;
        at_ += width;
        if (watched_) tell(begin, width);
        if (is_empty()) return {};
        return columns_.substr(begin, width);
    }
    float real(std::size_t width)
    {
        const std::string_view field = take(width);
        return field.empty() ? 0.0f : static_cast<float>(field_value(field));
    }

private:
    [[nodiscard]] bool is_empty() const { return at_ > columns_.size() || columns_[at_ - 1] == ' '; }
    void tell(std::size_t begin, std::size_t width) const;  // the observer

    std::string_view columns_;
    std::size_t at_ = 0;  // behind the latest field
    bool watched_;
};

// A row in the making, at most OutputStream::largest_row characters.
class Row
{
public:
    explicit Row(OutputStream& stream) : stream_(stream), to_(stream.room(OutputStream::largest_row)) {}
    ~Row() { stream_.commit(to_); }
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;

    // "%<width>i", or "%<width>li", of a field eight or ten columns wide. What the field holds is most often what is
    // printed.
    template <class Integer>
    Row& integer(std::string_view field, int width)
    {
        return copied(field, width) ? *this : number(integer_of<Integer>(field), width);
    }
    Row& number(std::int64_t value, int width)
    {
        to_ = write_integer(to_, value, width);
        return *this;
    }

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
        const int left_out = std::max(8 - width, 0);
        if (left_out > 0 && field[static_cast<std::size_t>(left_out - 1)] != ' ') return false;
        for (int i = 8; i < width; ++i) *to_++ = ' ';
        std::memcpy(to_, field.data() + left_out, static_cast<std::size_t>(8 - left_out));
        to_ += 8 - left_out;
        return true;
    }

    OutputStream& stream_;
    char* to_;
};

// The last four fields of a block's latest card, from column `begin` on: they are read only to be logged once the block
// has ended. Before the first card they are empty.
class LastFields
{
public:
    LastFields(std::size_t begin, std::size_t width) : begin_(begin), width_(width) {}

    void keep(std::string_view columns)
    {
        length_ = columns.size() > begin_ ? columns.substr(begin_).copy(columns_, sizeof columns_) : 0;
        if (observer != nullptr) tell(columns);
    }
    [[nodiscard]] Fields fields() const { return {{columns_, length_}, false}; }

private:
    void tell(std::string_view columns) const;  // the observer

    std::size_t begin_;
    std::size_t width_;
    std::size_t length_ = 0;
    char columns_[40]{};
};
