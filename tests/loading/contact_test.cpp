#include <ostream>
#include <string>
#include <string_view>

#include "loading/loading.h"
#include "reader/pass.h"
#include "support/cards.h"
#include "support/fresh_run.h"

namespace
{
using namespace std::string_literals;

const std::string contact_banner = "!------------------------------------------------\n"
                                   "! Contact Section\n"
                                   "!------------------------------------------------\n"
                                   "\n";

const std::string inactive_pair =
    "!Contact set pair                     :     1    1    2  1.0   !--- CID  SSID  MSID  PSF\n";

const std::string no_contact_warning = "\nWarning: No contact card found - Contact turned off\n";
const std::string scheme_warning = "\nWarning: Contact Scheme 2 being used. Changing to global contact scheme 0.\n";

// What the first contact writes when all its fields are blank and card A is absent.
std::string options_of_a_blank_contact()
{
    const std::string indent(53, ' ');
    return "!--- Global contact options\n"
           " Contact scheme                       :          0   !--- -1=off\n" +
           indent + "!--- 0=Range search based single surface\n" +  //
           indent + "!--- 1=Nearest node based single surface\n" +  //
           indent + "!--- 2=Slave/Master multiple surfaces\n" +     //
           indent + "!--- 3=Lagrange multiplier method\n" +
           " Max segments per node                :         16\n"
           " Iterations between NN search         :         10\n"
           " Parallel efficiency threshold        :        0.9\n"
           " Fix initial penetration              :  0 1.0e-04"
           "   !--- 0=off, 1=on;  Tolerance (final/initial penetration)\n"
           "\n"
           "!--- Contact type 3 options\n"
           "!Contact constraint type              :          0   !--- 0=velocity, 1=displacement\n"
           "!Max number of contact iterations     :          4\n"
           "\n"
           "!--- Penalty based contact options\n"
           " Element penalty formulation          :          0   !--- 0=Standard penalty, 1=Soft material penalty\n"
           " Element penalty scale factor         :        1.0"
           "   !--- Defined for both standard and soft penalty formulations\n"
           "!Part specific element scale factor   :     2  1.0   !--- PID  PSF \n"
           "!Shell thickness scale factor         :        0.0\n"
           " Particle penalty formulation         :          0   !--- 0=Standard penalty, 1=Soft material penalty\n"
           " Particle penalty scale factor        :        1.0   !--- controls contact based on element surfaces\n"
           "!Part specific particle scale factor  :     4  1.0   !--- PID  PSF\n"
           "\n"
           "!--- Contact type 2 options\n";
}

const std::string tied_node_template =
    "\n!--- Tied node options\n"
    "!Tied node definition:\n"
    "!    slvid    stype  mstrsid   effstr     pcut       sn      ss       n       m  radius"
    "    !---slave node/segment id; slave set type, 0=node 1=segment; master segment set id\n"
    "!        1        1        1      0.0      0.0      0.0     0.0     0.0     0.0     0.0"
    "    !---effective plastic fail strain; cutoff pressure; normal force at failure; shear force at failure\n" +
    std::string(91, ' ') + "!---exponent for normal force; exponent for shear force\n" +  //
    std::string(91, ' ') + "!---searching radius for searching tied slave-master node pairs\n";

const std::string thermal_and_friction_template =
    "!--- Thermal contact options\n"
    "!Thermal contact gap tolerance              :        0.1\n"
    "\n"
    "!-------------------------------------------        pid1      pid2    s_coef    d_coef\n"
    "!Friction pair definition                   :          1         2      0.20      0.15\n";

using Contact = FreshRun;

// The deck that a block turns into, a single surface contact with these cards.
Written single_surface(const std::string& cards)
{
    return convert(contact_keywords, "*CONTACT_SINGLE_SURFACE\n" + cards + "*END\n");
}
}  // namespace

