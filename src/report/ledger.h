// The ledger of a conversion: what became of every keyword block of a deck, and what the model counts on both sides.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/finding.h"
#include "report/count.h"

namespace report
{

// What became of a block. Each block has one of them.
enum class Outcome : std::uint8_t { converted, skipped, passed_over, not_known, after_the_end };

// As the ledger writes it: "passed over".
std::string_view words(Outcome outcome);

// Lines of an output, from 1, first and last included.
struct Lines {
    std::string file;
    std::size_t first = 0;
    std::size_t last = 0;

    bool operator==(const Lines&) const = default;
};

// A field that was read, was not zero, and is not in the output.
struct Unused {
    std::string field;
    std::string value;  // as the debug log shows it
};

// A field whose value the output has otherwise.
struct Replaced {
    std::string field;
    std::string value;
    std::string by;  // the log's words: "Changed to 1 for Kestrune input"
};

// A keyword block where its author wrote it: in the deck or in a file that it includes.
struct Block {
    std::string file;  // as findings show it
    std::size_t line = 0;
    std::size_t last_line = 0;
    std::string keyword;    // "*MAT_ELASTIC_TITLE", upper case, without what stands behind it
    std::string procedure;  // that made its lines: "solidcard"; "prepare" when it was taken in by preparing the deck
    Outcome outcome = Outcome::not_known;
    std::vector<Lines> output;  // by file, in the order of the outputs
    std::vector<Unused> unused;
    std::vector<Replaced> replaced;
    std::vector<std::size_t> findings;  // in Ledger::findings
    std::size_t prepared_line = 0;      // of the deck that was converted; 0 when it is not in there
    std::size_t prepared_last_line = 0;
};

struct File {
    std::string name;  // in the folder, or as findings show it
    std::string role;  // "deck", "include file", "prepared deck", "main deck", "geometry", ...
    std::uint64_t size = 0;
    std::string sha256;
};

struct Ledger {
    std::string deck;  // its name in the folder, which is the user's name for it but for what no control file can hold
    bool prepared = true;
    std::vector<std::pair<std::string, int>> settings;
    std::vector<File> files;
    std::vector<Block> blocks;              // in the order in which they are read, include files in place
    std::vector<check::Finding> findings;   // of the converted deck, then what preparing could not carry
    std::size_t findings_of_converted = 0;  // how many are of the converted deck, with places in it; the others have
                                            // places in the user's files
    Count in;                               // counted from the deck that was converted
    Count out;                              // counted again from the written files
    std::vector<std::string> faults;        // what its audit found: see faults() in make_ledger.h
};

// What does not agree, a sentence each: counts of both sides, what the ledger's audit found, and what a conversion
// cannot do without.
std::vector<std::string> disagreements(const Ledger& ledger);

enum class Verdict : std::uint8_t { whole, with_losses, not_usable };

// Not usable: something disagrees. With losses: an error, a warning, or a
// block that was skipped, passed over or not known, unless all that is said of it are notes.
Verdict verdict(const Ledger& ledger);

// Blocks by outcome, in the order of the outcomes, and how many there are.
struct Totals {
    std::size_t by_outcome[5] = {};
    std::size_t blocks = 0;
};
Totals totals(const Ledger& ledger);

// True when what the block says is missing in the solver's deck, and nobody has called that harmless.
bool is_lost(const Ledger& ledger, const Block& block);

// The ledger as JSON ("schema": 1), the same bytes on every machine; a line for each file, finding and block.
void write_json(std::ostream& stream, const Ledger& ledger);

}  // namespace report
