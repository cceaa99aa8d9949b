// A ledger that is wrong in one place is told to be.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "accounted.h"
#include "support/models.h"
#include "support/random.h"

namespace fs = std::filesystem;

namespace
{
using report::Ledger;

// A conversion whose ledger closes, and which can be spoilt.
class Mutants : public testing::TestWithParam<std::uint32_t>
{
protected:
    Mutants()
    {
        write_file("model.k", models::strict(models::random_model(GetParam())));
        ledger_ = account_for("model.k", "out");
    }

    [[nodiscard]] bool is_caught(const Ledger& ledger) const { return !faults(ledger, "out", "model.k", true).empty(); }

    TemporaryFolder folder_;
    Ledger ledger_;
};

TEST_P(Mutants, NoneAsItIs)
{
    EXPECT_FALSE(is_caught(ledger_));
}

TEST_P(Mutants, ABlockIsMissing)
{
    for (std::size_t i = 0; i < ledger_.blocks.size(); ++i) {
        Ledger mutant = ledger_;
        mutant.blocks.erase(mutant.blocks.begin() + static_cast<std::ptrdiff_t>(i));
        EXPECT_TRUE(is_caught(mutant)) << ledger_.blocks[i].keyword;
    }
}

TEST_P(Mutants, ABlockIsThereTwice)
{
    for (const report::Block& block : ledger_.blocks) {
        Ledger mutant = ledger_;
        mutant.blocks.push_back(block);
        EXPECT_TRUE(is_caught(mutant)) << block.keyword;
    }
}

TEST_P(Mutants, LinesAreMissing)
{
    for (std::size_t i = 0; i < ledger_.blocks.size(); ++i)
        for (std::size_t j = 0; j < ledger_.blocks[i].output.size(); ++j) {
            const report::Lines& lines = ledger_.blocks[i].output[j];
            Ledger mutant = ledger_;
            mutant.blocks[i].output.erase(mutant.blocks[i].output.begin() + static_cast<std::ptrdiff_t>(j));
            EXPECT_TRUE(is_caught(mutant)) << ledger_.blocks[i].keyword << " " << lines.file << ":" << lines.first;
        }
}

TEST_P(Mutants, OneLineIsMissing)
{
    for (std::size_t i = 0; i < ledger_.blocks.size(); ++i)
        for (std::size_t j = 0; j < ledger_.blocks[i].output.size(); ++j)
            for (const bool at_end : {false, true}) {
                Ledger mutant = ledger_;
                report::Lines& lines = mutant.blocks[i].output[j];
                if (at_end)
                    --lines.last;
                else
                    ++lines.first;
                EXPECT_TRUE(is_caught(mutant))
                    << ledger_.blocks[i].keyword << " " << lines.file << ":" << lines.first << "-" << lines.last;
            }
}

TEST_P(Mutants, ALineTooMany)
{
    for (std::size_t i = 0; i < ledger_.blocks.size(); ++i)
        for (std::size_t j = 0; j < ledger_.blocks[i].output.size(); ++j) {
            Ledger mutant = ledger_;
            report::Lines& lines = mutant.blocks[i].output[j];
            ++lines.last;
            EXPECT_TRUE(is_caught(mutant))
                << ledger_.blocks[i].keyword << " " << lines.file << ":" << lines.first << "-" << lines.last;
        }
}

INSTANTIATE_TEST_SUITE_P(Models, Mutants, testing::Range(0U, 12U));
}  // namespace