TEST_F(Contact, FirstContactWritesTheOptionsAndOneInactivePair)
{
    const Written out =
        convert(contact_section, "*CONTACT_AUTOMATIC_SINGLE_SURFACE\n" + blank_contact_cards + "*END\n");
    EXPECT_EQ(out.deck, contact_banner + options_of_a_blank_contact() + inactive_pair + "\n\n");
    EXPECT_EQ(out.terminal, "");
    EXPECT_EQ(counts.contacts, 1);
    EXPECT_EQ(counts.tied_nodes, 0);
}

TEST_F(Contact, ThreeContactsWriteTheOptionsOnceAndThreeEqualPairs)
{
    const Written out =
        convert(contact_section,  //
                "*CONTACT_SINGLE_SURFACE\n" + blank_contact_cards + "*CONTACT_NODES_TO_SURFACE\n" + card({"5", "6"}) +
                    "\n\n" + "*CONTACT_ERODING_SINGLE_SURFACE\n" + blank_contact_cards + "\n*END\n");
    EXPECT_EQ(out.deck,
              contact_banner + options_of_a_blank_contact() + inactive_pair + inactive_pair + inactive_pair + "\n\n");
    EXPECT_EQ(counts.contacts, 3);
}

TEST_F(Contact, CountsOnFromTheGivenCount)
{
    counts.contacts = 3;
    const Written out = convert_block(contact, "*CONTACT_SINGLE_SURFACE\n" + blank_contact_cards + "*END\n");
    EXPECT_EQ(counts.contacts, 4);
    EXPECT_EQ(out.deck, inactive_pair);
}

// ---- banner, fallback and templates

TEST_F(Contact, StandardsFileLeavesOutTheBannerButNotThePass)
{
    stndflag = 1;
    const Written out = convert(contact_section, "*CONTACT_SINGLE_SURFACE\n" + blank_contact_cards + "*END\n");
    EXPECT_EQ(out.deck, options_of_a_blank_contact() + inactive_pair + "\n\n");
}

TEST_F(Contact, ComprehensiveDeckHasTheBannerAlsoWithAStandardsFile)
{
    stndflag = 2;
    defflag = 1;
    const Written out = convert(contact_section, "*CONTACT_SINGLE_SURFACE\n" + blank_contact_cards + "*END\n");
    EXPECT_EQ(out.deck, contact_banner + options_of_a_blank_contact() + inactive_pair + tied_node_template + "\n\n");
}

TEST_F(Contact, DeckWithoutContactGetsTheConciseDefaultOptions)
{
    const std::string indent(59, ' ');
    const Written out = convert(contact_section, "*END\n");
    EXPECT_EQ(out.deck,
              contact_banner +
                  "!--- Global contact options\n"
                  " Contact scheme                             :          3   !--- 1=off\n" +
                  indent + "!--- 0=Range search based single surface\n" +  //
                  indent + "!--- 1=Nearest node based single surface\n" +  //
                  indent + "!--- 2=Slave/Master multiple surfaces\n" +     //
                  indent + "!--- 3=Lagrange multiplier method\n" +
                  "!--- Contact type 3 options\n"
                  "!Contact constraint type                    :          0   !--- 0=velocity, 1=displacement\n"
                  " Max number of contact iterations           :         15\n"
                  " Curvature based adaptive contact option    :          0"
                  "   !--- 0=off(default), 1=center, 2=corners, 3=both; \n"
                  " Iterations between NN search               :          1\n"
                  "!Fix initial penetration                    :  0 1.0e-04"
                  "   !--- 0=off, 1=on;  Tolerance (final/initial penetration)\n"
                  "\n"
                  "\n\n");
    EXPECT_EQ(out.terminal, no_contact_warning);
    EXPECT_EQ(counts.contacts, 0);
}

