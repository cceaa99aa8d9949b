// The lines that handlers write into the debug log, and banners.
#include "reader/debug_log.h"

#include <gtest/gtest.h>

#include <cstring>

#include "reader/deck_lines.h"
#include "reader/run.h"
#include "support/fresh_run.h"

namespace
{
class DebugLog : public FreshRun
{
protected:
    template <class Procedure>
    static std::string log_of(Procedure procedure)
    {
        return convert_block(procedure, "*mat_elastic (1)\n").log;
    }
};
}  // namespace

TEST_F(DebugLog, RecognizedAndSkippedQuoteTheKeywordLine)
{
    EXPECT_EQ(log_of(log_recognized), "\n*MAT_ELASTIC (1) . . . recognized keyword\n");
    EXPECT_EQ(log_of(log_skipped), "\n*MAT_ELASTIC (1) . . . skipped\n");
}

TEST_F(DebugLog, KeywordLineOfSixtyCharactersIsQuotedCut)
{
    EXPECT_EQ(convert_block(log_skipped, "*" + std::string(59, 'a') + "\n").log,
              "\n*" + std::string(48, 'A') + " . . . skipped\n");
}

TEST_F(DebugLog, TitleLineIsReportedAsIgnored)
{
    EXPECT_EQ(log_of(log_ignored_title), "ignored title line\n");
}

TEST_F(DebugLog, UnusedFieldsAreListedByKind)
{
    EXPECT_EQ(log_of([] {
                  log_unused({{"idof", 7}, {"marea", 0.25f}, {"adpopt", -12}, {"ad", -0.0f}});
              }),
              "unused variables:\n"
              "      idof:         7\n"
              "     marea: 2.500e-01\n"
              "    adpopt:       -12\n"
              "        ad:-0.000e+00\n");
}

TEST_F(DebugLog, NoUnusedFieldsAreSaidSo)
{
    EXPECT_EQ(log_of([] { log_unused({}); }), "no unused variables\n");
}

TEST_F(DebugLog, HeadingAndSingleFieldsMayBeWrittenApart)
{
    EXPECT_EQ(log_of([] {
                  log_unused_heading();
                  log_fields({{"a longer name than ten", 1}});
                  log_fields({{"q1", 1.0e10f}});
              }),
              "unused variables:\n"
              "a longer name than ten:         1\n"
              "        q1: 1.000e+10\n");
}

TEST_F(DebugLog, BannerIsThreeLines)
{
    const auto section = [] { banner(inpfile, "100 % Control"); };
    EXPECT_EQ(convert_block(section, "*END\n").deck, "!------------------------------------------------\n"
                                                     "! 100 % Control\n"
                                                     "!------------------------------------------------\n");
    EXPECT_EQ(rule.size(), 1U + 48U + 1U);
}
