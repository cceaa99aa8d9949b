// What the converter made of a block of the main deck, line by line.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "check/block.h"
#include "check/collector.h"
#include "check/misread.h"
#include "check/reading.h"
#include "deck/card_fields.h"
#include "deck/deck_reader.h"

namespace check
{

// What was read of a line for its block, and how the layout has it.
struct LineOfBlock {
    const deck::Line* line = nullptr;
    deck::CardPlace place;
    const std::vector<deck::FieldText>* fields = nullptr;  // in standard columns, or free
    bool free = false;
    std::vector<PatternNumber> patterns;  // for this block; none: nobody read it
};

class ConvertedBlock
{
public:
    ConvertedBlock(const Reading& reading, Collector& findings) : reading_(&reading), findings_(&findings) {}

    // `flawed`: the keyword line hides a title, which is told already. `two_lines`: solids on two lines each.
    void begin(const BlockAt& block, bool flawed, bool two_lines);

    // Finds what is wrong with a data line; the fields whose text does not say what it means.
    std::uint32_t take(const LineOfBlock& line, const deck::Parameters& parameters);

    // Hands over the block's findings; true when one of them tells of all that is misread in it and behind it.
    bool end();

private:
    // How a pattern lies on a card of the layout.
    struct Fit {
        bool in_step = true;
        bool whole = false;             // the line was read as a text
        std::uint32_t fields = 0;       // bits of those that were read
        std::size_t end = 0;            // behind the last column that was read
        std::vector<ReadField> beyond;  // members read behind the card's last column
    };
    // What the log says of the fields of a card.
    struct Logged {
        std::uint32_t unused = 0;
        std::vector<std::pair<std::size_t, std::string>> replaced;
        std::vector<std::size_t> refusing;  // fields for whose values the group was skipped
    };

    const Fit& fit_of(PatternNumber pattern, const deck::CardLayout& card);
    const Logged& logged_of(ShapeNumber shape_number, const deck::CardLayout& card);
    [[nodiscard]] const ShapeNumber* shape_of(std::size_t group) const;
    Fit read_of(const LineOfBlock& line);
    void take_unread(const LineOfBlock& line);
    void take_blank(const LineOfBlock& line);
    void take_beyond(const LineOfBlock& line, const Fit& fit);
    void take_behind(const LineOfBlock& line, std::size_t from);
    const Logged* logged_of(const LineOfBlock& line);
    std::size_t logged_end(const LineOfBlock& line);
    void take_values(const LineOfBlock& line, const Fit& fit);
    void take_fixed_values(const LineOfBlock& line, std::size_t field, double value);
    void take_title(const LineOfBlock& line);
    void tell(std::string_view code, const LineOfBlock& line, std::size_t column, std::size_t end, std::string message);
    void tell_value(std::string_view code, const LineOfBlock& line, std::size_t field, const std::string& said,
                    std::string read_as);
    void tell_misread(const LineOfBlock& line, const Misread& misread);
    void out_of_step(const LineOfBlock& line);
    void stand_alone(std::string_view code, std::string message);

    const Reading* reading_;
    Collector* findings_;
    const BlockAt* block_ = nullptr;
    bool flawed_ = false;
    bool two_lines_ = false;
    bool whole_told_ = false;  // one finding tells of the whole block
    bool errors_ = false;
    std::size_t last_further_ = 0;  // the further definition that was told last
    std::vector<Finding> pending_;
    std::vector<Misread> misread_;
    const std::vector<ShapeNumber>* shapes_ = nullptr;
    std::map<std::pair<PatternNumber, const deck::CardLayout*>, Fit> fits_;
    std::map<std::pair<ShapeNumber, const deck::CardLayout*>, Logged> logged_;
};

}  // namespace check
