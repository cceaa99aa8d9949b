#include "report/curves.h"

#include <string_view>

#include "deck/card_fields.h"
#include "deck/field_number.h"
#include "deck/layout.h"
#include "report/by_hand.h"
#include "report/excerpts.h"

namespace report
{
namespace
{
// A curve while its lines are read.
class CurveReader
{
public:
    explicit CurveReader(const std::string& keyword) : walk_(deck::find_layout(keyword)) {}

    // Takes a line of the block but its keyword line. `room` is how many points may still be kept.
    void take(std::string_view line, std::size_t& room)
    {
        if (line.starts_with('$')) return;
        const deck::CardPlace place = walk_.next();
        if (place.card == nullptr) return;
        if (place.card == &deck::title_card) {
            curve_.title = line;
            return;
        }
        const std::vector<double> values = numbers(line, *place.card);
        if (!has_head_)
            take_head(values);
        else if (values.size() >= 2)
            take_point(values[0], values[1], room);
    }

    Curve curve(std::size_t block) &&
    {
        curve_.block = block;
        return std::move(curve_);
    }

private:
    std::vector<double> numbers(std::string_view line, const deck::CardLayout& card)
    {
        std::vector<double> values;
        for (const deck::FieldText& field : deck::split_card(line, card, deck::Format::standard, false)) {
            values.push_back(deck::strict_number(field.text, field.width));
            walk_.set_value(values.size() - 1, values.back());
        }
        return values;
    }

    // Number, way of the start, factors and shifts of abscissa and ordinate.
    void take_head(const std::vector<double>& values)
    {
        has_head_ = true;
        if (values.size() < 6) return;
        curve_.id = values[0];
        for (std::size_t i = 0; i < 2; ++i) {
            scale_[i] = values[2 + i] == 0 ? 1 : values[2 + i];
            offset_[i] = values[4 + i];
        }
    }

    void take_point(double abscissa, double ordinate, std::size_t& room)
    {
        ++curve_.points;
        if (room == 0) return;
        --room;
        curve_.abscissas.push_back((abscissa + offset_[0]) * scale_[0]);
        curve_.ordinates.push_back((ordinate + offset_[1]) * scale_[1]);
    }

    deck::CardWalk walk_;
    Curve curve_;
    bool has_head_ = false;
    double scale_[2] = {1, 1};
    double offset_[2] = {0, 0};
};

bool is_curve(const Block& block)
{
    return block.prepared_line > 0 && (block.keyword == "*DEFINE_CURVE" || block.keyword == "*DEFINE_CURVE_TITLE");
}
}  // namespace

std::vector<Curve> read_curves(const Ledger& ledger, const std::filesystem::path& folder, std::size_t most_points)
{
    std::vector<CurveReader> readers;
    std::vector<std::size_t> blocks;
    std::vector<WantedLines> wanted;
    for (std::size_t i = 0; i < ledger.blocks.size(); ++i) {
        const Block& block = ledger.blocks[i];
        if (!is_curve(block)) continue;
        wanted.push_back({block.prepared_line + 1, block.prepared_last_line, readers.size()});
        readers.emplace_back(block.keyword);
        blocks.push_back(i);
    }
    if (readers.empty()) return {};
    std::size_t room = most_points;
    read_lines(
        folder / converted_deck(ledger), wanted,
        [&](const WantedLines& range, std::size_t, const std::string& text) { readers[range.owner].take(text, room); });
    std::vector<Curve> curves;
    for (std::size_t i = 0; i < readers.size(); ++i) curves.push_back(std::move(readers[i]).curve(blocks[i]));
    return curves;
}
}  // namespace report
