#include "prepare/survey.h"

#include <algorithm>
#include <string_view>

#include "deck/layout.h"
#include "prepare/keyword_form.h"
#include "prepare/sets.h"

namespace prepare
{

namespace
{
bool is_of_boundary_pass(std::string_view name)
{
    constexpr std::string_view families[] = {"*BOUNDARY", "*DEFINE_BOX", "*DEFINE_COORDINATE", "*INITIAL", "*LOAD"};
    const bool family = std::any_of(std::begin(families), std::end(families),
                                    [=](std::string_view beginning) { return name.starts_with(beginning); });
    if (!family) return false;
    const deck::LayoutMatch match = deck::find_layout(name);
    return match.layout != nullptr && match.layout->reads != deck::Reads::nothing;
}

class Surveyor
{
public:
    explicit Surveyor(const std::filesystem::path& deck)
        : reader_(deck, [this](const deck::Problem& problem) { found_.problems.push_back(problem); })
    {
    }

    Survey run()
    {
        while (reader_.next_block()) block();
        found_.files = reader_.files();
        return std::move(found_);
    }

private:
    void block()
    {
        const deck::Block& head = reader_.block();
        ++blocks_;
        const std::string& name = head.keyword.name;
        if (!name.empty()) line(head.file, head.line, head.carriage_return, head.newline);
        found_.has_end = found_.has_end || (head.ends_file && head.file == 0);
        found_.reads_files = found_.reads_files || head.include == deck::IncludeKind::files ||
                             head.include == deck::IncludeKind::transform;
        found_.has_questions = found_.has_questions || is_question(name);
        if (is_of_boundary_pass(name)) found_.last_of_boundary_pass = blocks_;
        if (name == "*KEYWORD" && head.file == 0) settings_ = deck::settings_from(head.keyword.rest, settings_);
        if (!name.empty()) format(head);
        for (deck::Line data; reader_.next_line(data);)
            line(data.file, data.number, data.carriage_return, data.newline);
    }

    // A deck's own format must go when a block loses its mark, or had none.
    void format(const deck::Block& head)
    {
        const deck::Format of_deck = deck::block_format(settings_, deck::FormatSuffix::none);
        if (head.format == deck::Format::standard && of_deck == deck::Format::standard) return;
        const deck::LayoutMatch match = form_of(head, false).match;
        const bool of_another_file = head.keyword.suffix == deck::FormatSuffix::none && head.format != of_deck;
        if (of_another_file || (is_rewritten(match) && has_other_columns(match, head.format)))
            found_.standard_deck = true;
    }

    void line(deck::FileNumber file, std::size_t number, bool carriage_return, bool newline)
    {
        if (carriage_return) found_.carriage_returns.emplace(file, number);
        if (file != 0) return;
        found_.last_line = number;
        found_.ends_in_newline = newline;
    }

    Survey found_;
    deck::DeckReader reader_;
    deck::FormatSettings settings_;
    std::size_t blocks_ = 0;
};
}  // namespace

Survey survey(const std::filesystem::path& deck)
{
    return Surveyor(deck).run();
}

bool stops(const deck::Problem& problem)
{
    return problem.severity == deck::Severity::error &&
           (problem.code == "MD122" || problem.code == "MD123" || problem.code == "MD124");
}

bool ends_boundary_pass(std::string_view keyword)
{
    return keyword.starts_with("*DEFINE_COORDINATE") && !keyword.starts_with("*DEFINE_COORDINATE_NODES") &&
           !keyword.starts_with("*DEFINE_COORDINATE_SYSTEM");
}

}  // namespace prepare
