#include "prepare/sets.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <utility>

#include "deck/card_fields.h"
#include "deck/deck_reader.h"
#include "deck/field_number.h"
#include "deck/keyword_line.h"
#include "deck/layout.h"
#include "prepare/card_rewriter.h"
#include "prepare/solids.h"

namespace prepare
{

namespace
{
using deck::Field;
using deck::Kind;
using deck::Names;
using deck::OffsetKind;

// ---- forms of sets -------------------------------------------------------------------------------------------------

enum class Family : std::uint8_t { node, part, shell, solid, segment };
enum class Way : std::uint8_t { list, range, increment, column, general, add, add_advanced };

struct Form {
    Family family;
    Way way;
    bool titled;
};

struct FamilyRow {
    std::string_view keyword;
    Family family;
    std::string_view list;  // behind the keyword, of a plain list
    Names names;
    OffsetKind members;
};
constexpr FamilyRow families[] = {
    {"*SET_NODE", Family::node, "_LIST", Names::node, OffsetKind::node},
    {"*SET_PART", Family::part, "_LIST", Names::part, OffsetKind::part},
    {"*SET_SHELL", Family::shell, "_LIST", Names::shell, OffsetKind::element},
    {"*SET_SOLID", Family::solid, "", Names::solid, OffsetKind::element},
    {"*SET_SEGMENT", Family::segment, "", Names::nothing, OffsetKind::node},
};

const FamilyRow& row_of(Family family)
{
    return families[static_cast<std::size_t>(family)];
}

std::optional<Way> way_of(std::string_view option, Family family)
{
    struct Row {
        std::string_view option;
        Way way;
    };
    constexpr Row rows[] = {
        {"", Way::list},
        {"_LIST", Way::list},
        {"_GENERATE", Way::range},
        {"_LIST_GENERATE", Way::range},
        {"_GENERATE_INCREMENT", Way::increment},
        {"_LIST_GENERATE_INCREMENT", Way::increment},
        {"_COLUMN", Way::column},
        {"_GENERAL", Way::general},
        {"_ADD", Way::add},
        {"_ADD_ADVANCED", Way::add_advanced},
    };
    for (const Row& row : rows) {
        if (option != row.option) continue;
        const bool of_segments = row.way == Way::list || row.way == Way::general || row.way == Way::add;
        if (family == Family::segment && !of_segments) return std::nullopt;
        if (row.way == Way::add_advanced && family != Family::node) return std::nullopt;
        return row.way;
    }
    return std::nullopt;
}

std::optional<Form> form_of_set(std::string_view keyword)
{
    const bool titled = deck::ends_in_option(keyword, "TITLE");
    const std::string_view name = deck::without_option(keyword, "TITLE");
    for (const FamilyRow& row : families) {
        if (!deck::is_of(name, row.keyword)) continue;
        if (const auto way = way_of(name.substr(row.keyword.size()), row.family)) return Form{row.family, *way, titled};
    }
    return std::nullopt;
}

// ---- reading cards -------------------------------------------------------------------------------------------------

constexpr Field number{.name = "n", .kind = Kind::integer64};
constexpr Field option_field{.name = "option", .kind = Kind::word};
constexpr Field numbers[] = {number, number, number, number, number, number, number, number};
constexpr Field option_and_numbers[] = {option_field, number, number, number, number, number, number, number};
constexpr deck::CardLayout numbers_card{.name = "numbers", .fields = numbers};
constexpr deck::CardLayout general_card{.name = "general", .fields = option_and_numbers};

// The numbers of a card, references put in; 0 where nothing stands.
class Numbers
{
public:
    Numbers(const deck::DeckReader& reader) : reader_(&reader) {}

    void take(const deck::Line& line, const deck::CardLayout& card, deck::Format format, bool bulk)
    {
        std::string_view text = line.text;
        if (text.find('\t') != std::string_view::npos) text = expanded_ = deck::with_tabs_expanded(text);
        deck::split_card(text, card, format, bulk, fields_);
        line_ = &line;
    }

    [[nodiscard]] double operator[](std::size_t index) const
    {
        const deck::FieldText& field = fields_[index];
        if (!deck::refers_to_parameter(field.text)) return deck::standard_number(field.text).value;
        const deck::Evaluation evaluation = reader_->parameters().evaluate(field.text);
        if (!evaluation.value)
            throw deck::Fault(
                deck::problem_at(reader_->place(line_->file, line_->number, field.column + evaluation.column + 1),
                                 "MD123", "\"" + std::string(deck::trimmed(field.text)) + "\": " + evaluation.why_not));
        return evaluation.value->number;
    }

