// What definitions have in common. Materials and equations of state share all of it: a title, cards, a header, a
// definition line, and groups of parameters; a member of the family reads its cards in order, writes its groups in
// order and logs what it left out. The other definitions read their cards in the same way.
#pragma once

#include <initializer_list>
#include <span>

#include "reader/card.h"

// ---- reading -------------------------------------------------------------------------------------------------------

// The title card when the keyword has one, and the default title otherwise.
Title title_if(bool titled, const char* otherwise);

inline void read_field(Card& card, Word& field)
{
    field = card.word();
}
inline void read_field(Card& card, float& field)
{
    field = card.real();
}
inline void read_field(Card& card, int& field)
{
    field = card.integer();
}

// Card 1, the fields in the order of the list.
template <class... Fields>
void first_card(Card& card, Fields&... fields)
{
    card.first();
    (read_field(card, fields), ...);
}

// A further card.
template <class... Fields>
void another_card(Card& card, Fields&... fields)
{
    card.another();
    (read_field(card, fields), ...);
}

// ---- writing -------------------------------------------------------------------------------------------------------

// A real as print takes it.
inline double wide(float real)
{
    return static_cast<double>(real);
}

// The header and definition line of a material, and those of an equation of state.
void write_material(const Word& mid, int mtyp, float density, const Title& title);
void write_eos(const Word& eosid, int eostyp, const Title& title);

enum class Form { scientific, one_decimal, two_decimals, whole };

// A value of a group under its label: reals are written as "%10.3e", or with few decimals as "%10.1f" or "%10.2f";
// integers, which are the zeros of slots that have no source, as "%10i".
struct Parameter {
    constexpr Parameter(const char* name, float value = 0.0f, Form as = Form::scientific)
        : label(name), form(as), real(value)
    {
    }
    constexpr Parameter(const char* name, int value) : label(name), form(Form::whole), integer(value) {}

    const char* label;
    Form form;
    float real = 0.0f;
    int integer = 0;
};

// A slot that the solver leaves unused.
inline constexpr Parameter blank{"blank", 0};

// A line of labels and a line of values.
void write_group(std::initializer_list<Parameter> group);

// The same, with a blank behind the last value too.
void write_group_blank_ended(std::span<const Parameter> group);

// Each parameter as a group of its own.
void write_singly(std::initializer_list<Parameter> parameters);

// That many blank slots, each a group of its own.
void write_blank_slots(int count);
