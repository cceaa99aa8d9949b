#include "support/models.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace models
{
namespace
{
std::string_view text_of(const Field& field)
{
    return field.spelled.empty() ? field.value : field.spelled;
}

Format format_of(const Model& model, const Block& block)
{
    const bool bulk = begins(block.keyword, "*NODE") || begins(block.keyword, "*ELEMENT");
    switch (block.mark) {
    case '+':
        return Format::wide;
    case '%':
        return Format::ten;
    case '-':
        return Format::standard;
    default:
        return model.format == Format::ten && !bulk ? Format::standard : model.format;
    }
}

std::size_t width_of(const Field& field, Format format)
{
    if (format == Format::wide) return 20;
    return static_cast<std::size_t>(format == Format::ten && field.width == 8 ? 10 : field.width);
}

std::string in_columns(const std::vector<Field>& fields, Format format, bool cut = false)
{
    std::size_t count = fields.size();
    while (count > 0 && text_of(fields[count - 1]).empty()) --count;
    if (count == 0) return std::string(width_of(fields[0], format) - 1, ' ') + "0";
    std::string line;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view text = text_of(fields[i]);
        const std::size_t width = width_of(fields[i], format);
        const std::size_t blanks = width > text.size() ? width - text.size() : 0;
        if (cut && i + 1 == count)
            line.append(blanks - 1, ' ').append(text);
        else if (fields[i].left)
            line.append(text).append(blanks, ' ');
        else
            line.append(blanks, ' ').append(text);
    }
    return line;
}

std::string with_commas(const std::vector<Field>& fields)
{
    std::string line;
    for (const Field& field : fields) line.append(text_of(field)).push_back(',');
    while (line.size() > 1 && ends(line, ",,")) line.pop_back();
    if (std::count(line.begin(), line.end(), ',') > 1) line.pop_back();
    return line;
}

// Tabs in place of blanks before every eighth column.
std::string with_tabs(const std::string& columns)
{
    std::string line;
    for (std::size_t i = 0; i < columns.size(); i += 8) {
        std::string piece = columns.substr(i, 8);
        const std::size_t end = piece.find_last_not_of(' ') + 1;
        if (piece.size() == 8 && end < 8) piece = piece.substr(0, end) + '\t';
        line += piece;
    }
    return line;
}

std::vector<std::string> lines_of(const Card& card, Format format)
{
    if (card.is_title()) return {card.title};
    switch (card.form) {
    case Card::Form::commas:
        return {with_commas(card.fields)};
    case Card::Form::tabs:
        return {with_tabs(in_columns(card.fields, format))};
    case Card::Form::cut:
        return {in_columns(card.fields, format, true)};
    case Card::Form::two_lines:
        return {in_columns({card.fields.begin(), card.fields.begin() + 2}, format),
                in_columns({card.fields.begin() + 2, card.fields.end()}, format)};
    case Card::Form::missing:
        return {};
    case Card::Form::columns:
        break;
    }
    return {in_columns(card.fields, format)};
}

// Writes the files of a deck and notes what a style has changed.
class Writer
{
public:
    Writer(const Model& model, std::string main_deck) : model_(model), main_(std::move(main_deck)) {}

    WrittenDeck write()
    {
        File file{main_, {}, 0};
        if (model_.carriage_returns || model_.format != Format::standard) note(file, 1, 1);
        for (const Block& block : model_.blocks) add(file, block);
        if (model_.end) add_line(file, "*END");
        if (!model_.end || !model_.newline || !model_.after_end.empty()) note(file, file.lines, file.lines);
        if (!model_.newline) cut_newline(file);
        file.text += model_.after_end;
        deck_.files[main_] = std::move(file.text);
        return std::move(deck_);
    }

private:
    struct File {
        std::string name;
        std::string text;
        std::size_t lines = 0;
    };

    void add_line(File& file, std::string_view line) const
    {
        file.text.append(line).append(model_.carriage_returns ? "\r\n" : "\n");
        ++file.lines;
    }

    void cut_newline(File& file) const { file.text.resize(file.text.size() - (model_.carriage_returns ? 2 : 1)); }

    void note(const File& file, std::size_t line, std::size_t block_line)
    {
        deck_.places.push_back({file.name, line, block_line});
    }

    void add(File& file, const Block& block)
    {
        const std::size_t keyword_line = file.lines + 1;
        if (!block.spelled.empty() || block.mark != ' ' || !block.files.empty()) note(file, keyword_line, keyword_line);
        std::string keyword = block.spelled.empty() ? block.keyword : block.spelled;
        if (block.mark != ' ') keyword.append(" ").push_back(block.mark);
        add_line(file, keyword);
        const Format format = format_of(model_, block);
        for (const Card& card : block.cards) {
            if (card.changed || card.blank_above) note(file, file.lines + 1, keyword_line);
            if (card.blank_above) add_line(file, "");
            if (!card.comment.empty() && card.form != Card::Form::missing) add_line(file, card.comment);
            if (card.changed && !card.comment.empty()) deck_.places.back().line = file.lines + 1;
            for (const std::string& line : lines_of(card, format)) add_line(file, line);
        }
        for (const IncludeFile& included : block.files) add(included);
    }

    void add(const IncludeFile& included)
    {
        File file{included.path, {}, 0};
        if (included.keyword) add_line(file, "*KEYWORD");
        for (const Block& block : included.blocks) add(file, block);
        if (included.end) {
            add_line(file, "*END");
            add_line(file, "nobody reads this");
        }
        if (!included.newline && !file.text.empty()) cut_newline(file);
        deck_.files[included.path] = std::move(file.text);
    }

    const Model& model_;
    std::string main_;
    WrittenDeck deck_;
};

double real(const Field& field)
{
    return std::strtod(field.value.c_str(), nullptr);
}

// The blocks whose keyword begins so, as their cards of data.
template <class Take>
void for_blocks(const Model& model, std::string_view beginning, Take&& take)
{
    for (const Block& block : model.blocks)
        if (begins(block.keyword, beginning)) take(block);
}

// `nodes` of each element; the card that names it is the first of `lines`.
std::vector<ElementFact> elements(const Model& model, std::string_view keyword, std::size_t nodes)
{
    std::vector<ElementFact> found;
    for_blocks(model, keyword, [&](const Block& block) {
        for (const Card& card : block.cards) {
            if (card.fields[0].name != "eid") continue;
            ElementFact fact{whole(card.fields[0]), whole(card.fields[1]), {}};
            for (std::size_t i = 0; i < nodes; ++i) fact.nodes.push_back(whole(card.fields[2 + i]));
            found.push_back(std::move(fact));
        }
    });
    return found;
}

SetFact set_fact(const Block& block, SetKind kind)
{
    SetFact set{kind, 0, " ", {}, {}};
    std::size_t i = 0;
    if (block.cards[0].is_title()) set.title = block.cards[i++].title;
    set.id = whole(block.cards[i++].fields[0]);
    for (; i < block.cards.size(); ++i) {
        const std::vector<Field>& fields = block.cards[i].fields;
        if (kind == SetKind::segment) {
            set.segments.push_back({whole(fields[0]), whole(fields[1]), whole(fields[2]), whole(fields[3])});
            continue;
        }
        for (const Field& field : fields)
            if (whole(field) != 0) set.members.push_back(whole(field));
    }
    return set;
}
}  // namespace

