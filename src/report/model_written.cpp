// The written files, read back as the solver reads them: by the words of their headings and by column.
#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "deck/keyword_line.h"
#include "deck/line_file.h"
#include "driver/file_names.h"
#include "report/definitions.h"
#include "report/model.h"

namespace report
{

namespace
{
namespace fs = std::filesystem;

// ---- rows ----------------------------------------------------------------------------------------------------------

// The numbers of a row in order, with blanks between them.
class Numbers
{
public:
    explicit Numbers(std::string_view row) : at_(row.data()), end_(row.data() + row.size()) {}

    template <class Number>
    bool next(Number& number)
    {
        while (at_ != end_ && *at_ == ' ') ++at_;
        const auto [behind, error] = std::from_chars(at_, end_, number);
        if (error != std::errc{} || (behind != end_ && *behind != ' ')) return false;
        at_ = behind;
        return true;
    }

    template <class... Number>
    bool all(Number&... numbers)
    {
        return (next(numbers) && ...);
    }

private:
    const char* at_;
    const char* end_;
};

// Columns of a row; shorter, or empty, where the row ends.
std::string_view columns(std::string_view row, std::size_t begin, std::size_t width)
{
    return row.substr(std::min(begin, row.size()), width);
}

double real(std::string_view field)
{
    field = deck::trimmed(field);
    double value = 0;
    std::from_chars(field.data(), field.data() + field.size(), value);
    return value;
}

// An identifier behind a label: at least `width` columns, and more when it has more characters. It is taken off.
std::string_view take_identifier(std::string_view& row, std::size_t width)
{
    const std::size_t begin = std::min(row.find_first_not_of(' '), row.size());
    const std::size_t end = std::min(std::max(width, row.find(' ', begin)), row.size());
    const std::string_view identifier = row.substr(0, end);
    row.remove_prefix(end);
    return identifier;
}

bool is_comment(std::string_view line)
{
    return line.starts_with('!');
}

// ---- main deck -----------------------------------------------------------------------------------------------------

// An entry of the main deck's index of sets, which alone says what elements a set is of.
struct SetEntry {
    std::int64_t id = 0;
    SetKind kind = SetKind::other;
};

class MainDeck
{
public:
    explicit MainDeck(const fs::path& path)
    {
        deck::LineFile file(path);
        for (deck::Line line; file.next(line);) take(line.text);
    }

    [[nodiscard]] const Definitions& definitions() const { return definitions_; }
    [[nodiscard]] const std::vector<SetEntry>& sets() const { return sets_; }

private:
    void take(std::string_view line)
    {
        constexpr std::string_view part = " Part definition:", formulation = " Element formulation definition:",
                                   material = " Material Definition:";
        if (thickness_follows_) return take_thickness(line);
        if (is_comment(line)) return take_comment(line);
        if (line.starts_with(part)) return take_part(line.substr(part.size()));
        if (line.starts_with(formulation)) section_ = columns(line, formulation.size(), 10);
        if (line.starts_with(material)) {
            line.remove_prefix(material.size());
            const std::string_view mid = columns(line, 0, 11);
            definitions_.material(mid, real(columns(line, 23, 10)));
        }
    }

    void take_part(std::string_view line)
    {
        constexpr std::size_t words = 6, width = 11;
        line.remove_prefix(std::min<std::size_t>(1, line.size()));
        const std::int64_t id = whole_number(take_identifier(line, 7)).value_or(0);
        const std::string_view section = columns(line, 0, width), mid = columns(line, width, width);
        definitions_.part(id, columns(line, (words + 1) * width + 3, 81), section, mid);
    }

    // The thicknesses of a shell section stand under their names.
    void take_comment(std::string_view line)
    {
        if (line.starts_with("!         t1        t2")) thickness_follows_ = true;
        if (line.starts_with("! Set Definitions in ")) index_ = true;
        if (index_ && line.starts_with("!    SID    TYPE")) {
            entries_ = true;
        } else if (entries_) {
            if (line.starts_with("!---"))
                index_ = entries_ = false;
            else
                take_entry(line.substr(1));
        }
    }