    [[nodiscard]] std::string_view text(std::size_t index) const { return deck::trimmed(fields_[index].text); }
    [[nodiscard]] std::size_t count() const { return fields_.size(); }
    [[nodiscard]] const Field* field(std::size_t index) const { return fields_[index].field; }

private:
    const deck::DeckReader* reader_;
    const deck::Line* line_ = nullptr;
    std::vector<deck::FieldText> fields_;
    std::string expanded_;
};

// An identifier, shifted when it names something.
std::int64_t shifted(double value, std::int64_t offset)
{
    const std::int64_t id = deck::whole(value).value_or(0);
    return id > 0 ? deck::saturated_sum(id, offset) : 0;
}

// ---- what a set asks -----------------------------------------------------------------------------------------------

struct Range {
    std::int64_t from, to, step;
};
using Segment = std::array<std::int64_t, 4>;

struct Question {
    Form form{};
    std::size_t block = 0;
    std::int64_t number = 0;
    std::string title;
    std::string first_card;
    std::vector<Range> ranges;
    bool all = false;
    std::set<std::int64_t> parts;
    std::vector<std::int64_t> boxes;
    std::vector<std::int64_t> sets;  // that it is made of
    std::vector<std::int64_t> members;
    std::vector<Segment> segments;
    bool refused = false;   // it asks for something that is not known here
    bool resolved = false;  // it has the members of its sets
};

struct Box {
    std::array<double, 6> bounds;  // xmn, xmx, ymn, ...
};

void sort_once(std::vector<std::int64_t>& members)
{
    std::sort(members.begin(), members.end());
    members.erase(std::unique(members.begin(), members.end()), members.end());
}

class Model
{
public:
    explicit Model(std::filesystem::path deck) : deck_(std::move(deck)) {}

    std::map<std::size_t, SetList> lists();

private:
    // First going.
    void ask(deck::DeckReader& reader, const Form& form, std::size_t block);
    static void ask_card(Question& question, const Numbers& card, const deck::ContentChange& change);
    static void ask_general(Question& question, const Numbers& card, const deck::ContentChange& change);
    void take_boxes(deck::DeckReader& reader);

    // Second going.
    void answer(deck::DeckReader& reader);
    void answer_card(const deck::Layout& layout, const Numbers& card, const deck::ContentChange& change);
    void node(std::int64_t id, const deck::Point& at);
    void element(Family family, std::int64_t id, std::int64_t part, const std::vector<std::int64_t>& nodes);
    void defined(Family family, std::int64_t id);

    bool resolve(Question& question, std::size_t depth);
    [[nodiscard]] static SetList list(const Question& question);

