// What handlers tell: their lines in the debug log, and warnings on the terminal.
#pragma once

#include <initializer_list>

// A field that was read and is not passed on: its name in the keyword format, lower case, and its value.
struct Field {
    constexpr Field(const char* field, int number) : name(field), integer(number) {}
    constexpr Field(const char* field, float number) : name(field), is_real(true), real(number) {}

    const char* name;
    bool is_real = false;
    int integer = 0;
    float real = 0.0f;
};

// "recognized keyword" and "skipped", for the keyword line in cbuffer.
void log_recognized();
void log_skipped();

// "ignored title line"
void log_ignored_title();

// "unused variables:" alone, when the lines behind it follow by log_fields or need a note of their own.
void log_unused_heading();

// A line for each field, "%10s:%10i" or "%10s:%10.3e".
void log_fields(std::initializer_list<Field> fields);

// The heading and a line for each field; "no unused variables" when there is none.
void log_unused(std::initializer_list<Field> fields);

// Tells the terminal, or the run's `warnings`, of a value that the solver does not take, or of what is missing, as
// printf does.
[[gnu::format(printf, 1, 2)]] void warn(const char* format, ...);
