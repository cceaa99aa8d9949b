#include "report/account.h"

#include <algorithm>

#include "loading/loading.h"

namespace report
{

namespace
{
const OutputStream* stream_of(std::size_t output)
{
    constexpr const OutputStream* streams[] = {&inpfile, &geomfile, &setfile, &accelfile};
    return streams[output];
}

const char* name_of(std::size_t output)
{
    const char* const names[] = {file_names.card, file_names.geom, file_names.sets, accel_file_name};
    return names[output];
}
}  // namespace

Account::Account() : pass_ends_(check::passes().size())
{
}

BlockNumber Account::last_of(std::string_view procedure) const
{
    const auto found = last_of_.find(procedure);
    return found == last_of_.end() ? no_block : found->second;
}

// ---- passes --------------------------------------------------------------------------------------------------------

// What the run forgets at its end.
void Account::take_surroundings()
{
    for (std::size_t i = 0; i < output_count; ++i)
        if (names_[i].empty() && stream_of(i)->is_open()) names_[i] = name_of(i);
    settings_ = run_settings;
    if (cardflag == 1 && sphflag == 1 && comprehensive()) particle_count_at_ = particle_count_position;
}

void Account::reads_deck(bool deck)
{
    deck_ = deck;
    take_surroundings();
    if (!blocks_.empty()) return;
    KeywordIndex::Place place;
    for (auto begin = deck_index.find(0, place); begin; begin = deck_index.find(*begin + 1, place))
        blocks_.push_back({*begin, false, false, {}});
}

void Account::pass_begins(const Pass& pass)
{
    take_surroundings();
    pass_ = check::index_of(pass);
}

// The block in which the position is, keyword line included; no_block before the first and behind the deck's end.
BlockNumber Account::block_of(Position position) const
{
    if (position >= deck_source.size()) return no_block;
    const auto next = std::upper_bound(blocks_.begin(), blocks_.end(), position,
                                       [](Position place, const Block& block) { return place < block.begin; });
    return next == blocks_.begin() ? no_block : static_cast<BlockNumber>(next - blocks_.begin() - 1);
}

void Account::keyword_line(Position begin)
{
    if (row_ != nullptr) return;  // a look-up
    const bool behind = !deck_ && begin >= copy_source.size();
    loaded_at_ = behind ? deck_source.size() : deck_ ? begin : copy_map_.to_deck(begin);
    loaded_ = block_of(loaded_at_);
}

// ---- rows ----------------------------------------------------------------------------------------------------------

Account::Positions Account::positions()
{
    return {{inpfile.position(), geomfile.position(), setfile.position(), accelfile.position()}, outfile.position()};
}

void Account::row_begins(const PassRow* row)
{
    if (loaded_ != no_block) blocks_[loaded_].reached = true;
    if (row == nullptr) return;
    if (row->action.treatment == Treatment::end_of_pass) {
        if (pass_ < pass_ends_.size()) pass_ends_[pass_] = loaded_at_;
        if (check::passes()[pass_].pass == &contact_keywords && counts.tied_nodes > 0) {
            // the contact section ends ties with an empty line
            const std::uint64_t behind = inpfile.position();
            parts_[0].push_back({last_of("surfcon2tnodes"), behind, behind + 1});
        }
        return;
    }
    row_ = row;
    began_ = positions();
}

void Account::add_procedure(std::string_view procedure)
{
    std::vector<std::string_view>& known = blocks_[loaded_].procedures;
    if (std::find(known.begin(), known.end(), procedure) == known.end()) known.push_back(procedure);
    last_of_[procedure] = loaded_;
}

void Account::row_ends()
{
    const PassRow* const row = row_;
    row_ = nullptr;
    if (row == nullptr || row->action.treatment != Treatment::converted || loaded_ == no_block) return;
    blocks_[loaded_].converted = true;
    add_procedure(row->action.procedure);
    const Positions ended = positions();
    for (std::size_t i = 0; i < output_count; ++i)
        if (ended.outputs[i] != began_.outputs[i]) parts_[i].push_back({loaded_, began_.outputs[i], ended.outputs[i]});
    if (ended.log != began_.log) log_.push_back({loaded_, began_.log, ended.log});
}

}  // namespace report
