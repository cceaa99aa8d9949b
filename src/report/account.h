// Who watches the real run: which lines of which output each keyword block of the converted deck has made.
//
//     Account account;
//     observer = &account;       // before begin_conversion()
//     begin_conversion(); convert_deck();
//     observer = nullptr;
//
// The run writes real files; make_ledger() reads them once they are closed. Nothing here depends on the streams any
// more after convert_deck().
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "check/passes.h"
#include "check/watch.h"
#include "reader/observer.h"
#include "reader/run.h"

namespace report
{

enum class Output : std::uint8_t { main_deck, geometry, sets, accelerometers };
inline constexpr std::size_t output_count = 4;

// A keyword line of the converted deck, by its place among them.
using BlockNumber = std::uint32_t;
inline constexpr BlockNumber no_block = static_cast<BlockNumber>(-1);

class Account final : public Observer
{
public:
    struct Block {
        Position begin = 0;    // of its keyword line, in the deck
        bool reached = false;  // by any pass
        bool converted = false;
        std::vector<std::string_view> procedures;  // that ran for it, each once
    };
    // Characters of an output or of the debug log, and the block that they were written for.
    struct Part {
        BlockNumber block = no_block;
        std::uint64_t begin = 0;
        std::uint64_t end = 0;
    };

    // In the deck's order.
    [[nodiscard]] const std::vector<Block>& blocks() const { return blocks_; }
    // In the order in which they were written.
    [[nodiscard]] const std::vector<Part>& parts(Output output) const
    {
        return parts_[static_cast<std::size_t>(output)];
    }
    [[nodiscard]] const std::vector<Part>& log() const { return log_; }
    // The block for which the procedure ran last; no_block when it did not.
    [[nodiscard]] BlockNumber last_of(std::string_view procedure) const;
    // Where a pass has ended, in the deck; the deck's beginning for one that did not run. As in check::passes().
    [[nodiscard]] const std::vector<Position>& pass_ends() const { return pass_ends_; }
    // As the control pass left them.
    [[nodiscard]] const RunSettings& settings() const { return settings_; }
    // The name of an output; empty when the run did not write it.
    [[nodiscard]] const std::string& name(Output output) const { return names_[static_cast<std::size_t>(output)]; }
    // Where the number of particles stands in the main deck; 0 when it does not.
    [[nodiscard]] std::uint64_t particle_count_at() const { return particle_count_at_; }

    Account();
    void copies(Position deck, Position copy) override { copy_map_.add(deck, copy); }
    void reads_deck(bool deck) override;
    void pass_begins(const Pass& pass) override;
    void keyword_line(Position begin) override;
    void row_begins(const PassRow* row) override;
    void row_ends() override;
    void field(const FieldRead&) override {}
    void text_read(Position, Position) override {}

private:
    struct Positions {
        std::array<std::uint64_t, output_count> outputs{};
        std::uint64_t log = 0;
    };

    static Positions positions();
    void take_surroundings();
    void add_procedure(std::string_view procedure);
    [[nodiscard]] BlockNumber block_of(Position position) const;

    std::vector<Block> blocks_;
    std::array<std::vector<Part>, output_count> parts_;
    std::vector<Part> log_;
    std::map<std::string_view, BlockNumber> last_of_;
    std::vector<Position> pass_ends_;
    RunSettings settings_{};
    std::array<std::string, output_count> names_;
    std::uint64_t particle_count_at_ = 0;

    check::CopyMap copy_map_;
    bool deck_ = false;
    std::size_t pass_ = 0;
    BlockNumber loaded_ = no_block;  // the keyword line that was loaded last
    Position loaded_at_ = 0;
    const PassRow* row_ = nullptr;  // that runs
    Positions began_{};
};

}  // namespace report