    std::filesystem::path deck_;
    std::vector<Question> questions_;  // plain lists among them, which sets of sets may name
    std::map<std::pair<Family, std::int64_t>, std::size_t> by_number_;
    std::map<std::int64_t, Box> boxes_;
    std::array<std::vector<std::size_t>, std::size(families)> asking_;  // those with something to ask, by family
};

// ---- first going ---------------------------------------------------------------------------------------------------

void Model::ask_general(Question& question, const Numbers& card, const deck::ContentChange& change)
{
    const std::string option = deck::to_upper(card.text(0));
    const Family family = question.form.family;
    const auto each = [&](OffsetKind kind, auto&& take) {
        for (std::size_t i = 1; i < 8; ++i)
            if (const std::int64_t id = shifted(card[i], change.offset(kind)); id > 0) take(id);
    };
    const bool lists = (option == "NODE" && family == Family::node) ||
                       (option == "ELEM" && (family == Family::shell || family == Family::solid));
    if (option == "ALL" && family != Family::segment && family != Family::part)
        question.all = true;
    else if (lists)
        each(row_of(family).members, [&](std::int64_t id) { question.members.push_back(id); });
    else if (option == "PART" && family != Family::segment && family != Family::part)
        each(OffsetKind::part, [&](std::int64_t id) { question.parts.insert(id); });
    else if (option == "BOX" && family == Family::node)
        each(OffsetKind::definition, [&](std::int64_t id) { question.boxes.push_back(id); });
    else if (option == "SEG" && family == Family::segment)
        question.segments.push_back(
            {shifted(card[1], change.offset(OffsetKind::node)), shifted(card[2], change.offset(OffsetKind::node)),
             shifted(card[3], change.offset(OffsetKind::node)), shifted(card[4], change.offset(OffsetKind::node))});
    else
        question.refused = true;
}

void Model::ask_card(Question& question, const Numbers& card, const deck::ContentChange& change)
{
    const std::int64_t offset = change.offset(row_of(question.form.family).members);
    const auto id = [&](std::size_t i) { return shifted(card[i], offset); };
    const auto set = [&](std::size_t i) { return shifted(card[i], change.offset(OffsetKind::set)); };
    switch (question.form.way) {
    case Way::list:
        if (question.form.family == Family::segment)
            question.segments.push_back({id(0), id(1), id(2), id(3)});
        else
            for (std::size_t i = 0; i < 8; ++i)
                if (id(i) > 0) question.members.push_back(id(i));
        break;
    case Way::range:
        for (std::size_t i = 0; i < 8; i += 2)
            if (id(i) > 0) question.ranges.push_back({id(i), id(i + 1), 1});
        break;
    case Way::increment:
        if (id(0) > 0)
            question.ranges.push_back({id(0), id(1), std::max<std::int64_t>(1, deck::whole(card[2]).value_or(1))});
        break;
    case Way::column:
        if (id(0) > 0) question.members.push_back(id(0));
        break;
    case Way::general:
        ask_general(question, card, change);
        break;
    case Way::add:
        for (std::size_t i = 0; i < 8; ++i)
            if (set(i) > 0) question.sets.push_back(set(i));
        break;
    case Way::add_advanced:
        for (std::size_t i = 0; i < 8; i += 2) {
            if (set(i) == 0) continue;
            question.refused = question.refused || card[i + 1] != 1;  // nodes of elements or segments
            question.sets.push_back(set(i));
        }
        break;
    }
}

void Model::ask(deck::DeckReader& reader, const Form& form, std::size_t block)
{
    const deck::ContentChange change = reader.file(reader.block().file).change;
    const deck::Format format = reader.block().format;
    const FamilyRow& row = row_of(form.family);
    const deck::LayoutMatch match = deck::find_layout(row.keyword);
    const deck::CardLayout& first = match.layout->cards[0];
    Question question;
    question.form = form;
    question.block = block;
    Numbers card(reader);
    CardRewriter rewriter(reader.parameters());
    Rewritten rewritten;
    int place = form.titled ? 0 : 1;
    for (deck::Line line; reader.next_line(line);) {
        if (deck::is_comment(line.text)) continue;
        if (place == 0) {
            question.title = line.text;
        } else if (place == 1) {
            card.take(line, first, format, false);
            question.number = shifted(card[0], change.offset(OffsetKind::set));
            deck::CardWalk walk(match);
            const CardStyle style{format, false, change.is_none() ? nullptr : &change};
            try {
                question.first_card =
                    rewriter.rewrite(line.text, first, true, style, walk, rewritten) ? rewritten.text : line.text;
            } catch (const Undefined& undefined) {
                stop_at(reader, line.file, line.number, undefined);
            }
        } else {
            if (deck::trimmed(line.text).empty()) continue;
            card.take(line, form.way == Way::general ? general_card : numbers_card, format, false);
            ask_card(question, card, change);
        }
        if (place < 2) ++place;
    }
    if (place < 2) question.refused = true;
    by_number_.emplace(std::pair(form.family, question.number), questions_.size());
    questions_.push_back(std::move(question));
}

void Model::take_boxes(deck::DeckReader& reader)
{
    const deck::LayoutMatch match = deck::find_layout(reader.block().keyword.name);
    const deck::ContentChange change = reader.file(reader.block().file).change;
    deck::CardWalk walk(match);
    Numbers card(reader);
    for (deck::Line line; reader.next_line(line);) {
        if (deck::is_comment(line.text)) continue;
        const deck::CardPlace place = walk.next();
        if (place.card == nullptr || place.card->fields.size() < 7) continue;
        card.take(line, *place.card, reader.block().format, false);
        Box box{};
        for (std::size_t i = 0; i < box.bounds.size(); ++i) box.bounds[i] = card[i + 1];
        boxes_.emplace(shifted(card[0], change.offset(OffsetKind::definition)), box);
    }
}

// ---- second going --------------------------------------------------------------------------------------------------

bool in_ranges(const Question& question, std::int64_t id)
{
    return std::any_of(question.ranges.begin(), question.ranges.end(), [=](const Range& range) {
        return id >= range.from && id <= range.to && (id - range.from) % range.step == 0;
    });
}

void Model::defined(Family family, std::int64_t id)
{
    for (const std::size_t index : asking_[static_cast<std::size_t>(family)]) {
        Question& question = questions_[index];
        if (question.all || in_ranges(question, id)) question.members.push_back(id);
    }
}

void Model::node(std::int64_t id, const deck::Point& at)
{
    defined(Family::node, id);
    for (const std::size_t index : asking_[static_cast<std::size_t>(Family::node)]) {
        Question& question = questions_[index];
        for (const std::int64_t number_of_box : question.boxes) {
            const std::array<double, 6>& b = boxes_[number_of_box].bounds;
            if (at.x >= b[0] && at.x <= b[1] && at.y >= b[2] && at.y <= b[3] && at.z >= b[4] && at.z <= b[5])
                question.members.push_back(id);
        }
    }
}

void Model::element(Family family, std::int64_t id, std::int64_t part, const std::vector<std::int64_t>& nodes)
{
    if (family != Family::node) {
        defined(family, id);
        for (const std::size_t index : asking_[static_cast<std::size_t>(family)])
            if (questions_[index].parts.contains(part)) questions_[index].members.push_back(id);
    }
    for (const std::size_t index : asking_[static_cast<std::size_t>(Family::node)]) {
        Question& question = questions_[index];
        if (!question.parts.contains(part)) continue;
        question.members.insert(question.members.end(), nodes.begin(), nodes.end());
    }
}

void Model::answer_card(const deck::Layout& layout, const Numbers& card, const deck::ContentChange& change)
{
    if (layout.keyword == "*NODE") {
        const std::int64_t id = shifted(card[0], change.offset(OffsetKind::node));
        if (id > 0) node(id, change.transformation({card[1], card[2], card[3]}));
        return;
    }
    if (layout.keyword == "*PART") {
        const std::int64_t id = shifted(card[0], change.offset(OffsetKind::part));
        if (id > 0) defined(Family::part, id);
        return;
    }
    std::vector<std::int64_t> nodes;
    std::int64_t part = 0;
    // sic: a beam's third node is not its own, and a shell has its corners alone, as in the solver's input
    const std::size_t end = layout.keyword == "*ELEMENT_BEAM"              ? 4
                            : layout.keyword.starts_with("*ELEMENT_SHELL") ? 6
                                                                           : card.count();
    for (std::size_t i = 0; i < std::min(end, card.count()); ++i) {
        if (card.field(i) == nullptr) continue;
        if (card.field(i)->names == Names::part) part = shifted(card[i], change.offset(OffsetKind::part));
        if (card.field(i)->names != Names::node) continue;
        if (const std::int64_t id = shifted(card[i], change.offset(OffsetKind::node)); id > 0) nodes.push_back(id);
    }
    const Names defines = card.field(0)->defines ? card.field(0)->names : Names::nothing;
    const Family family = defines == Names::shell   ? Family::shell
                          : defines == Names::solid ? Family::solid
                                                    : Family::node;
    element(family, shifted(card[0], change.offset(OffsetKind::element)), part, nodes);
}

void Model::answer(deck::DeckReader& reader)
{
    const deck::Block& head = reader.block();
    const std::string& name = head.keyword.name;
    if (!name.starts_with("*NODE") && !name.starts_with("*ELEMENT") && !deck::is_of(name, "*PART")) return;
    const deck::LayoutMatch match = deck::find_layout(name);
    if (match.layout == nullptr || !match.exact || match.layout->cards.empty()) return;
    const deck::Layout& layout = *match.layout;
    const std::size_t wanted = layout.keyword == "*PART" ? 1 : 0;
    const bool bulk = deck::is_bulk(name);
    const deck::ContentChange change = reader.file(head.file).change;
    deck::CardWalk walk(match);
    Numbers card(reader);
    std::string first_line;
    bool begun = false;
    bool two_lines = false;
    bool second = false;
    for (deck::Line line; reader.next_line(line);) {
        if (deck::is_comment(line.text) || (bulk && deck::trimmed(line.text).empty())) continue;
        if (!std::exchange(begun, true) && layout.keyword == "*ELEMENT_SOLID")
            two_lines = is_on_two_lines(line.text, head.format);
        if (two_lines) {
            if (!std::exchange(second, !second)) {
                card.take(line, layout.cards[0], head.format, true);
                first_line = std::to_string(deck::whole(card[0]).value_or(0)) + "," +
                             std::to_string(deck::whole(card[1]).value_or(0));
                continue;
            }
            card.take(line, deck::solid_on_two_lines().cards[1], head.format, true);
            std::string whole = first_line;
            for (std::size_t i = 0; i < 8; ++i) whole += "," + std::to_string(deck::whole(card[i]).value_or(0));
            deck::Line joined = line;
            joined.text = whole;
            card.take(joined, layout.cards[0], head.format, true);
            answer_card(layout, card, change);
            continue;
        }
        const deck::CardPlace place = walk.next();
        if (place.card == nullptr || place.card->fields.empty()) continue;
        if (place.index != wanted && place.card->option.empty()) continue;
        card.take(line, *place.card, head.format, bulk);
        if (place.index == wanted)
            answer_card(layout, card, change);
        else
            for (std::size_t i = 0; i < card.count() && i < deck::GroupValues::most_fields; ++i)
                walk.set_value(i, card[i]);
    }
}

// ---- the lists -----------------------------------------------------------------------------------------------------

// Adds the members of the sets that it is made of; false when one of them is not known.
bool Model::resolve(Question& question, std::size_t depth)
{
    if (question.refused || depth > questions_.size()) return false;
    if (std::exchange(question.resolved, true)) return true;
    for (const std::int64_t box : question.boxes)
        if (!boxes_.contains(box)) question.refused = true;
    for (const std::int64_t set : question.sets) {
        const auto found = by_number_.find({question.form.family, set});
        if (found == by_number_.end() || &questions_[found->second] == &question ||
            !resolve(questions_[found->second], depth + 1)) {
            question.refused = true;
            break;
        }
        const Question& other = questions_[found->second];
        question.members.insert(question.members.end(), other.members.begin(), other.members.end());
        question.segments.insert(question.segments.end(), other.segments.begin(), other.segments.end());
    }
    return !question.refused;
}

SetList Model::list(const Question& question)
{
    constexpr std::size_t on_a_card = 8;
    constexpr std::size_t width = 10;
    const FamilyRow& row = row_of(question.form.family);
    SetList list;
    list.keyword = std::string(row.keyword).append(row.list).append(question.form.titled ? "_TITLE" : "");
    if (question.form.titled) list.cards.push_back(question.title);
    list.cards.push_back(question.first_card);
    const auto add = [&](std::int64_t member) {
        const std::string text = std::to_string(member);
        list.cards.back().append(width - std::min(width, text.size()), ' ').append(text);
    };
    std::vector<std::int64_t> members = question.members;
    sort_once(members);
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (i % on_a_card == 0) list.cards.emplace_back();
        add(members[i]);
    }
    std::vector<Segment> segments = question.segments;
    std::sort(segments.begin(), segments.end());
    segments.erase(std::unique(segments.begin(), segments.end()), segments.end());
    for (const Segment& segment : segments) {
        list.cards.emplace_back();
        for (const std::int64_t member : segment) add(member);
    }
    return list;
}

std::map<std::size_t, SetList> Model::lists()
{
    const deck::Report silent = [](const deck::Problem&) {};
    deck::DeckReader asking(deck_, silent);
    for (std::size_t block = 1; asking.next_block(); ++block) {
        const std::string& name = asking.block().keyword.name;
        if (const auto form = form_of_set(name))
            ask(asking, *form, block);
        else if (name == "*DEFINE_BOX" || name == "*DEFINE_BOX_TITLE")
            take_boxes(asking);
    }
    for (std::size_t i = 0; i < questions_.size(); ++i) {
        const Question& q = questions_[i];
        if (!q.ranges.empty() || q.all || !q.parts.empty() || !q.boxes.empty())
            asking_[static_cast<std::size_t>(q.form.family)].push_back(i);
    }
    deck::DeckReader answering(deck_, silent);
    while (answering.next_block()) answer(answering);

    std::map<std::size_t, SetList> lists;
    for (Question& question : questions_)
        if (question.form.way != Way::list && resolve(question, 0)) lists.emplace(question.block, list(question));
    return lists;
}
}  // namespace

bool is_question(std::string_view keyword)
{
    const auto form = form_of_set(keyword);
    return form && form->way != Way::list;
}

std::map<std::size_t, SetList> lists_of(const std::filesystem::path& deck)
{
    return Model(deck).lists();
}

}  // namespace prepare
