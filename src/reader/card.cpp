#include "reader/card.h"

#include <cstddef>
#include <cstring>
#include <string_view>

#include "reader/keyword.h"
#include "reader/numbers.h"
#include "reader/observer.h"
#include "reader/run.h"

namespace
{
// The next field's characters, consumed, as far as the line holds them.
std::string_view take_field(int width, int* open)
{
    if (*open != 1) return {};
    const std::string_view field = infile.ahead(static_cast<std::size_t>(width));
    infile.advance(field.size());
    if (field.size() < static_cast<std::size_t>(width)) *open = 0;  // the newline stays unread
    return field;
}

// sic: characters that do not reach the field's last column are lost
bool is_empty(std::string_view field, int width)
{
    return field.size() < static_cast<std::size_t>(width) || field.back() == ' ';
}

void tell(std::string_view field, int width, bool number, double value)
{
    if (observer == nullptr) return;
    observer->field({.begin = infile.position() - field.size(),
                     .width = width,
                     .characters = field,
                     .empty = is_empty(field, width),
                     .number = number,
                     .value = value});
}
}  // namespace

double fblanks(int width, int* open)
{
    const std::string_view field = take_field(width, open);
    const double value = is_empty(field, width) ? 0.0 : field_value(field);
    tell(field, width, true, value);
    return value;
}

void readstring(char* destination, int width, int* open)
{
    const std::string_view field = take_field(width, open);
    tell(field, width, false, 0.0);
    if (is_empty(field, width)) {
        std::memcpy(destination, " 0", 3);
        return;
    }
    field.copy(destination, field.size());
    destination[field.size()] = '\0';
}

Title readtitle()
{
    skip_comments();
    const Watched watched;
    Title title;
    std::size_t count = 0;
    constexpr std::size_t most = sizeof title.text - 1;
    while (count < most) {
        const char c = infile.next();
        title.text[count++] = c;
        if (c == '\n') {
            // sic: a line of 79 characters, 80 with its newline, keeps the newline
            title.text[count <= 79 ? count - 1 : count] = '\0';
            return title;
        }
    }
    title.text[most] = '\0';
    infile.skip_line();
    return title;
}

void skip_title()
{
    readtitle();
}

void Card::begin()
{
    skip_comments();
    begun_ = true;
    open_ = 1;
}

void Card::end_line()
{
    infile.skip_line();
}

float Card::real(int width)
{
    return static_cast<float>(number(width));
}

int Card::integer(int width)
{
    return to_int(number(width));
}

std::int64_t Card::integer64(int width)
{
    return to_int64(number(width));
}

Word Card::word()
{
    Word word{};
    readstring(word.text, 10, &open_);
    return word;
}
