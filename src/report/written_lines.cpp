#include "report/written_lines.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

#include "deck/fault.h"
#include "deck/keyword_line.h"

namespace report
{

namespace
{
std::ifstream opened(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw deck::Fault(file.string() + ": it cannot be read");
    return stream;
}

// ---- from characters to lines --------------------------------------------------------------------------------------

// Counts lines by going on from place to place.
class LineCounter
{
public:
    explicit LineCounter(const std::filesystem::path& file) : stream_(opened(file)), window_(1 << 18) {}

    // The line that the character is in, from 1. The places must not go back.
    std::size_t line_of(std::uint64_t place)
    {
        while (at_ < place) {
            if (at_ == window_end_ && !fill()) break;
            const char* const begin = window_.data() + (at_ - window_begin_);
            const auto count = static_cast<std::size_t>(std::min(place, window_end_) - at_);
            lines_ += static_cast<std::size_t>(std::count(begin, begin + count, '\n'));
            at_ += count;
        }
        return lines_ + 1;
    }

private:
    bool fill()
    {
        stream_.read(window_.data(), static_cast<std::streamsize>(window_.size()));
        window_begin_ = window_end_;
        window_end_ += static_cast<std::uint64_t>(stream_.gcount());
        return window_end_ > window_begin_;
    }

    std::ifstream stream_;
    std::vector<char> window_;
    std::uint64_t window_begin_ = 0;
    std::uint64_t window_end_ = 0;
    std::uint64_t at_ = 0;
    std::size_t lines_ = 0;
};

// ---- lines of settings ---------------------------------------------------------------------------------------------

bool dumps(const RunSettings& settings)
{
    return settings.dump_cycles != 0;
}

bool writes_running_restarts(const RunSettings& settings)
{
    return settings.rsf_cycles != 0;
}

// A title of 45 characters brings its newline along.
bool title_ends_a_line(const RunSettings& settings)
{
    return std::string_view(settings.title).ends_with('\n');
}

constexpr SettingLine setting_line_table[] = {
    {" Title                       :", 0, "titlecard"},
    {" Title                       :", 1, "titlecard", title_ends_a_line},
    {" Solution Type                  :", 0, "csolution"},
    {"!Max time step                  :", 0, "tstep"},
    {" Time history frequency         :", 0, "database"},
    {" Restart frequency              :", 0, "database_dump"},
    {" Restart frequency              :", 0, "database", dumps},
    {" Running restart frequency      :", 0, "database_runrsf"},
    {" Running restart frequency      :", 0, "database", writes_running_restarts},
    {"!Global contact penalty scale factor   :", 0, "ccontact"},
    {" Hourglass stabilization method        :", 0, "chourglass"},
    {" Hourglass stabilization coefficient   :", 0, "chourglass"},
    {" Bulk viscosity type for shock capture :", 0, "cviscosity"},
    {" Quadratic bulk viscosity coefficient  :", 0, "cviscosity"},
    {" Linear bulk viscosity coefficient     :", 0, "cviscosity"},
    {"!Smoothing length                     :", 0, "csph"},
    {" SPH deactivation:", 2, "csph"},
    {" SPH deactivation velocity:", 2, "csph"},
    {" SPH deactivation timestep:", 2, "csph"},
    {"!SPH deactivation density:", 2, "csph"},
    {"!SPH deactivation pressure:", 2, "csph"},
    {"!SPH deactivation energy:", 2, "csph"},
};

constexpr std::string_view own_particle_line = "initial guess of number of particle in each processor";

class SettingLines
{
public:
    SettingLines(const Account& account, std::vector<BlockLines>& lines) : account_(&account), lines_(&lines) {}

    // A line that no block has made by itself.
    void take(std::string_view text, std::size_t number)
    {
        if (account_->particle_count_at() != 0 && text.starts_with(particle_count_label)) {
            for (BlockNumber block = 0; block < account_->blocks().size(); ++block)
                if (const auto& ran = account_->blocks()[block].procedures;
                    std::find(ran.begin(), ran.end(), "esph") != ran.end())
                    lines_->push_back({block, number, number});
            if (text.find(own_particle_line) == std::string_view::npos)
                for (const std::size_t line : {number, number + 2}) add(account_->last_of("csph"), line);
        }
        if (text.empty() || (text[0] != ' ' && text[0] != '!')) return;
        for (std::size_t i = 0; i < std::size(setting_line_table); ++i) {
            const SettingLine& line = setting_line_table[i];
            if (met_[i] || !text.starts_with(line.label)) continue;
            met_[i] = true;
            if (line.only_if == nullptr || line.only_if(account_->settings()))
                add(account_->last_of(line.procedure), number + line.below);
        }
    }

private:
    void add(BlockNumber block, std::size_t number)
    {
        if (block != no_block) lines_->push_back({block, number, number});
    }