    void take_thickness(std::string_view line)
    {
        std::array<double, 4> thickness{real(columns(line, 0, 12)), real(columns(line, 12, 10)),
                                        real(columns(line, 22, 10)), real(columns(line, 32, 10))};
        definitions_.section(section_, thickness);
        thickness_follows_ = false;
    }

    void take_entry(std::string_view line)
    {
        constexpr std::pair<std::string_view, SetKind> kinds[] = {{"node", SetKind::node},
                                                                  {"part", SetKind::part},
                                                                  {"segment", SetKind::segment},
                                                                  {"shell", SetKind::shell},
                                                                  {"solid", SetKind::solid}};
        SetEntry entry;
        entry.id = whole_number(take_identifier(line, 7)).value_or(0);
        const std::string_view word = deck::trimmed(columns(line, 0, 8));
        for (const auto& [name, kind] : kinds)
            if (word == name) entry.kind = kind;
        if (entry.kind != SetKind::other) sets_.push_back(entry);
    }

    Definitions definitions_;
    std::vector<SetEntry> sets_;
    std::string section_;  // of the latest element formulation
    bool thickness_follows_ = false;
    bool index_ = false;    // inside the index of sets, and
    bool entries_ = false;  // behind its heading
};

// ---- geometry ------------------------------------------------------------------------------------------------------

class Geometry
{
public:
    Geometry(ModelVisitor& visitor, const Pieces& pieces) : visitor_(&visitor), pieces_(&pieces) {}

    void read(const fs::path& path)
    {
        deck::LineFile file(path);
        for (deck::Line line; file.next(line);) {
            if (line.text.empty() || is_comment(line.text)) continue;
            if (is_heading(line.text))
                heading(line.text);
            else
                row(line.text);
        }
    }

private:
    enum class Rows { unknown, nodes, shells, thicknesses, solids, particles };

    static bool is_heading(std::string_view line)
    {
        const char first = line.front() == ' ' && line.size() > 1 ? line[1] : line.front();
        return first == 'N' || first == 'S';
    }

    void heading(std::string_view line)
    {
        rows_ = Rows::unknown;
        if (line.starts_with("Node Definition:")) rows_ = Rows::nodes;
        if (line.starts_with(" Shell Element Definition:")) rows_ = Rows::shells;
        if (line.starts_with(" Solid Element Definition:")) rows_ = Rows::solids;
        if (line.starts_with(" SPH Element Definition:")) rows_ = Rows::particles;
    }

    void row(std::string_view row)
    {
        if (rows_ == Rows::nodes) return node(row);
        if (!pieces_->elements) return;
        if (rows_ == Rows::solids) return solid(row);
        if (rows_ == Rows::shells) return shell(row);
        if (rows_ == Rows::thicknesses) return thickness(row);
        if (rows_ == Rows::particles) return particle(row);
    }

    void node(std::string_view row)
    {
        if (!pieces_->nodes) return;
        std::int64_t id = 0;
        std::array<double, 3> at{};
        if (Numbers(row).all(id, at[0], at[1], at[2])) visitor_->node(id, at);
    }

    void solid(std::string_view row)
    {
        Numbers numbers(row);
        element_.kind = ElementKind::solid;
        element_.corners = 8;
        bool whole = numbers.all(element_.id, element_.part);
        for (std::int64_t& node : element_.nodes) whole = whole && numbers.next(node);
        if (whole) visitor_->element(element_);
    }

    // A shell has two rows.
    void shell(std::string_view row)
    {
        Numbers numbers(row);
        element_ = {.kind = ElementKind::shell, .corners = 4};
        shell_is_whole_ = numbers.all(element_.id, element_.part);
        for (std::size_t i = 0; i < 4; ++i) shell_is_whole_ = shell_is_whole_ && numbers.next(element_.nodes[i]);
        rows_ = Rows::thicknesses;
    }