TEST_F(Contact, DeckWithoutContactGetsTheComprehensiveDefaultOptionsAndTheTemplates)
{
    defflag = 1;
    const std::string indent(59, ' ');
    const Written out = convert(contact_section, "*END\n");
    EXPECT_EQ(out.deck,
              contact_banner +
                  "!--- Global contact options\n"
                  " Contact scheme                             :          3   !--- 1=off\n" +
                  indent + "!--- 0=Range search based single surface\n" +  //
                  indent + "!--- 1=Nearest node based single surface\n" +  //
                  indent + "!--- 2=Slave/Master multiple surfaces\n" +     //
                  indent + "!--- 3=Lagrange multiplier method\n" +
                  "!--- Contact type 3 options\n"
                  "!Contact constraint type                    :          0   !--- 0=velocity, 1=displacement\n"
                  " Max number of contact iterations           :         15\n"
                  " Curvature based adaptive contact option    :          0"
                  "   !--- 0=off(default), 1=center, 2=corners, 3=both; \n"
                  "!Contact preconditioning scheme             :          0"
                  "   !--- 0=point Jacobian (default), 1=legacy\n"
                  "!Contact convergence tolerance              :  1.000e-06\n"
                  "!Aspect ratio based adaptive contact option :          0   !--- 0=off(default), 1=on \n"
                  "!Part Set Excluded from Contact             :     1    2   !---sid1, sid2, etc.\n"
                  "!--- Additional contact options\n"
                  "!Max segments per node                      :         16\n"
                  " Iterations between NN search               :          1\n"
                  "!Particle penalty formulation               :          0"
                  "   !--- 0=standard formulation, 1=soft material formulation\n"
                  "!Particle penalty scale factor              :        1.0\n"
                  "!Part specific particle penalty scale factor:     1  1.0   !--- pid; scale factor\n"
                  "!Shell thickness scale factor               :        0.5\n"
                  "!Part specific shell thickness scale factor :  0 5.0e-01   !--- pid; scale factor\n"
                  "\n"
                  "!Tied node outlier detection threshold      :  4.00000E+00\n"
                  " Parallel efficiency threshold              :        0.8\n"
                  "!Fix initial penetration                    :  0 1.0e-04"
                  "   !--- 0=off, 1=on;  Tolerance (final/initial penetration)\n"
                  "\n" +
                  thermal_and_friction_template + tied_node_template + "\n\n");
    EXPECT_EQ(out.terminal, no_contact_warning);
}

TEST_F(Contact, StandardsFileLeavesOutTheDefaultOptionsButNotTheTemplates)
{
    stndflag = 1;
    EXPECT_EQ(convert(contact_section, "*END\n").deck, "\n\n");
    defflag = 1;
    const Written out = convert(contact_section, "*END\n");
    EXPECT_EQ(out.deck, contact_banner + thermal_and_friction_template + tied_node_template + "\n\n");
    EXPECT_EQ(out.terminal, no_contact_warning);
}

TEST_F(Contact, OnlyTheExactFlagAsksForTheComprehensiveDeck)
{
    stndflag = 1;
    defflag = 2;
    EXPECT_EQ(convert(contact_section, "*END\n").deck, "\n\n");
}

TEST_F(Contact, OnlyTiedNodeConversionLeavesOutTheTiedNodeTemplate)
{
    stndflag = 1;
    defflag = 1;
    for (const int flag : {0, 1, 3}) {
        contflag = flag;
        EXPECT_EQ(convert(contact_section, "*END\n").deck,
                  contact_banner + thermal_and_friction_template + tied_node_template + "\n\n");
    }
    contflag = 2;
    EXPECT_EQ(convert(contact_section, "*END\n").deck, contact_banner + thermal_and_friction_template + "\n\n");
}

TEST_F(Contact, TiedNodesAreNoContactAndAreFollowedByAnEmptyLine)
{
    contflag = 2;
    stndflag = 1;
    const Written out = convert(contact_section, "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_ID\n"
                                                 "         1 glue\n" +
                                                     blank_contact_cards + "*END\n");
    EXPECT_EQ(lines_with(out.deck, " Tied node definition:"), 1u);
    EXPECT_TRUE(out.deck.ends_with("!---glue" + std::string(76, ' ') + "\n\n\n\n"));
    EXPECT_EQ(out.terminal, no_contact_warning);
    EXPECT_EQ(counts.contacts, 0);
    EXPECT_EQ(counts.tied_nodes, 1);

    reset_run();
    contflag = 2;
    const Written with_options = convert(contact_section, "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_ID\n"
                                                          "         1 glue\n" +
                                                              blank_contact_cards + "*END\n");
    EXPECT_EQ(lines_with(with_options.deck, " Contact scheme                             :          3"), 1u);
}

