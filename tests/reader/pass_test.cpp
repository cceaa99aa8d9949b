// Passes over a deck, by tables of their own.
#include "reader/pass.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "reader/card.h"
#include "reader/keyword.h"
#include "reader/run.h"
#include "support/fresh_run.h"
#include "support/keyword_lines.h"

namespace
{
std::string trace;  // what the actions below noted
int switched = 0;

void note_a()
{
    trace += std::string("a(") + cbuffer + ")";
}
void note_b()
{
    trace += std::string("b(") + cbuffer + ")";
}
void read_cards()
{
    for (Card card; card.next();) trace += std::to_string(card.integer()) + ",";
}
void read_one_field()
{
    Card card;
    int field = 0;
    card.first(field);
    trace += std::to_string(field) + ",";
}
constexpr Condition when_switched{"when switched", [] { return switched == 1; }};
void switch_on()
{
    switched = 1;
}

class Passes : public FreshRun
{
protected:
    void SetUp() override
    {
        trace.clear();
        switched = 0;
    }

    template <std::size_t size>
    static Written pass_over(const PassRow (&rows)[size], std::string_view deck)
    {
        return convert(Pass{"test", rows}, deck);
    }
};
}  // namespace

TEST_F(Passes, FirstRowThatMatchesDecides)
{
    static constexpr PassRow rows[] = {
        {"*NODE_RIGID", passed_over}, {"*NODE", handler<note_a>}, {"*END", end_of_pass}, {"*", handler<note_b>}};
    pass_over(rows, "*NODE\n*NODE_RIGID\n*NODE_X\n*NOD\n*END\n");
    EXPECT_EQ(trace, "a(*NODE)a(*NODE_X)b(*NOD)");
}

TEST_F(Passes, RowIsAPrefixOfItsOwnLength)
{
    static constexpr PassRow rows[] = {
        {{"*DEFINE_BOX", 10}, handler<note_a>}, {"*DEFINE_BOX", handler<note_b>}, {"*END", end_of_pass}};
    static_assert(!every_row_reachable(rows));
    pass_over(rows, "*DEFINE_BOX\n*DEFINE_BOAT\n*DEFINE_B\n*define_bottle\n*END\n");
    EXPECT_EQ(trace, "a(*DEFINE_BOX)a(*DEFINE_BOAT)a(*DEFINE_BOTTLE)");
}

TEST_F(Passes, KeywordShorterThanARowDoesNotMatchIt)
{
    static constexpr PassRow rows[] = {{"*NODE", handler<note_a>}, {"*END", end_of_pass}};
    pass_over(rows, "*NOD\n*\n*NODE\n*END\n");
    EXPECT_EQ(trace, "a(*NODE)");
}

TEST_F(Passes, RowWhoseConditionFailsIsNotThere)
{
    static constexpr PassRow rows[] = {{"*SWITCH", handler<switch_on>},
                                       {"*NODE", handler<note_a>, "", "", when_switched},
                                       {"*NODE", handler<note_b>},
                                       {"*END", end_of_pass}};
    static_assert(every_row_reachable(rows));
    pass_over(rows, "*NODE\n*SWITCH\n*NODE\n*END\n");
    EXPECT_EQ(trace, "b(*NODE)a(*NODE)");
}

TEST_F(Passes, EndRowStopsAtOnceAndWhatFollowsIsNotRead)
{
    static constexpr PassRow rows[] = {{"*NODE", handler<note_a>}, {"*END", end_of_pass}};
    const Written written = pass_over(rows, "*NODE\n*ENDING\n*NODE\n*END\n");
    EXPECT_EQ(trace, "a(*NODE)");
    EXPECT_EQ(written.log, "");
}

TEST_F(Passes, AnyRowMayEndThePass)
{
    static constexpr PassRow rows[] = {{"*STOP", end_of_pass, "", "", when_switched},
                                       {"*SWITCH", handler<switch_on>},
                                       {"*NODE", handler<note_a>},
                                       {"*END", end_of_pass}};
    pass_over(rows, "*STOP\n*NODE\n*SWITCH\n*STOP\n*NODE\n*END\n");
    EXPECT_EQ(trace, "a(*NODE)");
}

TEST_F(Passes, PassBeginsAtTheBeginningOfTheDeck)
{
    static constexpr PassRow rows[] = {{"*NODE", handler<note_a>}, {"*END", end_of_pass}};
    convert(
        [] {
            run_pass({"test", rows});
            trace += "|";
            run_pass({"test", rows});
            infile.skip_line();
            trace += "|";
            run_pass({"test", rows});
        },
        "*NODE\n*END\n");
    EXPECT_EQ(trace, "a(*NODE)|a(*NODE)|a(*NODE)");
}

