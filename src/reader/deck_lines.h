// Lines that several sections write.
#pragma once

#include <initializer_list>
#include <span>
#include <string_view>

#include "reader/output_stream.h"

// The rule of banners: "!" and 48 dashes.
inline constexpr std::string_view rule = "!------------------------------------------------\n";

// The three lines that open a section; title is the text behind "! ".
void banner(OutputStream& stream, std::string_view title);

enum class Form { scientific, one_decimal, two_decimals, whole };

// A value under its label: reals are written as "%10.3e", or with few decimals as "%10.1f" or "%10.2f"; integers as
// "%10i".
struct Labelled {
    constexpr Labelled(const char* name, float value = 0.0f, Form as = Form::scientific)
        : label(name), form(as), real(value)
    {
    }
    constexpr Labelled(const char* name, int value) : label(name), form(Form::whole), integer(value) {}

    const char* label;
    Form form;
    float real = 0.0f;
    int integer = 0;
};

// A group in the main deck: a line of labels, "!%9s" and then " %10s" each, and a line of the values below them.
void write_group(std::span<const Labelled> group);
void write_group(std::initializer_list<Labelled> group);

// The same, with a blank behind the last value too.
void write_group_blank_ended(std::span<const Labelled> group);
