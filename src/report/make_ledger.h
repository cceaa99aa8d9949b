// From a conversion that is over to its ledger.
//
//     Origins origins;
//     summary = preparation.write(stream, {.origin = origins.taker()});
//     Account account;                       // the run's observer, see account.h
//     ...                                    // the run, in `folder`, its files closed; then reset_run()
//     Ledger ledger = make_ledger(account, {.deck = deck, .folder = folder, .name = name, .settings = settings,
//                                           .origins = &origins, .not_carried = &summary.not_carried,
//                                           .sources = &preparation.files()});
//     ledger.in = ...; ledger.out = ...;     // counts are the caller's
//     ...                                    // write_json
//     faults(ledger, folder, deck)           // each a sentence; none when the ledger closes
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "deck/deck_reader.h"
#include "driver/control_file.h"
#include "prepare/prepare.h"
#include "report/account.h"
#include "report/ledger.h"

namespace report
{

// What preparing a deck has told of its keyword lines.
class Origins
{
public:
    struct Line {
        std::size_t block = 0;  // as prepare::Origin has it
        std::size_t file = 0;   // in files()
        std::size_t line = 0;
        std::size_t last_line = 0;
        std::string keyword;
        prepare::Origin::Fate fate = prepare::Origin::Fate::written;
        std::size_t first_in_output = 0;
        std::size_t last_in_output = 0;
    };

    void take(const prepare::Origin& origin);

    // What prepare::Options::origin wants; this must outlive its use.
    prepare::OriginReport taker()
    {
        return [this](const prepare::Origin& origin) { take(origin); };
    }

    // In the order in which the deck is read.
    [[nodiscard]] std::vector<Line> lines() const;
    [[nodiscard]] const std::vector<std::string>& files() const { return files_; }

private:
    std::vector<Line> lines_;
    std::vector<std::string> files_;
    std::unordered_map<std::string, std::size_t> numbers_;  // of the files
};

struct Conversion {
    std::filesystem::path deck;    // the user's
    std::filesystem::path folder;  // with the converted deck, the control file and the outputs
    std::string name;              // of the converted deck, in the folder
    ControlFile settings;          // of the run
    // Of preparing; null when the deck was converted as it is.
    const Origins* origins = nullptr;
    const std::vector<std::pair<check::Finding, std::size_t>>* not_carried = nullptr;
    const std::vector<deck::SourceFile>* sources = nullptr;
};

// The ledger but for the counts. Checks the converted deck, for which it takes the run of the process and leaves it as
// it is before a run. Throws deck::Fault when a file cannot be read, or the account is that of another deck.
//
// Readings: *KEYWORD and the deck's *END are converted, by nobody, and make no line. What serves preparing alone
// (*INCLUDE and its kin, *PARAMETER, *DEFINE_TRANSFORMATION, *KEYWORD and *END of include files) is converted by
// "prepare"; without preparing it is not known. A handler that has refused each of a block's cards, or has no form to
// write them in, has skipped the block. Values that are collected, and for which the settings want no line, are passed
// over (*CONTROL_HOURGLASS in a concise deck); those that a later block has overridden are converted, and have no line.
// A block behind a keyword line that has ended its pass is after the end, too; one that was read as a card of the block
// before it is skipped. *COMMENT is passed over, and no loss.
Ledger make_ledger(const Account& account, const Conversion& conversion);

// What is wrong with a ledger, held against the files themselves: `folder` as above, and the user's deck. Empty when
// each keyword line of the deck and of the converted deck is in it once, the outcomes add up, each output line is that
// of a block or stands in every conversion with these settings, and the files have their sizes and, `with_sums`, their
// checksums, which takes as long as all else. Converts an empty deck: takes the run of the process and leaves it as it
// is before a run.
std::vector<std::string> faults(const Ledger& ledger, const std::filesystem::path& folder,
                                const std::filesystem::path& deck, bool with_sums = false);

}  // namespace report