// ---- the pass

enum class Outcome { converted, refused, silent };

struct KeywordCase {
    std::string_view keyword;
    Outcome outcome;
};

void PrintTo(const KeywordCase& value, std::ostream* stream)
{
    *stream << value.keyword.substr(1);
}

struct ContactPass : FreshRun, testing::WithParamInterface<KeywordCase> {
};

TEST_P(ContactPass, FirstMatchingRowDecides)
{
    contflag = 1;
    const auto [keyword, outcome] = GetParam();
    const std::string kept{keyword.substr(0, 49)};
    const Written out = convert(contact_keywords, std::string{keyword} + "\n" + blank_contact_cards + "*END\n");
    EXPECT_EQ(counts.contacts, outcome == Outcome::converted ? 1 : 0);
    EXPECT_EQ(counts.tied_nodes, 0);
    switch (outcome) {
    case Outcome::converted:
        EXPECT_TRUE(out.log.starts_with("\n" + kept + " . . . recognized keyword\n")) << out.log;
        EXPECT_EQ(out.deck, options_of_a_blank_contact() + inactive_pair);
        break;
    case Outcome::refused:
        EXPECT_EQ(out.log, "\n" + kept + " . . . skipped\n");
        EXPECT_EQ(out.deck, "");
        break;
    case Outcome::silent:
        EXPECT_EQ(out.log, "");
        EXPECT_EQ(out.deck, "");
        break;
    }
    EXPECT_EQ(out.terminal, "");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ContactPass,
    testing::Values(KeywordCase{"*CONTACT_AUTOMATIC_GENERAL_INTERIOR", Outcome::refused},
                    KeywordCase{"*CONTACT_AUTOMATIC_GENERAL", Outcome::converted},
                    KeywordCase{"*CONTACT_AUTOMATIC_NODES_TO_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE_TIEBREAK", Outcome::refused},
                    KeywordCase{"*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_AUTOMATIC_SINGLE_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_TIEBREAK", Outcome::refused},
                    KeywordCase{"*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_ERODING_NODES_TO_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_ERODING_SINGLE_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_ERODING_SURFACE_TO_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_NODES_TO_SURFACE_INTERFERENCE", Outcome::refused},
                    KeywordCase{"*CONTACT_NODES_TO_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_ONE_WAY_SURFACE_TO_SURFACE_INTERFERENCE", Outcome::refused},
                    KeywordCase{"*CONTACT_ONE_WAY_SURFACE_TO_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_SINGLE_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_SURFACE_TO_SURFACE_CONTRACTION_JOINT", Outcome::refused},
                    KeywordCase{"*CONTACT_SURFACE_TO_SURFACE_INTERFERENCE", Outcome::refused},
                    KeywordCase{"*CONTACT_SURFACE_TO_SURFACE", Outcome::converted},
                    KeywordCase{"*CONTACT_TIED_NODES_TO_SURFACE", Outcome::refused},
                    KeywordCase{"*CONTACT", Outcome::refused}));

INSTANTIATE_TEST_SUITE_P(
    NearMisses, ContactPass,
    testing::Values(KeywordCase{"*CONTACT_AUTOMATIC_GENERAL_INTERIOS", Outcome::converted},
                    KeywordCase{"*CONTACT_AUTOMATIC_GENERAK", Outcome::refused},
                    KeywordCase{"*CONTACT_AUTOMATIC_NODES_TO_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE_TIF", Outcome::converted},
                    KeywordCase{"*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE_TI", Outcome::converted},
                    KeywordCase{"*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACT_AUTOMATIC_SINGLE_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_TIEBREAL", Outcome::converted},
                    KeywordCase{"*CONTACT_AUTOMATIC_SURFACE_TO_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACT_ERODING_NODES_TO_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACT_ERODING_SINGLE_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACT_ERODING_SURFACE_TO_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACT_NODES_TO_SURFACE_INTERFERENCF", Outcome::converted},
                    KeywordCase{"*CONTACT_NODES_TO_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACT_ONE_WAY_SURFACE_TO_SURFACE_INTERFERENCF", Outcome::converted},
                    KeywordCase{"*CONTACT_ONE_WAY_SURFACE_TO_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACT_SINGLE_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACT_SURFACE_TO_SURFACE_CONTRACTION_JOINS", Outcome::converted},
                    KeywordCase{"*CONTACT_SURFACE_TO_SURFACE_INTERFERENCF", Outcome::converted},
                    KeywordCase{"*CONTACT_SURFACE_TO_SURFACF", Outcome::refused},
                    KeywordCase{"*CONTACS_SINGLE_SURFACE", Outcome::silent},
                    KeywordCase{"*CONTROL_CONTACT", Outcome::silent}));