    void thickness(std::string_view row)
    {
        Numbers numbers(row);
        for (double& thickness : element_.thickness) shell_is_whole_ = shell_is_whole_ && numbers.next(thickness);
        if (shell_is_whole_) visitor_->element(element_);
        element_.thickness = {};
        rows_ = Rows::shells;
    }

    void particle(std::string_view row)
    {
        element_ = {.kind = ElementKind::particle, .corners = 1};
        if (!Numbers(row).all(element_.id, element_.part, element_.mass)) return;
        element_.nodes[0] = element_.id;
        visitor_->element(element_);
    }

    ModelVisitor* visitor_;
    const Pieces* pieces_;
    Rows rows_ = Rows::unknown;
    Element element_;
    bool shell_is_whole_ = false;
};

// ---- sets ----------------------------------------------------------------------------------------------------------

class Sets
{
public:
    Sets(ModelVisitor& visitor, const std::vector<SetEntry>& index) : visitor_(&visitor), index_(&index) {}

    void read(const fs::path& path)
    {
        deck::LineFile file(path);
        for (deck::Line line; file.next(line);) {
            if (line.text.empty() || is_comment(line.text)) continue;
            if (!heading(line.text)) row(line.text);
        }
    }

private:
    bool heading(std::string_view line)
    {
        constexpr std::pair<std::string_view, SetKind> headings[] = {{" Node set definition    :", SetKind::node},
                                                                     {" Element set definition :", SetKind::other},
                                                                     {" Part set definition    :", SetKind::part},
                                                                     {" Segment set definition :", SetKind::segment}};
        const auto* const found = std::find_if(std::begin(headings), std::end(headings),
                                               [&](const auto& heading) { return line.starts_with(heading.first); });
        if (found == std::end(headings)) return false;
        constexpr std::size_t blanks = 11;
        line.remove_prefix(found->first.size());
        const std::int64_t id = whole_number(take_identifier(line, 5)).value_or(0);
        const std::string_view title = without_blanks_behind(columns(line, blanks, 80));
        kind_ = found->second == SetKind::other ? kind_of_elements(id) : found->second;
        ++sets_;
        visitor_->set_begins(kind_, id, std::string(title));
        return true;
    }

    // The index names the sets in the order of this file.
    [[nodiscard]] SetKind kind_of_elements(std::int64_t id) const
    {
        if (sets_ >= index_->size() || (*index_)[sets_].id != id) return SetKind::other;
        const SetKind kind = (*index_)[sets_].kind;
        return kind == SetKind::shell || kind == SetKind::solid ? kind : SetKind::other;
    }

    void row(std::string_view row) const
    {
        constexpr std::size_t width = 10;
        if (sets_ == 0) return;
        std::array<std::int64_t, 4> member{};
        if (kind_ == SetKind::segment) {
            for (std::size_t i = 0; i < member.size(); ++i)
                member[i] = whole_number(columns(row, i * width, width)).value_or(0);
            return visitor_->set_member(member);
        }
        for (std::size_t begin = 0; begin < row.size(); begin += width) {
            member[0] = whole_number(columns(row, begin, width)).value_or(0);
            visitor_->set_member(member);
        }
    }

    ModelVisitor* visitor_;
    const std::vector<SetEntry>* index_;
    SetKind kind_ = SetKind::other;
    std::size_t sets_ = 0;  // so far
};
}  // namespace

void read_written(const fs::path& folder, const std::string& deck, ModelVisitor& visitor, const Pieces& pieces)
{
    const std::string base = base_name(deck);
    std::optional<MainDeck> main_deck;
    if (fs::exists(folder / (base + "card")) && (pieces.parts || pieces.sets))
        main_deck.emplace(folder / (base + "card"));
    if (main_deck && pieces.parts) main_deck->definitions().tell(visitor);
    if (fs::exists(folder / (base + "geom")) && (pieces.nodes || pieces.elements))
        Geometry(visitor, pieces).read(folder / (base + "geom"));
    if (!pieces.sets || !fs::exists(folder / (base + "sets"))) return;
    const std::vector<SetEntry> none;
    Sets(visitor, main_deck ? main_deck->sets() : none).read(folder / (base + "sets"));
}

}  // namespace report
