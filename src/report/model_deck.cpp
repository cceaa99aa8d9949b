// A deck told as it is meant: what the converter should carry, taken from the cards by the table of layouts.
//
// Told are the keywords that the converter converts; what it skips by design is in neither count, and the ledger says
// so. Of those, everything counts that a reader of the keyword format finds: fields by their meaning and not by their
// right edges, all definitions of a block, included files with their offsets.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "deck/deck_reader.h"
#include "deck/keyword_line.h"
#include "deck/layout.h"
#include "prepare/solids.h"
#include "report/card_meaning.h"
#include "report/definitions.h"
#include "report/model.h"

namespace report
{

namespace
{
// ---- plain cards ---------------------------------------------------------------------------------------------------

// The next columns of a card in standard columns; fewer, or none, where the line ends.
std::string_view take_columns(std::string_view& rest, std::size_t width)
{
    const std::string_view field = rest.substr(0, width);
    rest.remove_prefix(field.size());
    return field;
}

std::string_view without_blanks(std::string_view field)
{
    while (!field.empty() && field.front() == ' ') field.remove_prefix(1);
    while (!field.empty() && field.back() == ' ') field.remove_suffix(1);
    return field;
}

// A plain number between blanks, or blanks alone, which are 0. False for everything else, a comma, a tab or a parameter
// for instance.
template <class Number>
bool take_number(std::string_view& rest, std::size_t width, Number& number)
{
    const std::string_view text = without_blanks(take_columns(rest, width));
    number = 0;
    if (text.empty()) return true;
    const char last = text.back();
    if (last != '.' && (last < '0' || last > '9')) return false;  // "inf" and "nan" are no plain numbers
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size();
}

template <class Number, std::size_t size>
bool take_numbers(std::string_view& rest, std::size_t width, std::array<Number, size>& numbers, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        if (!take_number(rest, width, numbers[i])) return false;
    return true;
}

bool is_blank(std::string_view line)
{
    return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

constexpr std::size_t narrow = 8;   // columns of an integer in the mesh
constexpr std::size_t wide = 16;    // of a real there
constexpr std::size_t member = 10;  // of a set's member

// ---- the deck ------------------------------------------------------------------------------------------------------

class DeckModel
{
public:
    DeckModel(const std::filesystem::path& deck, ModelVisitor& visitor, const Pieces& pieces)
        : reader_(deck, [](const deck::Problem&) {}),
          visitor_(&visitor),
          pieces_(&pieces),
          meaning_(reader_.parameters())
    {
    }

    void read()
    {
        while (reader_.next_block())
            if (!reader_.block().ends_file && !reader_.block().keyword.name.empty()) block();
        if (pieces_->parts) definitions_.tell(*visitor_);
    }

private:
    struct Handler {
        std::string_view keyword;  // of the layout
        bool Pieces::*piece;
        void (DeckModel::*read)();
        SetKind set = SetKind::other;
    };
    static const std::array<Handler, 13> handlers;

    void block()
    {
        const std::string& name = reader_.block().keyword.name;
        match_ = deck::find_layout(name);
        if (match_.layout == nullptr || match_.layout->reads == deck::Reads::nothing) return;
        const std::string_view keyword = match_.layout->keyword;
        const auto* const handler = std::find_if(handlers.begin(), handlers.end(), [&](const Handler& candidate) {
            return keyword.starts_with(candidate.keyword);
        });
        if (handler == handlers.end() || !(pieces_->*handler->piece)) return;
        if (keyword == "*NODE" && !match_.exact) return;  // *NODE_MERGE_SET and the like define no nodes
        change_ = reader_.file(reader_.block().file).change;
        meaning_.begin_block(reader_.block().format, deck::is_bulk(name), change_);
        set_kind_ = handler->set;
        (this->*handler->read)();
    }

    // The next line with something on it.
    bool next(deck::Line& line)
    {
        while (reader_.next_line(line))
            if (!deck::is_comment(line.text) && !is_blank(line.text)) return true;
        return false;
    }

    [[nodiscard]] const deck::CardLayout& card(std::size_t index) const { return match_.layout->cards[index]; }

    // ---- mesh

    void nodes()
    {
        for (deck::Line line; next(line);) {
            std::string_view rest = line.text;
            std::int64_t id = 0;
            std::array<double, 3> at{};
            if (!meaning_.is_plain() || !take_number(rest, narrow, id) || !take_numbers(rest, wide, at, 3)) {
                meaning_.read(line.text, card(0));
                id = meaning_.integer(0);
                at = {meaning_.real(1), meaning_.real(2), meaning_.real(3)};
            }
            visitor_->node(id, at);
        }
    }

    // A card of a number, a part and nodes.
    void element_card(std::string_view text, Element& element, std::size_t nodes)
    {
        std::string_view rest = text;
        if (meaning_.is_plain() && take_number(rest, narrow, element.id) && take_number(rest, narrow, element.part) &&
            take_numbers(rest, narrow, element.nodes, nodes))
            return;
        meaning_.read(text, card(0));
        element.id = meaning_.integer(0);
        element.part = meaning_.integer(1);
        for (std::size_t i = 0; i < nodes; ++i) element.nodes[i] = meaning_.integer(i + 2);
    }

    void solids()
    {
        Element element;
        bool first = true;
        for (deck::Line line; next(line);) {
            if (std::exchange(first, false) && prepare::is_on_two_lines(line.text, reader_.block().format))
                return solids_on_two_lines(line);
            element_card(line.text, element, 8);
            visitor_->element(element);
        }
    }

    void solids_on_two_lines(deck::Line line)
    {
        const deck::Layout& layout = deck::solid_on_two_lines();
        Element element;
        do {
            meaning_.read(line.text, layout.cards[0]);
            element.id = meaning_.integer(0);
            element.part = meaning_.integer(1);
            const bool has_nodes = next(line);
            meaning_.read(has_nodes ? line.text : std::string_view{}, layout.cards[1]);
            for (std::size_t i = 0; i < element.nodes.size(); ++i) element.nodes[i] = meaning_.integer(i);
            visitor_->element(element);
        } while (next(line));
    }

    void shells()
    {
        Element element;
        element.kind = ElementKind::shell;
        element.corners = 4;
        for (deck::Line line; next(line);) {
            element_card(line.text, element, 4);
            visitor_->element(element);
        }
    }

    // With a card of thicknesses, which may be blank.
    void shells_with_thickness()
    {
        Element element;
        element.kind = ElementKind::shell;
        element.corners = 4;
        for (deck::Line line; next(line);) {
            element_card(line.text, element, 4);
            const bool has_thickness = next_card(line);
            meaning_.read(has_thickness ? line.text : std::string_view{}, card(1));
            for (std::size_t i = 0; i < element.thickness.size(); ++i) element.thickness[i] = meaning_.real(i);
            visitor_->element(element);
        }
    }

    // The next line, a blank one, too.
    bool next_card(deck::Line& line)
    {
        while (reader_.next_line(line))
            if (!deck::is_comment(line.text)) return true;
        return false;
    }

    void particles()
    {
        Element element;
        element.kind = ElementKind::particle;
        element.corners = 1;
        for (deck::Line line; next(line);) {
            std::string_view rest = line.text;
            if (!meaning_.is_plain() || !take_number(rest, narrow, element.id) ||
                !take_number(rest, narrow, element.part) || !take_number(rest, wide, element.mass)) {
                meaning_.read(line.text, card(0));
                element.id = meaning_.integer(0);
                element.part = meaning_.integer(1);
                element.mass = meaning_.real(2);
            }
            element.nodes[0] = element.id;
            visitor_->element(element);
        }
    }

    // ---- sets

    void set()
    {
        deck::CardWalk walk(match_);
        std::string title;
        for (deck::Line line; next_card(line);) {
            const deck::CardPlace place = walk.next();
            if (place.card == nullptr) return;
            if (place.index == deck::CardPlace::no_index) {
                title = without_blanks_behind(line.text.substr(0, 80));
            } else if (place.index == 0) {
                meaning_.read(line.text, *place.card);
                visitor_->set_begins(set_kind_, meaning_.integer(0), title);
                return members(card(1));
            }
        }
    }

    void members(const deck::CardLayout& layout)
    {
        const bool segments = set_kind_ == SetKind::segment;
        const std::size_t count = segments ? 4 : 8;
        std::array<std::int64_t, 8> fields{};
        for (deck::Line line; next(line);) {
            std::string_view rest = line.text;
            if (!meaning_.is_plain() || !take_numbers(rest, member, fields, count)) {
                meaning_.read(line.text, layout);
                for (std::size_t i = 0; i < count; ++i) fields[i] = meaning_.integer(i);
            }
            if (segments) {
                visitor_->set_member({fields[0], fields[1], fields[2], fields[3]});
                continue;
            }
            for (const std::int64_t field : fields)
                if (field != 0) visitor_->set_member({field, 0, 0, 0});
        }
    }

    // ---- definitions

    // Goes through the cards of a block's groups. A blank line between groups is a card only when a further one
    // follows.
    template <class Take>
    void cards(const Take& take)
    {
        deck::CardWalk walk(match_);
        std::size_t blanks = 0;
        const auto give = [&](std::string_view text) {
            const deck::CardPlace place = walk.next();
            if (place.card == nullptr || place.card->fields.empty()) return;
            meaning_.read(text, *place.card);
            for (std::size_t i = 0; i < std::min(place.card->fields.size(), deck::GroupValues::most_fields); ++i)
                walk.set_value(i, meaning_.real(i));
            if (place.index != deck::CardPlace::no_index) take(place.index);
        };
        for (deck::Line line; next_card(line);) {
            if (is_blank(line.text)) {
                deck::CardWalk ahead = walk;
                const deck::CardPlace place = ahead.next();
                if (blanks > 0 || (place.first_of_group && place.group > 0)) {
                    ++blanks;
                    continue;
                }
            }
            const std::string text(line.text);
            for (; blanks > 0; --blanks) give("");
            give(text);
        }
    }

    void part()
    {
        std::string title;
        cards([&](std::size_t index) {
            if (index == 0) title = meaning_.text(0);
            if (index == 1) definitions_.part(meaning_.integer(0), title, meaning_.text(1), meaning_.text(2));
        });
    }

    void shell_section()
    {
        std::string id;
        cards([&](std::size_t index) {
            if (index == 0) id = meaning_.text(0);
            if (index == 1)
                definitions_.section(id, {meaning_.real(0), meaning_.real(1), meaning_.real(2), meaning_.real(3)});
        });
    }

    void material()
    {
        cards([&](std::size_t index) {
            if (index == 0) definitions_.material(meaning_.text(0), meaning_.real(1));
        });
    }

    deck::DeckReader reader_;
    ModelVisitor* visitor_;
    const Pieces* pieces_;
    CardMeaning meaning_;
    Definitions definitions_;
    deck::LayoutMatch match_;     // of the present block
    deck::ContentChange change_;  // of its file
    SetKind set_kind_ = SetKind::other;
};

// The first that the layout's keyword begins with.
constexpr std::array<DeckModel::Handler, 13> DeckModel::handlers = {{
    {"*NODE", &Pieces::nodes, &DeckModel::nodes},
    {"*ELEMENT_SOLID", &Pieces::elements, &DeckModel::solids},
    {"*ELEMENT_SHELL_", &Pieces::elements, &DeckModel::shells_with_thickness},  // _THICKNESS and _BETA
    {"*ELEMENT_SHELL", &Pieces::elements, &DeckModel::shells},
    {"*ELEMENT_SPH", &Pieces::elements, &DeckModel::particles},
    {"*SET_NODE", &Pieces::sets, &DeckModel::set, SetKind::node},
    {"*SET_PART", &Pieces::sets, &DeckModel::set, SetKind::part},
    {"*SET_SEGMENT", &Pieces::sets, &DeckModel::set, SetKind::segment},
    {"*SET_SHELL", &Pieces::sets, &DeckModel::set, SetKind::shell},
    {"*SET_SOLID", &Pieces::sets, &DeckModel::set, SetKind::solid},
    {"*PART", &Pieces::parts, &DeckModel::part},
    {"*SECTION_SHELL", &Pieces::parts, &DeckModel::shell_section},
    {"*MAT_", &Pieces::parts, &DeckModel::material},
}};
}  // namespace

void read_deck(const std::filesystem::path& deck, ModelVisitor& visitor, const Pieces& pieces)
{
    DeckModel(deck, visitor, pieces).read();
}

}  // namespace report