TEST_F(Contact, PassEndsAtEnd)
{
    const std::string block = "*CONTACT_SINGLE_SURFACE\n" + blank_contact_cards;
    convert(contact_keywords, block + "*END\n" + block + "*END\n");
    EXPECT_EQ(counts.contacts, 1);

    reset_run();
    convert(contact_keywords, block + "*EMD\n" + block + "*END\n");
    EXPECT_EQ(counts.contacts, 2);
}

TEST_F(Contact, FlagZeroSilencesTheTwoAutomaticTypesAlone)
{
    for (const char* keyword : {"*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_ID", "*CONTACT_AUTOMATIC_NODES_TO_SURFACE"}) {
        SCOPED_TRACE(keyword);
        for (const int flag : {0, 3}) {
            contflag = flag;
            const Written out = convert(contact_keywords, keyword + "\n\n"s + blank_contact_cards + "*END\n");
            EXPECT_EQ(out.deck, "");
            EXPECT_EQ(out.log, "");
            EXPECT_EQ(out.terminal, "");
        }
    }
    contflag = 0;
    convert(contact_keywords, "*CONTACT_SINGLE_SURFACE\n" + blank_contact_cards + "*END\n");
    EXPECT_EQ(counts.contacts, 1);
    EXPECT_EQ(counts.tied_nodes, 0);
}

TEST_F(Contact, FlagTwoMakesTiedNodesOfTheTwoAutomaticTypesAlone)
{
    contflag = 2;
    convert(contact_keywords, "*CONTACT_AUTOMATIC_NODES_TO_SURFACE\n\n" + blank_contact_cards +
                                  "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE\n\n" + blank_contact_cards +
                                  "*CONTACT_NODES_TO_SURFACE\n" + blank_contact_cards + "*END\n");
    EXPECT_EQ(counts.tied_nodes, 2);
    EXPECT_EQ(counts.contacts, 1);
}

// ---- scheme

TEST_F(Contact, SlaveSideOfTheFirstContactWarnsAndKeepsSchemeZero)
{
    const Written out = single_surface(card({"10", "20"}) + "\n\n");
    EXPECT_EQ(out.terminal, scheme_warning);
    EXPECT_EQ(out.deck, options_of_a_blank_contact() + inactive_pair);
}

TEST_F(Contact, SlaveSideOfALaterContactIsSilent)
{
    const Written out = convert(contact_keywords, "*CONTACT_SINGLE_SURFACE\n" + blank_contact_cards +
                                                      "*CONTACT_SINGLE_SURFACE\n" + card({"10", "20"}) + "\n\n*END\n");
    EXPECT_EQ(out.terminal, "");
    EXPECT_EQ(out.deck, options_of_a_blank_contact() + inactive_pair + inactive_pair);
}

// ---- options from the cards

namespace
{
const std::string penalty_label = " Element penalty scale factor         :";
const std::string penalty_comment = "   !--- Defined for both standard and soft penalty formulations";
const std::string searches_label = " Iterations between NN search         :";
}  // namespace

