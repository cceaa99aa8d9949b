#include "report/card_meaning.h"

#include <algorithm>

#include "deck/field_number.h"
#include "deck/include_transform.h"
#include "deck/keyword_line.h"
#include "reader/numbers.h"

namespace report
{

std::int64_t whole_part(double value)
{
    return to_int64(value);
}

void CardMeaning::begin_block(deck::Format format, bool bulk, const deck::ContentChange& change)
{
    format_ = format;
    bulk_ = bulk;
    change_ = change.is_none() ? nullptr : &change;
    plain_ = format == deck::Format::standard && change_ == nullptr;
}

CardMeaning::Meaning CardMeaning::meaning_of(const deck::FieldText& field) const
{
    if (field.field->kind == deck::Kind::text) return {0, std::string(deck::trimmed(field.text))};
    if (deck::refers_to_parameter(field.text)) {
        const deck::Evaluation evaluation = parameters_->evaluate(field.text);
        if (evaluation.value) return {evaluation.value->number, deck::to_string(*evaluation.value)};
    }
    const deck::FieldNumber number = deck::standard_number(field.text);
    const bool none = number.form == deck::FieldNumber::Form::none;
    return {none ? deck::strict_number(field.text, field.width) : number.value, std::string(deck::trimmed(field.text))};
}

// The offsets of the identifiers of an included file.
void CardMeaning::shift(const deck::CardLayout& card)
{
    for (std::size_t i = 0; i < meanings_.size(); ++i) {
        Meaning& meaning = meanings_[i];
        const deck::Names names = card.fields[i].names;
        if (names == deck::Names::nothing || !(meaning.value > 0)) continue;
        const auto whole = deck::whole(meaning.value);
        if (!whole) continue;
        const std::int64_t shifted = deck::saturated_sum(*whole, change_->offset(deck::offset_of(names)));
        meaning = {static_cast<double>(shifted), std::to_string(shifted)};
    }
}

// The x, y, z behind a node's number.
void CardMeaning::transform()
{
    const deck::Point moved = change_->transformation({meanings_[1].value, meanings_[2].value, meanings_[3].value});
    meanings_[1].value = moved.x;
    meanings_[2].value = moved.y;
    meanings_[3].value = moved.z;
}

void CardMeaning::read(std::string_view line, const deck::CardLayout& card)
{
    if (line.find('\t') != std::string_view::npos) line = expanded_ = deck::with_tabs_expanded(line);
    deck::split_card(line, card, format_, bulk_, fields_);
    meanings_.clear();
    for (const deck::FieldText& field : fields_)
        if (field.field != nullptr) meanings_.push_back(meaning_of(field));
    if (change_ == nullptr) return;
    shift(card);
    if (meanings_.size() > 3 && card.fields[0].name == "nid" && card.fields[1].name == "x") transform();
}

double CardMeaning::real(std::size_t field) const
{
    return field < meanings_.size() ? meanings_[field].value : 0;
}

std::int64_t CardMeaning::integer(std::size_t field) const
{
    return whole_part(real(field));
}

std::string_view CardMeaning::text(std::size_t field) const
{
    return field < meanings_.size() ? std::string_view(meanings_[field].text) : std::string_view{};
}

}  // namespace report