bool begins(std::string_view text, std::string_view beginning)
{
    return text.substr(0, beginning.size()) == beginning;
}

bool ends(std::string_view text, std::string_view ending)
{
    return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

long whole(const Field& field)
{
    return std::strtol(field.value.c_str(), nullptr, 10);
}

bool tabs_fit(const Card& card)
{
    return with_tabs(in_columns(card.fields, Format::standard)).find('\t') != std::string::npos;
}

Field integer_field(std::string_view name, long value, int width)
{
    return {name, width, Kind::integer, std::to_string(value), {}, false};
}

Card title_card(std::string title)
{
    Card card;
    card.title = std::move(title);
    return card;
}

std::vector<Card> list_cards(const std::vector<long>& members)
{
    std::vector<Card> cards;
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (i % 8 == 0) cards.emplace_back();
        cards.back().fields.push_back(integer_field("member", members[i]));
    }
    return cards;
}

namespace
{
void collect(std::vector<Block>& blocks, std::vector<Block*>& found)
{
    for (Block& block : blocks) {
        found.push_back(&block);
        for (IncludeFile& file : block.files) collect(file.blocks, found);
    }
}
}  // namespace

std::vector<Block*> all_blocks(Model& model)
{
    std::vector<Block*> found;
    collect(model.blocks, found);
    return found;
}

WrittenDeck written(const Model& model, const std::string& main_deck)
{
    return Writer(model, main_deck).write();
}

std::string strict(const Model& model)
{
    return written(model, "strict").files.begin()->second;
}

std::vector<NodeFact> nodes_of(const Model& model)
{
    std::vector<NodeFact> nodes;
    for_blocks(model, "*NODE", [&](const Block& block) {
        for (const Card& card : block.cards)
            nodes.push_back(
                {whole(card.fields[0]), {real(card.fields[1]), real(card.fields[2]), real(card.fields[3])}});
    });
    return nodes;
}

std::vector<ElementFact> shells_of(const Model& model)
{
    return elements(model, "*ELEMENT_SHELL", 4);
}

std::vector<ElementFact> solids_of(const Model& model)
{
    return elements(model, "*ELEMENT_SOLID", 8);
}

std::vector<ParticleFact> particles_of(const Model& model)
{
    std::vector<ParticleFact> particles;
    for_blocks(model, "*ELEMENT_SPH", [&](const Block& block) {
        for (const Card& card : block.cards)
            particles.push_back({whole(card.fields[0]), whole(card.fields[1]), real(card.fields[2])});
    });
    return particles;
}

std::vector<PartFact> parts_of(const Model& model)
{
    std::vector<PartFact> parts;
    for_blocks(model, "*PART", [&](const Block& block) {
        for (std::size_t i = 0; i + 1 < block.cards.size(); i += 2) {
            const std::vector<Field>& fields = block.cards[i + 1].fields;
            parts.push_back({block.cards[i].title, fields[0].value, fields[1].value, fields[2].value, fields[3].value,
                             fields[4].value});
        }
    });
    return parts;
}

std::vector<SetFact> sets_of(const Model& model)
{
    static constexpr std::pair<std::string_view, SetKind> kinds[] = {{"*SET_NODE", SetKind::node},
                                                                     {"*SET_PART", SetKind::part},
                                                                     {"*SET_SHELL", SetKind::shell},
                                                                     {"*SET_SOLID", SetKind::solid},
                                                                     {"*SET_SEGMENT", SetKind::segment}};
    std::vector<SetFact> sets;
    for (const Block& block : model.blocks)
        for (const auto& [keyword, kind] : kinds)
            if (begins(block.keyword, keyword)) sets.push_back(set_fact(block, kind));
    return sets;
}
}  // namespace models