TEST_F(Passes, SkippedKeywordIsLoggedAndUnmatchedOnesAreNot)
{
    static constexpr PassRow rows[] = {{"*SET", skipped}, {"*NODE", passed_over}, {"*END", end_of_pass}};
    EXPECT_EQ(pass_over(rows, "*set_beam\n*NODE\n*MAT\n1\n*SET\n*END\n").log,
              "\n*SET_BEAM . . . skipped\n\n*SET . . . skipped\n");
}

TEST_F(Passes, HandlersReadTheirCardsAndLeaveTheNextKeywordToThePass)
{
    static constexpr PassRow rows[] = {{"*A", handler<read_cards>}, {"*B", handler<note_b>}, {"*END", end_of_pass}};
    pass_over(rows, "$\n*A\n         1\n$\n         2\n*B\n         3\n*A\n*A\n         4\n*END\n         5\n");
    EXPECT_EQ(trace, "1,2,b(*B)4,");
}

TEST_F(Passes, DataLinesOfBlocksThatNobodyReadsArePassedOver)
{
    static constexpr PassRow rows[] = {{"*B", handler<note_b>}, {"*END", end_of_pass}};
    pass_over(rows, "1\n*A\n *B\n1*B\n$*B\n*B\n*END\n");
    EXPECT_EQ(trace, "b(*B)");
}

TEST_F(Passes, DeckWithoutEndEndsThePass)
{
    static constexpr PassRow rows[] = {{"*A", handler<read_cards>}, {"*END", end_of_pass}};
    for (const char* deck : {"", "\n", "*A", "*A\n", "*A\n         1", "no keyword at all"}) pass_over(rows, deck);
    EXPECT_EQ(trace, "1,");
}

TEST_F(Passes, LowerCaseKeywordsMatch)
{
    static constexpr PassRow rows[] = {{"*NODE", handler<note_a>}, {"*END", end_of_pass}};
    pass_over(rows, "*node\n*end\n*NODE\n");
    EXPECT_EQ(trace, "a(*NODE)");
}

TEST_F(Passes, NestedPassRestoresThePositionForTheOuterOne)
{
    static constexpr PassRow inner[] = {{"*C", handler<note_a>}, {"*END", end_of_pass}};
    static constexpr PassRow outer[] = {{"*A",
                                         {Treatment::converted,
                                          [] {
                                              const Position position = infile.position();
                                              run_pass({"inner", inner});
                                              infile.seek(position);
                                          }}},
                                        {"*B", handler<note_b>},
                                        {"*END", end_of_pass}};
    pass_over(outer, "*A\n*B\n*C\n*A\n*B\n*END\n");
    EXPECT_EQ(trace, "a(*C)b(*B)a(*C)b(*B)");
}

// ---- with an index of the keyword lines
// ------------------------------------------------------------------------------

TEST_F(Passes, IndexHidesNoLineThatARowMatches)
{
    static constexpr PassRow rows[] = {{"*NODE", handler<note_a>}, {"*_", handler<note_b>}, {"*END", end_of_pass}};
    const std::string_view deck = "*SET\n*node\n1\n*MAT\n2*\n*_x\n*\n3\n*Node_B\n*SET\n*NOD\n";
    const KeywordIndex index = index_of(deck);
    for (const bool indexed : {false, true}) {
        trace.clear();
        infile.open_text(deck, 0);
        if (indexed) infile.use_index(&index);
        run_pass(Pass{"test", rows});
        EXPECT_EQ(trace, "a(*NODE)b(*_X)a(*NODE_B)") << indexed;
    }
}

TEST_F(Passes, IndexHidesNothingFromARowForAllKeywords)
{
    static constexpr PassRow rows[] = {{"*END", end_of_pass}, {"", handler<note_a>}};
    const std::string_view deck = "*SET\n1\n*node\n2\n*\n3\n*_\n";
    const KeywordIndex index = index_of(deck);
    infile.open_text(deck, 0);
    infile.use_index(&index);
    run_pass(Pass{"test", rows});
    EXPECT_EQ(trace, "a(*SET)a(*NODE)a(*)a(*_)");
}