    const Account* account_;
    std::vector<BlockLines>* lines_;
    bool met_[std::size(setting_line_table)] = {};
};

void add_setting_lines(const std::filesystem::path& file, const Account& account, std::vector<BlockLines>& lines)
{
    std::vector<BlockLines> found;
    SettingLines settings(account, found);
    std::ifstream stream = opened(file);
    std::string text;
    auto next = lines.begin();
    for (std::size_t number = 1; std::getline(stream, text); ++number) {
        while (next != lines.end() && next->last < number) ++next;
        if (next == lines.end() || number < next->first) settings.take(text, number);
    }
    lines.insert(lines.end(), found.begin(), found.end());
    std::stable_sort(lines.begin(), lines.end(),
                     [](const BlockLines& one, const BlockLines& other) { return one.first < other.first; });
}

// ---- the debug log -------------------------------------------------------------------------------------------------

// sic: the log has it among the unused variables, and the failure definition holds it.
bool is_written_after_all(const Account::Block& block, std::string_view field)
{
    return field == "fs" &&
           std::find(block.procedures.begin(), block.procedures.end(), "matplastickinematic") != block.procedures.end();
}

// "      grav:         1 . . . Changed to 0": a field, and what became of it.
void take_field(std::string_view line, const Account::Block& block, Logged& logged)
{
    constexpr std::string_view dots = " . . . ";
    constexpr std::size_t name_width = 10;
    if (line.size() <= name_width) return;
    const std::size_t colon = line.find(':', name_width);
    if (colon == std::string_view::npos || colon + 1 == line.size()) return;
    const std::string name(deck::trimmed(line.substr(0, colon)));
    if (name.find(' ') != std::string::npos) return;
    const std::size_t remark = line.find(dots, colon);
    const std::string_view said = remark == std::string_view::npos ? "" : line.substr(remark + dots.size());
    const std::string value(
        deck::trimmed(line.substr(colon + 1, remark == std::string_view::npos ? remark : remark - colon - 1)));
    if (said.starts_with("Chang"))
        logged.replaced.push_back({name, value, std::string(said)});
    else if (!said.starts_with("Applied") && std::strtod(value.c_str(), nullptr) != 0 &&
             !is_written_after_all(block, name))
        logged.unused.push_back({name, value});
}

void take_log(std::string_view text, const Account::Block& block, Logged& logged)
{
    while (!text.empty()) {
        const std::size_t newline = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, newline);
        text.remove_prefix(std::min(newline + 1, text.size()));
        if (line.starts_with('*') && line.find(" . . . ") != std::string_view::npos) {
            ++logged.groups;
            if (line.ends_with("skipped")) ++logged.refused;
        } else if (line.starts_with("CONWEP only available")) {
            ++logged.refused;
        } else if (logged.groups > 0) {
            take_field(line, block, logged);
        }
    }
}
}  // namespace

std::span<const SettingLine> setting_lines()
{
    return setting_line_table;
}

std::vector<BlockLines> written_lines(const std::filesystem::path& file, const Account& account, Output output)
{
    std::vector<BlockLines> lines;
    LineCounter counter(file);
    for (const Account::Part& part : account.parts(output)) {
        const std::size_t first = counter.line_of(part.begin);
        lines.push_back({part.block, first, counter.line_of(part.end - 1)});
    }
    if (output == Output::main_deck) add_setting_lines(file, account, lines);
    return lines;
}

std::vector<Logged> logged_of(const std::filesystem::path& log, const Account& account)
{
    std::vector<Logged> logged(account.blocks().size());
    std::ifstream stream = opened(log);
    std::string text;
    std::uint64_t at = 0;
    for (const Account::Part& part : account.log()) {
        if (part.begin != at) stream.seekg(static_cast<std::streamoff>(part.begin));
        text.resize(static_cast<std::size_t>(part.end - part.begin));
        if (!stream.read(text.data(), static_cast<std::streamsize>(text.size())))
            throw deck::Fault(log.string() + ": it cannot be read");
        at = part.end;
        take_log(text, account.blocks()[part.block], logged[part.block]);
    }
    return logged;
}

}  // namespace report
