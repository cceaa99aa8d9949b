// A deck with all its files as one sequence of blocks.
//
//     deck::DeckReader reader("model.k", report);
//     while (reader.next_block()) {
//         const deck::Block& block = reader.block();
//         for (deck::Line line; reader.next_line(line);) ...
//     }
//
// Every line of every file is delivered once, in the order in which the deck means them: the lines of an included file
// stand behind the *INCLUDE block that names it. A byte-for-byte copy of a file is the keyword line and the lines of
// all its blocks, each with its line end.
//
// Memory is flat: a block's lines stream. What a block means to the reading itself (*INCLUDE and its kin, *PARAMETER,
// *KEYWORD, *DEFINE_TRANSFORMATION, *END) is taken in as its lines go by, also when nobody asks for them.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "deck/fault.h"
#include "deck/include.h"
#include "deck/keyword_line.h"
#include "deck/line_file.h"
#include "deck/parameters.h"
#include "deck/transformation.h"

namespace deck
{

// A file of the deck.
struct SourceFile {
    std::filesystem::path path;  // that opens it
    std::string name;            // as findings show it: relative to the main deck's folder, "/" between folders
    FileNumber included_from = 0;
    std::size_t included_at = 0;      // the line that names it, and the columns of the name there (from 1, and behind
    std::size_t included_column = 0;  // its last character); 0 for the main deck
    std::size_t included_end_column = 0;
    ContentChange change{};  // by *INCLUDE_TRANSFORM, those of the files around it included
};

// The head of a block.
struct Block {
    KeywordLine keyword;  // its name is empty for lines before a file's first keyword line
    FileNumber file = 0;
    std::size_t line = 0;  // of the keyword line; of the first line where there is none
    bool carriage_return = false;
    bool newline = true;
    Format format = Format::standard;
    IncludeKind include = IncludeKind::none;
    bool ends_file = false;  // *END: the lines of this block are those that stand behind it and mean nothing
};

// A line that is kept.
struct HeldLine {
    std::string text;
    FileNumber file = 0;
    std::size_t number = 0;
    bool carriage_return = false;
    bool newline = true;
};

// A block with its lines.
struct HeldBlock {
    Block head;
    std::vector<HeldLine> lines;
    bool complete = true;  // false when there are more than were held: they can still be read from the reader
};

struct ReaderLimits {
    std::size_t depth = 1000;         // of files in files
    std::size_t inclusions = 100000;  // altogether
};

class DeckReader
{
public:
    // `report` gets MD122 (missing, cyclic, unreadable, too deep), MD123, MD124 and MD402 (of parameters). Throws Fault
    // when the main deck cannot be read;.
    explicit DeckReader(const std::filesystem::path& main_deck, Report report, ReaderLimits limits = {});
    ~DeckReader();
    DeckReader(const DeckReader&) = delete;
    DeckReader& operator=(const DeckReader&) = delete;

    // Goes on to the next block, past the lines of this one that nobody has read; false at the deck's end.
    bool next_block();

    // The head of the present block. It lasts until the next call of next_block().
    [[nodiscard]] const Block& block() const;

    // The next line of the present block, comments included; false at the block's end. The view lasts until the next
    // call of anything.
    bool next_line(Line& line);

    // The number in its file of the last line that has been read of the present block.
    [[nodiscard]] std::size_t last_line() const;

    // The present block with what has not been read of it, at most `most` lines.
    HeldBlock hold(std::size_t most = static_cast<std::size_t>(-1));

    // The files that have been met so far; number 0 is the main deck.
    [[nodiscard]] const std::vector<SourceFile>& files() const;
    [[nodiscard]] const SourceFile& file(FileNumber number) const { return files()[number]; }

    // The parameters as they are known at the present line.
    [[nodiscard]] const Parameters& parameters() const;

    // A place for findings.
    [[nodiscard]] Place place(FileNumber number, std::size_t line, std::size_t column = 0,
                              std::size_t end_column = 0) const;

private:
    class Tree;
    std::unique_ptr<Tree> tree_;
};

}  // namespace deck