TEST_F(Contact, SoftContactTakesItsPenaltyScaleFactorFromCardA)
{
    const Written out = single_surface("\n\n" + card({"0.7"}) + card({"1", "0.1"}));
    EXPECT_EQ(line_with(out.deck, penalty_label), penalty_label + "        0.1" + penalty_comment);
    EXPECT_EQ(line_with(out.deck, " Element penalty formulation          :"),
              " Element penalty formulation          :          1   !--- 0=Standard penalty, 1=Soft material penalty");
    EXPECT_EQ(lines_equal(out.log, "       sfs: 7.000e-01"), 1u);
    EXPECT_EQ(lines_with(out.log, "    sofscl:"), 0u);
}

TEST_F(Contact, StandardContactTakesItsPenaltyScaleFactorFromCard3)
{
    const Written out = single_surface("\n\n" + card({"0.7"}) + card({"0", "0.1"}));
    EXPECT_EQ(line_with(out.deck, penalty_label), penalty_label + "        0.7" + penalty_comment);
    EXPECT_EQ(lines_with(out.log, "       sfs:"), 0u);
    EXPECT_EQ(lines_equal(out.log, "    sofscl: 1.000e-01"), 1u);
}

TEST_F(Contact, ZeroPenaltyScaleFactorBecomesOne)
{
    const Written soft = single_surface("\n\n" + card({"0.7"}) + card({"2"}));
    EXPECT_EQ(line_with(soft.deck, penalty_label), penalty_label + "        1.0" + penalty_comment);

    reset_run();
    const Written standard = single_surface("\n\n" + card({"0.0"}));
    EXPECT_EQ(line_with(standard.deck, penalty_label), penalty_label + "        1.0" + penalty_comment);
}

TEST_F(Contact, SearchesAreTenWithoutCardAAndZeroWhenItsFieldIsBlank)
{
    const Written absent = single_surface(blank_contact_cards);
    EXPECT_EQ(line_with(absent.deck, searches_label), searches_label + "         10");

    reset_run();
    const Written blank = single_surface(blank_contact_cards + card({"1", "0.1"}));
    EXPECT_EQ(line_with(blank.deck, searches_label), searches_label + "          0");

    reset_run();
    const Written given = single_surface(blank_contact_cards + card({"", "", "", "", "", "", "25"}));
    EXPECT_EQ(line_with(given.deck, searches_label), searches_label + "         25");
}

TEST_F(Contact, ShellThicknessLineIsActiveUnlessTheFactorIsZeroOrOne)
{
    const std::string label = "Shell thickness scale factor         :";
    const Written one = single_surface("\n\n" + card({"", "", "", "", "1.0"}));
    EXPECT_EQ(lines_equal(one.deck, "!" + label + "        1.0"), 1u);
    EXPECT_EQ(lines_with(one.deck, " " + label), 0u);

    reset_run();
    const Written two = single_surface("\n\n" + card({"", "", "", "", "2.0"}));
    EXPECT_EQ(lines_equal(two.deck, " " + label + "        2.0"), 1u);
    EXPECT_EQ(lines_with(two.deck, "!" + label), 0u);
}

TEST_F(Contact, FactorsThatAreNoNumberAreNeitherZeroNorOne)
{
    const Written out = single_surface("\n\n" + card({"nan", "", "", "", "nan"}));
    EXPECT_EQ(line_with(out.deck, penalty_label), penalty_label + "        nan" + penalty_comment);
    EXPECT_EQ(lines_equal(out.deck, " Shell thickness scale factor         :        nan"), 1u);
}

// ---- log

