// A conversion made by hand, to make pages of.
#pragma once

#include <filesystem>
#include <string>

#include "report/ledger.h"

// A ledger of some blocks of every outcome, with findings, counts and two curves. The files that it tells of are
// written into `folder`: the deck that was converted, and the main deck.
report::Ledger sample_ledger(const std::filesystem::path& folder);

// The same, but each text that a deck's author chooses is `text`.
report::Ledger hostile_ledger(const std::filesystem::path& folder, const std::string& text);

// The same, with as many small blocks more.
report::Ledger long_ledger(const std::filesystem::path& folder, std::size_t blocks);
