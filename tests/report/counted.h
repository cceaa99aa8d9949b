// A deck converted inside the test's own process, and counted on both sides.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "report/counter.h"
#include "support/convert.h"
#include "support/whole_run.h"

// The outputs of a run as files model.card, model.geom and model.sets.
inline void write_outputs(const std::filesystem::path& folder, const RunOutputs& outputs,
                          const RunFlags& flags = every_output)
{
    if (flags[0] == 1) write_file(folder / "model.card", outputs.deck);
    if (flags[1] == 1) write_file(folder / "model.sets", outputs.sets);
    if (flags[2] == 1) write_file(folder / "model.geom", outputs.geometry);
}

// Of a deck that is one text.
inline report::Count counted_deck(std::string_view deck)
{
    const TemporaryName folder;
    write_file(folder.path() / "model.k", deck);
    return report::count_deck(folder.path() / "model.k");
}

inline report::Count counted_outputs(const RunOutputs& outputs, const RunFlags& flags = every_output)
{
    const TemporaryName folder;
    write_outputs(folder.path(), outputs, flags);
    return report::count_written(folder.path(), "model.k");
}

// A line each.
inline std::string text_of(const std::vector<std::string>& sentences)
{
    std::string text;
    for (const std::string& sentence : sentences) text += sentence + "\n";
    return text;
}

// What differs between a deck and what is written of it.
inline std::string conversion_differences(const std::string& deck)
{
    return text_of(report::differences(counted_deck(deck), counted_outputs(run_whole(deck))));
}

// The same for a deck in a file, which may name others.
inline std::string conversion_differences(const std::filesystem::path& deck)
{
    return text_of(report::differences(report::count_deck(deck), counted_outputs(run_whole(contents(deck)))));
}
