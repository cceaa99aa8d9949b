// Blocks that the converter reads, written so that all of them is read.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "deck/deck_reader.h"
#include "prepare/card_rewriter.h"
#include "prepare/keyword_form.h"
#include "prepare/output.h"
#include "prepare/solids.h"

namespace prepare
{

// Tells of what could not be carried, and where.
using TroubleReport = std::function<void(std::string_view code, deck::Place place, const std::string& message)>;

class BlockWriter
{
public:
    BlockWriter(deck::DeckReader& reader, Output& output, TroubleReport report, bool origins);

    // The keyword line, with the change that it is.
    void keyword_line(const deck::Block& head, const KeywordForm& form);

    // The present block's keyword line and its cards.
    void write(const KeywordForm& form, const CardStyle& style);

private:
    struct Held {
        std::string text;
        std::size_t line = 0;
    };

    void data(const deck::Line& line);
    void blank(const deck::Line& line);
    [[nodiscard]] bool drops(const deck::CardPlace& place) const;
    [[nodiscard]] bool waits(const deck::CardPlace& place) const;
    void settle_waiting(bool at_the_end);
    void card(std::string_view text, std::size_t line);
    void heading(const deck::CardPlace& place, std::string_view text, std::size_t line);
    void further_definition(std::size_t line);
    void option_card(const deck::CardPlace& place, std::string_view text, std::size_t line);
    void write_card(const deck::CardPlace& place, std::string_view text, std::size_t line);
    void solid_card(const deck::CardPlace& place, std::string_view before, std::string_view written, std::size_t line);
    void missing_cards();
    void origin(std::size_t line);
    void changed(std::string_view code, std::size_t line, std::string_view before, std::string_view after,
                 std::string_view message);
    void trouble(const Trouble& trouble, std::size_t line);

    deck::DeckReader* reader_;
    Output* output_;
    TroubleReport report_;
    bool origins_;
    CardRewriter rewriter_;

    // Of the present block.
    const KeywordForm* form_ = nullptr;
    CardStyle style_;
    std::string file_;
    deck::FileNumber file_number_ = 0;
    std::size_t first_line_ = 0;
    deck::CardWalk walk_{deck::LayoutMatch{}};
    bool splits_ = false;        // each definition gets a keyword line of its own
    bool needs_values_ = false;  // how many cards a group has depends on its numbers
    bool begun_ = false;         // a card has been there
    bool two_lines_ = false;
    std::string id_card_;
    std::vector<Held> waiting_;  // blank lines behind a group, and comments among them
    SolidJoiner joiner_;
    Rewritten rewritten_;
};

}  // namespace prepare
