// Parameters: their definitions, and what a field that refers to them means.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "deck/card_format.h"
#include "deck/fault.h"
#include "deck/line_file.h"

namespace deck
{

// A parameter's value, or that of an expression.
struct Value {
    enum class Type { integer, real, text };
    Type type = Type::real;
    double number = 0;  // whole for an integer; integers are exact up to 2^53
    std::string text;   // of a text parameter
};

// A value as it can stand in a field of any width: integers in full, reals in the shortest form that is the same
// double, text as it is.
std::string to_string(const Value& value);

// True when a field's text refers to a parameter or is an expression: it has "&" or "<".
bool refers_to_parameter(std::string_view field);

// True for *PARAMETER and its forms that define parameters.
bool defines_parameters(std::string_view keyword);

// What a text means, or why it has no meaning.
struct Evaluation {
    std::optional<Value> value;
    std::string why_not;     // empty when there is a value
    std::size_t column = 0;  // of the trouble in the text, from 0
};

// All parameters that have been defined so far. Names are without regard to case. One that is local to a file is known
// in it and in the files that it includes, and hides a parameter of the same name from outside.
class Parameters
{
public:
    struct Definition {
        Value value;
        bool mutable_value = false;
        Place place;
    };

    // Files begin and end around the definitions in them, as the tree is read.
    void begin_file();
    void end_file();

    // What a field means here: "&name", "-&name", "<expression>", "&a*0.5+&b". Text around a single text parameter
    // ("part_&name") is put together. Blanks at the ends do not count.
    [[nodiscard]] Evaluation evaluate(std::string_view field) const;

    // Null when there is no such parameter here.
    [[nodiscard]] const Definition* find(std::string_view name) const;

private:
    friend class ParameterBlock;
    [[nodiscard]] Evaluation computed(std::string_view expression) const;
    [[nodiscard]] std::optional<std::string> put_together(std::string_view text) const;

    enum class Duplicates { keep_first, take_last, error };  // of parameters that are not mutable
    using Scope = std::map<std::string, Definition, std::less<>>;

    std::vector<Scope> scopes_{1};  // the first holds what is known everywhere; then one for each file that is open
    Duplicates duplicates_ = Duplicates::keep_first;
};

// Takes the lines of one block that defines parameters (or of *PARAMETER_DUPLICATION), in order.
class ParameterBlock
{
public:
    // `report` gets MD123 for what cannot be defined, and MD402 as a warning (or an error, when *PARAMETER_DUPLICATION
    // asks for it) for a second definition.
    ParameterBlock(Parameters& parameters, std::string_view keyword, Format format, std::string file, Report report);

    // A data line, no comment. `text` is without its line end.
    void take(std::string_view text, std::size_t line_number);

    // At the block's end: an expression over several lines ends there.
    void finish();

private:
    struct Pending {
        std::string prefixed_name;
        std::string expression;
        std::size_t line = 0;
        std::size_t column = 0;
    };
    // A part of a line, and its column from 0.
    struct Part {
        std::string_view text;
        std::size_t column = 0;
    };
    void take_pairs(std::string_view text, std::size_t line_number);
    void take_expression(std::string_view text, std::size_t line_number);
    void take_duplication(std::string_view text);
    void problem(const std::string& message, std::size_t line_number, std::size_t column);
    std::optional<Value> value_of(char type, const std::string& name, const Part& part, std::size_t line_number);
    void define(const Part& prefixed_name, const Part& value, std::size_t line_number);
    void store(const std::string& name, Value value, const Place& place);

    Parameters* parameters_;
    Format format_;
    std::string file_;
    Report report_;
    bool expressions_ = false;
    bool local_ = false;
    bool mutable_ = false;
    bool duplication_ = false;
    bool typed_ = false;
    std::optional<Pending> pending_;
};

}  // namespace deck
