#include "deck/layout.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "deck/keyword_line.h"

namespace deck
{

namespace
{
// The name without the heading's option, or the name itself.
std::string_view without_heading(std::string_view name, const Layout& layout)
{
    switch (layout.heading) {
    case Heading::none:
        return name;
    case Heading::title_each:
    case Heading::title_once:
        return without_option(name, "TITLE");
    case Heading::id_once:
        if (ends_in_option(name, "ID")) return without_option(name, "ID");
        return name.starts_with("*CONTACT") ? without_option(name, "TITLE") : name;
    }
    return name;
}

// The length of the option that `rest` begins with and that has cards in the layout: "_SPALL" of "_SPALL_TITLE"; 0
// when there is none.
std::size_t known_option(std::string_view rest, const Layout& layout)
{
    for (const CardLayout& card : layout.cards)
        if (!card.option.empty() && rest.starts_with('_') && is_of(rest.substr(1), card.option))
            return card.option.size() + 1;
    return 0;
}

// True when nothing but known options stands behind the keyword.
bool is_exact(std::string_view bare_name, const Layout& layout)
{
    if (!bare_name.starts_with(layout.keyword)) return false;
    std::string_view rest = bare_name.substr(layout.keyword.size());
    while (!rest.empty()) {
        const std::size_t length = known_option(rest, layout);
        if (length == 0) return false;
        rest.remove_prefix(length);
    }
    return true;
}

constexpr std::size_t without_end = std::numeric_limits<std::size_t>::max();
}  // namespace

Names named(const Field& field, const GroupValues& values)
{
    return field.by_type == nullptr ? field.names : field.by_type(values);
}

LayoutMatch find_layout(std::string_view name)
{
    LayoutMatch match;
    match.name = name;
    for (const Layout& layout : layouts()) {
        if (!name.starts_with(layout.keyword)) continue;
        const std::string_view bare = without_heading(name, layout);
        const bool exact = is_exact(bare, layout);
        const bool longer = match.layout == nullptr || layout.keyword.size() > match.layout->keyword.size();
        if (exact == match.exact ? !longer : !exact) continue;
        match.layout = &layout;
        match.exact = exact;
        match.headed = bare.size() != name.size();
    }
    return match;
}

bool is_bulk(std::string_view name)
{
    return name.starts_with("*NODE") || name.starts_with("*ELEMENT");
}

std::size_t field_width(const Field& field, Format format, bool bulk)
{
    constexpr std::size_t long_width = 20;
    constexpr std::size_t ten = 10;
    if (field.kind == Kind::text) return field.width;
    if (format == Format::long_fields) return long_width;
    const bool whole_number = field.kind == Kind::integer || field.kind == Kind::integer64;
    return format == Format::ten_columns && bulk && whole_number ? ten : field.width;
}

// ---- going through a block -----------------------------------------------------------------------------------------

CardWalk::CardWalk(LayoutMatch match) : match_(std::move(match)), heading_due_(match_.headed)
{
}

// True when the keyword has the card's option.
bool CardWalk::has(const CardLayout& card) const
{
    if (card.option.empty()) return true;
    std::string_view rest = std::string_view(match_.name).substr(match_.layout->keyword.size());
    for (; !rest.empty(); rest.remove_prefix(1))
        if (rest.front() == '_' && is_of(rest.substr(1), card.option)) return true;
    return false;
}

// How many times the card is in the present group.
std::size_t CardWalk::due(std::size_t index) const
{
    const CardLayout& card = match_.layout->cards[index];
    if (!has(card)) return 0;
    switch (card.occurs) {
    case Occurs::always:
    case Occurs::when_more:
        return 1;
    case Occurs::counted:
        return card.count(values_);
    case Occurs::to_the_end:
        return without_end;
    }
    return 0;
}

void CardWalk::skip_absent()
{
    while (card_ < match_.layout->cards.size() && times_ >= due(card_)) {
        ++card_;
        times_ = 0;
    }
}

bool CardWalk::read_group() const
{
    switch (match_.layout->reads) {
    case Reads::nothing:
        return false;
    case Reads::first_group:
        return group_ == 0;
    case Reads::first_if_headed:
        return group_ == 0 || !match_.headed;
    case Reads::all:
        return true;
    }
    return false;
}

CardPlace CardWalk::next()
{
    CardPlace place;
    place.group = group_;
    present_ = CardPlace::no_index;
    if (match_.layout == nullptr || match_.layout->cards.empty()) return place;
    const Layout& layout = *match_.layout;

    if (!heading_due_) {
        skip_absent();
        if (card_ == layout.cards.size()) {
            if (layout.groups == Groups::one) return place;
            place.group = ++group_;
            card_ = times_ = 0;
            values_ = {};
            group_begun_ = false;
            heading_due_ = match_.headed && layout.heading == Heading::title_each;
            if (!heading_due_) skip_absent();
        }
    }
    place.first_of_group = !group_begun_;
    group_begun_ = true;
    if (heading_due_) {
        heading_due_ = false;
        place.card = layout.heading == Heading::id_once ? &id_card : &title_card;
        place.read = read_group();
        return place;
    }
    place.card = &layout.cards[card_];
    place.index = present_ = card_;
    place.read = read_group() && place.card->converted;
    ++times_;
    return place;
}

void CardWalk::set_value(std::size_t field, double value)
{
    if (present_ < GroupValues::most_cards && field < GroupValues::most_fields) values_.values[present_][field] = value;
}

const CardLayout* CardWalk::missing() const
{
    if (match_.layout == nullptr) return nullptr;
    if (!group_begun_ && (group_ > 0 || match_.layout->reads != Reads::first_group)) return nullptr;
    for (std::size_t i = card_; i < match_.layout->cards.size(); ++i) {
        const Occurs occurs = match_.layout->cards[i].occurs;
        if (occurs == Occurs::when_more || occurs == Occurs::to_the_end) continue;
        if (due(i) > (i == card_ ? times_ : 0)) return &match_.layout->cards[i];
    }
    return nullptr;
}

// ---- names by number -----------------------------------------------------------------------------------------------

std::string named_form(std::string_view name)
{
    struct Row {
        std::string_view number_form, named_form;
    };
    constexpr Row rows[] = {
        {"*MAT_001", "*MAT_ELASTIC"},
        {"*MAT_003", "*MAT_PLASTIC_KINEMATIC"},
        {"*MAT_006", "*MAT_VISCOELASTIC"},
        {"*MAT_008", "*MAT_HIGH_EXPLOSIVE_BURN"},
        {"*MAT_009", "*MAT_NULL"},
        {"*MAT_010", "*MAT_ELASTIC_PLASTIC_HYDRO"},
        {"*MAT_011", "*MAT_STEINBERG"},
        {"*MAT_012", "*MAT_ISOTROPIC_ELASTIC_PLASTIC"},
        {"*MAT_013", "*MAT_ISOTROPIC_ELASTIC_FAILURE"},
        {"*MAT_015", "*MAT_JOHNSON_COOK"},
        {"*MAT_020", "*MAT_RIGID"},
        {"*MAT_027", "*MAT_MOONEY-RIVLIN_RUBBER"},
        {"*MAT_098", "*MAT_SIMPLIFIED_JOHNSON_COOK"},
        {"*MAT_110", "*MAT_JOHNSON_HOLMQUIST_CERAMICS"},
        {"*EOS_001", "*EOS_LINEAR_POLYNOMIAL"},
        {"*EOS_002", "*EOS_JWL"},
        {"*EOS_004", "*EOS_GRUNEISEN"},
        {"*EOS_007", "*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE"},
    };
    const auto* const row = std::find_if(std::begin(rows), std::end(rows),
                                         [&](const Row& candidate) { return is_of(name, candidate.number_form); });
    if (row == std::end(rows)) return {};
    const std::string full = std::string(row->named_form) + std::string(name.substr(row->number_form.size()));
    return find_layout(full).exact ? full : std::string();
}

}  // namespace deck