TEST_F(Contact, LogListsTheUnusedFieldsOfCards1To3)
{
    const Written out = single_surface(card({"1", "2", "3", "4", "5", "6", "7", "8"}) +
                                       card({"0.1", "0.2", "0.3", "0.4", "0.5", "9", "0.6", "0.7"}) +
                                       card({"1.1", "1.2", "1.3", "1.4", "1.5", "1.6", "1.7", "1.8"}));
    EXPECT_EQ(out.log, "\n*CONTACT_SINGLE_SURFACE . . . recognized keyword\n"
                       "ignored optional cards b and c\n"
                       "unused variables:\n"
                       "      msid:         2\n"
                       "     sstyp:         3\n"
                       "     mstyp:         4\n"
                       "    sboxid:         5\n"
                       "    mboxid:         6\n"
                       "       spr:         7\n"
                       "       mpr:         8\n"
                       "        fs: 1.000e-01\n"
                       "        fd: 2.000e-01\n"
                       "        dc: 3.000e-01\n"
                       "        vc: 4.000e-01\n"
                       "       vdc: 5.000e-01\n"
                       "    penchk:         9\n"
                       "        bt: 6.000e-01\n"
                       "        dt: 7.000e-01\n"
                       "       sfm: 1.200e+00\n"
                       "       sst: 1.300e+00\n"
                       "       mst: 1.400e+00\n"
                       "      sfmt: 1.600e+00\n"
                       "       fsf: 1.700e+00\n"
                       "       vsf: 1.800e+00\n");
}

TEST_F(Contact, LogOfATitledErodingSoftContactListsCards4AndA)
{
    const Written out =
        convert(contact_keywords, "*CONTACT_ERODING_SINGLE_SURFACE_ID\n"
                                  "         1title\n" +
                                      card({"1", "2"}) + "\n" + card({"1.1"}) + card({"11", "12", "13"}) +
                                      card({"2", "0.5", "3", "1.025", "4.5", "6", "7", "8"}) + "*END\n");
    EXPECT_EQ(out.log, "\n*CONTACT_ERODING_SINGLE_SURFACE_ID . . . recognized keyword\n"
                       "ignored title line\n"
                       "ignored optional cards b and c\n"
                       "unused variables:\n"
                       "      msid:         2\n"
                       "     sstyp:         0\n"
                       "     mstyp:         0\n"
                       "    sboxid:         0\n"
                       "    mboxid:         0\n"
                       "       spr:         0\n"
                       "       mpr:         0\n"
                       "        fs: 0.000e+00\n"
                       "        fd: 0.000e+00\n"
                       "        dc: 0.000e+00\n"
                       "        vc: 0.000e+00\n"
                       "       vdc: 0.000e+00\n"
                       "    penchk:         0\n"
                       "        bt: 0.000e+00\n"
                       "        dt: 0.000e+00\n"
                       "       sfs: 1.100e+00\n"
                       "       sfm: 0.000e+00\n"
                       "       sst: 0.000e+00\n"
                       "       mst: 0.000e+00\n"
                       "      sfmt: 0.000e+00\n"
                       "       fsf: 0.000e+00\n"
                       "       vsf: 0.000e+00\n"
                       "      isym:        11\n"
                       "    erosop:        12\n"
                       "      iadj:        13\n"
                       "    lcidab:         3\n"
                       "    maxpar: 1.025e+00\n"
                       "     sbopt: 4.500e+00\n"
                       "     depth:         6\n"
                       "    frcfrq:         8\n");
    EXPECT_EQ(line_with(out.deck, searches_label), searches_label + "          7");
}

// ---- reading

TEST_F(Contact, IdCardIsOneWholeLineAlsoWhenItIsEmpty)
{
    const Written out = convert(contact_keywords, "*CONTACT_SINGLE_SURFACE_ID\n"
                                                  "\n" +
                                                      card({"", "7"}) + "\n\n*END\n");
    EXPECT_EQ(lines_equal(out.log, "      msid:         7"), 1u);
}

TEST_F(Contact, CommentsStandBeforeEveryCard)
{
    const Written out =
        convert(contact_keywords, "*CONTACT_ERODING_SINGLE_SURFACE_ID\n"
                                  "$ one\n$ two\n"
                                  "         1title\n"
                                  "$\n" +
                                      card({"", "21"}) + "$\n" + card({"", "0.22"}) + "$\n" + card({"", "2.3"}) +
                                      "$\n" + card({"", "24"}) + "$\n" + card({"", "", "25"}) + "$\n*END\n");
    for (const char* line : {"      msid:        21", "        fd: 2.200e-01", "       sfm: 2.300e+00",
                             "    erosop:        24", "    lcidab:        25"})
        EXPECT_EQ(lines_equal(out.log, line), 1u) << line;
    EXPECT_EQ(counts.contacts, 1);
}

