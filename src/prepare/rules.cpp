#include "prepare/rules.h"

namespace prepare
{

std::span<const Rule> rules()
{
    static constexpr Rule table[] = {
        {"MD101", "a number left of its field's last column", "moves it there", "card_rewriter"},
        {"MD102", "a number that the line's end cuts off", "moves it to its field's last column", "card_rewriter"},
        {"MD103", "a card with commas", "writes it in columns", "card_rewriter"},
        {"MD104", "a parameter or an expression", "puts its value in", "card_rewriter"},
        {"MD105", "an exponent without E", "writes it with E", "card_rewriter"},
        {"MD107", "a number over two fields, another one behind it", "moves it into its field", "card_rewriter"},
        {"MD108", "a block in long or ten-column format", "writes it in standard columns", "card_rewriter"},
        {"MD109", "a tab that moves numbers", "puts blanks in its place", "card_rewriter"},
        {"MD110", "a solid on two lines", "writes it on one", "solids"},
        {"MD111", "text behind a keyword, or one that is cut", "takes the text, or the title, away", "keyword_form"},
        {"MD112", "a blank line in a list", "drops it", "block_writer"},
        {"MD113", "carriage returns, small letters, a missing *END", "cleans", "keyword_form"},
        {"MD121", "an include file", "puts its content in its place", "prepare"},
        {"MD124", "an include file with offsets or a transformation", "applies them to the content", "card_rewriter"},
        {"MD201", "a material or equation of state by its number", "writes its name", "keyword_form"},
        {"MD201", "a set by ranges, by what the mesh has, of sets", "writes the list of its members", "sets"},
        {"MD204", "*DEFINE_COORDINATE_... that ends a pass", "moves it behind everything else", "prepare"},
        {"MD205", "a further definition in a block", "gives it a keyword line of its own", "block_writer"},
        {"MD207", "a missing card", "writes one of zeros", "block_writer"},
        {"MD208", "options of *PART", "takes them and their cards out", "keyword_form"},
        {"MD209", "a title that must be there, or must not", "adds or drops it", "keyword_form"},
    };
    return table;
}

}  // namespace prepare
