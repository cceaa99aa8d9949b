// Random models: check is silent about strict ones, and speaks where another spelling changes what is converted.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/check.h"
#include "check/formats.h"
#include "reader/control_flags.h"
#include "support/convert.h"
#include "support/models.h"
#include "support/process.h"
#include "support/random.h"
#include "support/styles.h"
#include "support/whole_run.h"

namespace models
{
namespace
{
namespace fs = std::filesystem;

// How many models are tried; MORVEX_MODELS asks for more.
std::uint32_t times(std::uint32_t usual)
{
    const char* const asked = std::getenv("MORVEX_MODELS");
    return asked == nullptr ? usual : static_cast<std::uint32_t>(std::atoi(asked));
}
constexpr std::uint32_t strict_models = 400;
constexpr std::uint32_t models_for_each_style = 12;
constexpr std::string_view main_deck = "model.k";

// Checks the files of a deck, with every output.
check::Result checked(const std::map<std::string, std::string>& files)
{
    const TemporaryFolder folder;
    for (const auto& [name, text] : files) {
        fs::create_directories(fs::path(name).parent_path() / ".");
        write_file(name, text);
    }
    check::Options options;
    options.all = true;
    for (std::size_t i = 0; i < control_flags.size(); ++i)
        options.settings.emplace_back(control_flags[i].name, every_output[i]);
    return check::check_deck(std::string(main_deck), options);
}

bool tells_of_misreading(const check::Finding& found)
{
    return found.severity == deck::Severity::error &&
           (found.code.starts_with("MD1") || found.code.starts_with("MD2") || found.code.starts_with("MD4"));
}

// The line of the next keyword behind a line; the text's end where there is none.
std::size_t block_end(const std::string& text, std::size_t from)
{
    std::size_t line = 0, at = 0;
    for (; at < text.size(); at = text.find('\n', at) + 1) {
        ++line;
        if (line > from && text[at] == '*') return line;
        if (text.find('\n', at) == std::string::npos) break;
    }
    return line + 1;
}

// True when something is told of the block in which the place is; of the whole deck, when that is its first block.
bool is_told(const check::Result& result, const SpelledDeck& spelled, const Place& place)
{
    constexpr std::size_t everything = static_cast<std::size_t>(-1);
    const bool whole_deck = place.block_line == 1;
    const std::size_t end = whole_deck ? everything : block_end(spelled.files.at(place.file), place.block_line);
    return std::any_of(result.findings.begin(), result.findings.end(), [&](const check::Finding& found) {
        const bool grave = found.severity == deck::Severity::error || found.code == "MD201" || found.code == "MD202";
        return grave && found.place.file == place.file && found.place.line >= place.block_line &&
               found.place.line <= end;
    });
}

std::string told(const check::Result& result)
{
    std::string lines;
    for (const check::Finding& found : result.findings) lines += check::text_line(found, 0, false) + "\n";
    return lines;
}
}  // namespace

TEST(StrictModels, HaveNoErrorFinding)
{
    for (std::uint32_t seed = 1; seed <= times(strict_models); ++seed) {
        const std::string deck = strict(random_model(seed));
        const check::Result result = checked({{std::string(main_deck), deck}});
        const auto wrong = std::find_if(result.findings.begin(), result.findings.end(), tells_of_misreading);
        ASSERT_EQ(wrong, result.findings.end()) << "seed " << seed << ": " << check::text_line(*wrong, 0, false) << "\n"
                                                << deck;
    }
}

class OtherSpelling : public testing::TestWithParam<std::size_t>
{
};

TEST_P(OtherSpelling, IsToldWhereItChangesWhatIsConverted)
{
    const Style& style = styles()[GetParam()];
    const std::uint32_t most = times(models_for_each_style);
    std::uint32_t changed = 0;
    for (std::uint32_t seed = 1; changed < most && seed <= 20 * most; ++seed) {
        Random random(seed);
        const std::optional<SpelledDeck> spelled = spell(style, random_model(seed), random);
        if (!spelled) continue;
        const std::string& deck = spelled->files.at(spelled->main_deck);
        const bool same = run_whole(deck).same_model(run_whole(strict(spelled->strict)));
        if (same) continue;
        ++changed;
        const check::Result result = checked(spelled->files);
        const bool one = std::any_of(spelled->places.begin(), spelled->places.end(), [&](const Place& place) {
            return place.file == main_deck && is_told(result, *spelled, place);
        });
        ASSERT_TRUE(one) << style.name << ", seed " << seed << ", line "
                         << (spelled->places.empty() ? 0 : spelled->places.front().line) << "\n"
                         << told(result) << deck;
    }
    EXPECT_TRUE(changed > 0 || !style.misread) << style.name;
}

INSTANTIATE_TEST_SUITE_P(Styles, OtherSpelling, testing::Range<std::size_t>(0, styles().size()));
}  // namespace models