TEST_F(Contact, BlankBehindIdMakesItNoTitledContact)
{
    const Written out = convert(contact_keywords, "*CONTACT_SINGLE_SURFACE_ID \n" + card({"", "7"}) + "\n\n*END\n");
    EXPECT_EQ(lines_equal(out.log, "      msid:         7"), 1u);
    EXPECT_EQ(lines_equal(out.log, "ignored title line"), 0u);
}

TEST_F(Contact, CutKeywordLineLosesItsId)
{
    // 49 characters are kept: "..._SURFACE_MOR"
    const Written out = convert(contact_keywords, "*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE_MORTAR_ID\n" +
                                                      card({"", "7"}) + "\n\n*END\n");
    EXPECT_EQ(lines_equal(out.log, "*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE_MOR . . . recognized keyword"), 1u);
    EXPECT_EQ(lines_equal(out.log, "      msid:         7"), 1u);
}

TEST_F(Contact, Card4IsReadForErodingContactsAlone)
{
    const std::string cards = blank_contact_cards + card({"", "", "5"}) + card({"", "", "6"});
    const Written eroding = convert(contact_keywords, "*CONTACT_ERODING_NODES_TO_SURFACE\n" + cards + "*END\n");
    EXPECT_EQ(lines_equal(eroding.log, "      iadj:         5"), 1u);
    EXPECT_EQ(lines_equal(eroding.log, "    lcidab:         6"), 1u);

    reset_run();
    const Written plain = convert(contact_keywords, "*CONTACT_NODES_TO_SURFACE\n" + cards + "*END\n");
    EXPECT_EQ(lines_with(plain.log, "      iadj:"), 0u);
    EXPECT_EQ(lines_equal(plain.log, "    lcidab:         5"), 1u);
}

TEST_F(Contact, CardsBAndCAreLeftUnread)
{
    const Written out = convert(contact_keywords, "*CONTACT_SINGLE_SURFACE\n" + blank_contact_cards + card({"1"}) +
                                                      card({"2"}) + card({"3"}) + "*CONTACT_TIED\n*END\n");
    EXPECT_EQ(counts.contacts, 1);
    EXPECT_EQ(lines_equal(out.log, "*CONTACT_TIED . . . skipped"), 1u);
}

TEST_F(Contact, ReadingStopsBehindTheLastFieldOfCardA)
{
    // what stands there, in mid-line, is the next keyword line
    const std::string card_a = std::string(79, ' ') + "7*CONTACT_TIED\n";
    const Written out =
        convert(contact_keywords, "*CONTACT_SINGLE_SURFACE\n" + blank_contact_cards + card_a + "*END\n");
    EXPECT_EQ(lines_equal(out.log, "    frcfrq:         7"), 1u);
    EXPECT_EQ(lines_equal(out.log, "*CONTACT_TIED . . . skipped"), 1u);
}

TEST_F(Contact, RestOfCard3IsDiscardedBeforeCardAIsLookedFor)
{
    const Written out = single_surface("\n\n" + std::string(80, ' ') + "*CONTACT_TIED\n");
    EXPECT_EQ(lines_with(out.log, "    lcidab:"), 0u);
    EXPECT_EQ(lines_with(out.log, "*CONTACT_TIED"), 0u);
}

TEST_F(Contact, MissingCardReadsTheNextKeywordLineAsACard)
{
    const Written out = convert(contact_keywords, "*CONTACT_SINGLE_SURFACE\n\n\n"
                                                  "*CONTACT_TIED\n"
                                                  "*END\n");
    EXPECT_EQ(counts.contacts, 1);
    EXPECT_EQ(lines_equal(out.log, "*CONTACT_TIED . . . skipped"), 0u);
}

TEST_F(Contact, FieldsKeepSinglePrecision)
{
    const Written out = single_surface("\n" + card({"1e39"}) + "\n");
    EXPECT_EQ(lines_equal(out.log, "        fs:       inf"), 1u);
}
