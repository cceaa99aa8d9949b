// The page of a conversion that was made by hand: what stands in its source. How it looks and works is the browser's
// tests.
#include "report/page.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "report/by_hand.h"
#include "report/curves.h"
#include "report/page_data.h"
#include "report/sample_ledger.h"
#include "support/convert.h"

using namespace report;
using Json = nlohmann::json;

namespace
{
std::string page_of(const Ledger& ledger)
{
    std::ostringstream stream;
    write_page(stream, ledger, {}, ".");
    return stream.str();
}

std::string between(const std::string& text, const std::string& begin, const std::string& end)
{
    const std::size_t from = text.find(begin);
    if (from == std::string::npos) return "not there: " + begin;
    return text.substr(from + begin.size(), text.find(end, from + begin.size()) - from - begin.size());
}

Json data_of(const std::string& page, const std::string& id)
{
    return Json::parse(between(page, "<script type=\"application/json\" id=\"" + id + "\">", "</script>"));
}

std::size_t times(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

Json ledger_data(const Ledger& ledger, const PageLimits& limits)
{
    std::ostringstream stream;
    write_ledger_data(stream, ledger, limits);
    return Json::parse(stream.str());
}

Json details_data(const Ledger& ledger, const PageLimits& limits = {})
{
    std::ostringstream stream;
    write_details_data(stream, ledger, ".", limits);
    return Json::parse(stream.str());
}
}  // namespace

TEST(Page, TitleSaysWhatItIsAbout)
{
    const TemporaryFolder folder;
    const std::string page = page_of(sample_ledger("."));
    EXPECT_EQ("bar.k: converted with losses", between(page, "<title>", "</title>"));
    Ledger unusable = sample_ledger(".");
    unusable.out.nodes = 1;
    EXPECT_EQ("bar.k: not usable", between(page_of(unusable), "<title>", "</title>"));
    Ledger whole = sample_ledger(".");
    whole.findings.clear();
    whole.blocks.resize(1);
    EXPECT_EQ("bar.k: converted whole", between(page_of(whole), "<title>", "</title>"));
}

TEST(Page, AsksNobodyForAnything)
{
    const TemporaryFolder folder;
    const std::string page = page_of(sample_ledger("."));
    EXPECT_EQ(std::string::npos, page.find("<link rel=\"stylesheet\""));
    EXPECT_EQ(std::string::npos, page.find("<script src"));
    EXPECT_EQ(std::string::npos, page.find("@import"));
    EXPECT_NE(std::string::npos, page.find("default-src 'none'"));
    EXPECT_NE(std::string::npos, page.find("Copyright © 2010-2017 three.js authors"));
}

TEST(Page, TextsOfTheDeckAreNeverMarkup)
{
    const TemporaryFolder folder;
    const std::string hostile = "</script></title><script>alert(1)</script><!--";
    const std::string page = page_of(hostile_ledger(".", hostile));
    const std::string plain = page_of(sample_ledger("."));
    EXPECT_EQ(std::string::npos, page.find("<script>alert"));
    for (const char* const mark : {"<script", "</script", "<!--", "</title"})
        EXPECT_EQ(times(plain, mark), times(page, mark)) << mark;
    EXPECT_EQ(hostile, data_of(page, "ledger")["deck"]);
    EXPECT_EQ(hostile, data_of(page, "ledger")["in"]["parts"][0]["title"]);
}

TEST(Page, SameConversionGivesTheSameBytes)
{
    const TemporaryFolder folder;
    EXPECT_EQ(page_of(sample_ledger(".")), page_of(sample_ledger(".")));
}

TEST(PageData, RowsOpenToCardsAndLines)
{
    const TemporaryFolder folder;
    const Json details = details_data(sample_ledger("."));
    EXPECT_EQ(Json::parse(R"([["bar.k", 13, ["*DAMPING_GLOBAL", "         0       0.1"]]])"), details["cards"]["4"]);
    EXPECT_EQ(Json::parse(R"([["bar.card", 10, [" Material Definition:         11          3"]]])"),
              details["lines"]["6"]);
    EXPECT_FALSE(details["lines"].contains("4"));
    EXPECT_TRUE(details["unreadable"].empty());
}

TEST(PageData, OfALongBlockBothEndsAreShown)
{
    const TemporaryFolder folder;
    Ledger ledger = sample_ledger(".");
    std::string text;
    for (int i = 1; i <= 40; ++i) text += "line " + std::to_string(i) + "\n";
    write_file("bar.k", text);
    ledger.blocks.resize(1);
    ledger.blocks[0].prepared_line = 3;
    ledger.blocks[0].prepared_last_line = 30;
    const Json runs = details_data(ledger)["cards"]["0"];
    ASSERT_EQ(2U, runs.size());
    EXPECT_EQ(3, runs[0][1]);
    EXPECT_EQ(12U, runs[0][2].size());
    EXPECT_EQ("line 14", runs[0][2].back());
    EXPECT_EQ(29, runs[1][1]);
    EXPECT_EQ(Json::parse(R"(["line 29", "line 30"])"), runs[1][2]);
}

TEST(PageData, AFileThatCannotBeReadIsNamed)
{
    const TemporaryFolder folder;
    const Ledger ledger = sample_ledger(".");
    std::filesystem::remove("bar.geom");
    EXPECT_EQ(Json::parse(R"(["bar.geom"])"), details_data(ledger)["unreadable"]);
}

TEST(PageData, BlocksThatLostSomethingAreKeptWhenNotAllFit)
{
    const TemporaryFolder folder;
    const Ledger ledger = long_ledger(".", 1000);
    PageLimits limits;
    limits.blocks = 4000;
    const Json data = ledger_data(ledger, limits);
    EXPECT_EQ(1010, data["all_blocks"]);
    EXPECT_LT(data["blocks"].dump().size(), limits.blocks);
    EXPECT_GT(data["blocks"].size(), 20U);
    std::vector<int> numbers;
    for (const Json& row : data["blocks"]) numbers.push_back(row[0]);
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    for (const int lost : {2, 4, 6, 7, 9})
        EXPECT_TRUE(std::binary_search(numbers.begin(), numbers.end(), lost)) << lost;
}

TEST(PageData, ErrorsAreKeptWhenNotAllFindingsFit)
{
    const TemporaryFolder folder;
    Ledger ledger = sample_ledger(".");
    for (int i = 0; i < 1000; ++i) ledger.findings.push_back(check::finding("MD301", {"bar.k", 1, 0, 0}, "a warning"));
    ledger.findings.push_back(check::finding("MD101", {"bar.k", 7, 0, 0}, "an error"));
    PageLimits limits;
    limits.findings = 1000;
    const Json findings = ledger_data(ledger, limits)["findings"];
    EXPECT_LT(findings.size(), 30U);
    EXPECT_EQ("an error", findings.back()[10]);
}

TEST(PageData, DetailsStayWithinTheirLimit)
{
    const TemporaryFolder folder;
    PageLimits limits;
    limits.details = 400;
    const Json details = details_data(sample_ledger("."), limits);
    EXPECT_LT(details["cards"].dump().size() + details["lines"].dump().size(), 600U);
    EXPECT_TRUE(details["cards"].contains("4"));  // it lost something
}

TEST(Curves, AreShiftedAndScaledAsTheMainDeckHasThem)
{
    const TemporaryFolder folder;
    const std::vector<Curve> curves = read_curves(sample_ledger("."), ".", 100);
    ASSERT_EQ(1U, curves.size());
    EXPECT_EQ(3U, curves[0].block);
    EXPECT_EQ(7, curves[0].id);
    EXPECT_EQ("ramp, doubled and shifted", curves[0].title);
    EXPECT_EQ((std::vector<double>{0.5, 1.5, 4.5}), curves[0].abscissas);
    EXPECT_EQ((std::vector<double>{0, 20, 20}), curves[0].ordinates);
}

TEST(Curves, PointsBeyondTheLimitAreCounted)
{
    const TemporaryFolder folder;
    const std::vector<Curve> curves = read_curves(sample_ledger("."), ".", 2);
    ASSERT_EQ(1U, curves.size());
    EXPECT_EQ(2U, curves[0].abscissas.size());
    EXPECT_EQ(3U, curves[0].points);
}

namespace
{
const ByHand* told(const std::vector<ByHand>& list, std::string_view beginning)
{
    for (const ByHand& thing : list)
        if (thing.text.starts_with(beginning)) return &thing;
    return nullptr;
}
}  // namespace

TEST(ByHand, TellsTheDecksValueAndTheWrittenLine)
{
    const TemporaryFolder folder;
    const Ledger ledger = sample_ledger(".");
    const std::vector<ByHand> list = by_hand(ledger, ".");
    const ByHand* const time = told(list, "The termination time");
    ASSERT_NE(nullptr, time);
    EXPECT_EQ((std::vector<std::size_t>{2}), time->blocks);
    ASSERT_EQ(1U, time->findings.size());
    EXPECT_EQ("MD303", ledger.findings[time->findings[0]].code);
    ASSERT_EQ(1U, time->written.size());
    EXPECT_EQ(2U, time->written[0].first);
    EXPECT_EQ(" Termination time               :  5.000e-03", time->written[0].second);
}

TEST(ByHand, HasOnlyWhatThisDeckNeeds)
{
    const TemporaryFolder folder;
    Ledger ledger = sample_ledger(".");
    EXPECT_EQ(nullptr, told(by_hand(ledger, "."), "Every contact"));
    EXPECT_EQ(nullptr, told(by_hand(ledger, "."), "The box"));
    ledger.blocks[2].keyword = "*CONTACT_AUTOMATIC_SINGLE_SURFACE";
    ledger.settings = {{"sphflag", 1}};
    EXPECT_NE(nullptr, told(by_hand(ledger, "."), "Every contact"));
    EXPECT_NE(nullptr, told(by_hand(ledger, "."), "The box"));
    EXPECT_NE(nullptr, told(by_hand(ledger, "."),
                            "The time step scale factor and the plot state frequency refer to load curve 1, and no"));
}

TEST(ByHand, LinesBelowAHeadingBelongToIt)
{
    const TemporaryFolder folder;
    Ledger ledger = sample_ledger(".");
    ledger.settings = {{"sphflag", 1}};
    write_file("bar.card",
               "!\n SPH deactivation:\n!---   vid\n         1\n\n Box Definition:\n!---  bvid\n         2\n last\n");
    const std::vector<ByHand> list = by_hand(ledger, ".");
    const ByHand* const box = told(list, "The box");
    ASSERT_NE(nullptr, box);
    std::vector<std::size_t> lines;
    for (const auto& [line, text] : box->written) lines.push_back(line);
    EXPECT_EQ((std::vector<std::size_t>{2, 3, 4, 6, 7, 8}), lines);
}

TEST(ByHand, OfManyLikePlacesTheFirstAreShown)
{
    const TemporaryFolder folder;
    const Ledger ledger = sample_ledger(".");
    std::string text;
    for (int i = 0; i < 50; ++i) text += " Failure definition:  " + std::to_string(i) + "\n";
    write_file("bar.card", text);
    const std::vector<ByHand> list = by_hand(ledger, ".");
    const ByHand* const failure = told(list, "Failure definitions");
    ASSERT_NE(nullptr, failure);
    EXPECT_EQ(12U, failure->written.size());
    EXPECT_EQ(38U, failure->written_left_out);
}

TEST(ByHand, NothingWithoutAMainDeck)
{
    const TemporaryFolder folder;
    Ledger ledger = sample_ledger(".");
    ledger.files.clear();
    EXPECT_TRUE(by_hand(ledger, ".").empty());
}