TEST_F(Passes, StarWhereAHandlerStopsInMidLineIsAKeywordLineWithAnIndexToo)
{
    static constexpr PassRow rows[] = {
        {"*NODE", handler<read_one_field>}, {"*X", handler<note_a>}, {"*END", end_of_pass}};
    const std::string_view deck = "*NODE\n         1*x\n*NODE\n         2*s\n*x\n";
    const KeywordIndex index = index_of(deck);
    infile.open_text(deck, 0);
    infile.use_index(&index);
    run_pass(Pass{"test", rows});
    EXPECT_EQ(trace, "1,a(*X)2,a(*X)");
}

TEST_F(Passes, BlocksOfOtherInitialsAreNotRead)
{
    static constexpr PassRow rows[] = {{"*NODE", handler<note_a>}, {"*END", end_of_pass}};
    std::string deck;
    for (int i = 0; i < 500; ++i) deck += "*SET_PART\n         1\n*MAT_ELASTIC\n" + std::string(2000, '1') + "\n";
    deck += "*NODE\n";
    const KeywordIndex index = index_of(deck);
    std::size_t read = 0;
    infile.open_text(deck, 4096);
    infile.use_index(&index);
    infile.watch([](void* sum, std::size_t bytes) { *static_cast<std::size_t*>(sum) += bytes; }, &read);
    run_pass(Pass{"test", rows});
    EXPECT_EQ(trace, "a(*NODE)");
    EXPECT_LT(read, 10000U);
}

TEST_F(Passes, FirstMatchLooksPastConditions)
{
    static constexpr PassRow rows[] = {
        {"*NODE_RIGID", skipped}, {"*NODE", handler<note_a>, "", "", when_switched}, {"*NODE", handler<note_b>}};
    const Pass pass{"test", rows};
    EXPECT_EQ(first_match(pass, "*NODE_RIGID_SURFACE"), &rows[0]);
    EXPECT_EQ(first_match(pass, "*NODE_X"), &rows[1]);
    EXPECT_EQ(first_match(pass, "*NOD"), nullptr);
}

namespace
{
void note_number(int number)
{
    trace += std::to_string(number);
}
}  // namespace

TEST_F(Passes, HandlersHaveTheNamesOfTheirProceduresAndTakeTheirArguments)
{
    EXPECT_EQ(handler<note_a>.procedure, "note_a");
    EXPECT_EQ((handler<note_number, 7>.procedure), "note_number");
    EXPECT_EQ(skipped.procedure, "");
    handler<note_number, 7>.run();
    EXPECT_EQ(trace, "7");
}

// ---- tables whose rows hide each other -----------------------------------------------------------------------------

namespace
{
constexpr PassRow specific_first[] = {{"*NODE_RIGID", skipped}, {"*NODE", handler<note_a>}, {"*END", end_of_pass}};
constexpr PassRow prefix_first[] = {{"*NODE", handler<note_a>}, {"*NODE_RIGID", skipped}, {"*END", end_of_pass}};
constexpr PassRow twice[] = {{"*NODE", handler<note_a>}, {"*END", end_of_pass}, {"*NODE", handler<note_b>}};
constexpr PassRow conditional_prefix_first[] = {{"*NODE", handler<note_a>, "", "", when_switched},
                                                {"*NODE_RIGID", skipped}};
constexpr PassRow hidden_condition[] = {{"*NODE", handler<note_a>}, {"*NODE_RIGID", skipped, "", "", when_switched}};
constexpr PassRow cut_row_hides[] = {{{"*SET_SHELL_LIST_GENERATE", 19}, skipped},
                                     {"*SET_SHELL_LIST_GENERAL", handler<note_a>}};
constexpr PassRow all_last[] = {{"*NODE", handler<note_a>}, {"", skipped}};
constexpr PassRow all_first[] = {{"", skipped}, {"*NODE", handler<note_a>}};
static_assert(every_row_reachable(specific_first));
static_assert(!every_row_reachable(prefix_first));
static_assert(!every_row_reachable(twice));
static_assert(every_row_reachable(conditional_prefix_first));
static_assert(!every_row_reachable(hidden_condition));
static_assert(!every_row_reachable(cut_row_hides));
static_assert(every_row_reachable(all_last));
static_assert(!every_row_reachable(all_first));
static_assert(every_row_reachable({}));
}  // namespace

TEST(EveryRowReachable, TellsTheSameAtRunTime)
{
    EXPECT_TRUE(every_row_reachable(specific_first));
    EXPECT_FALSE(every_row_reachable(prefix_first));
}
