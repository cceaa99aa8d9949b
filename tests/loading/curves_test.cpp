#include <string>

#include "loading/loading.h"
#include "support/cards.h"
#include "support/fresh_run.h"

namespace
{
const std::string lcid_line = "\n!---------------------------------- LCID    TITLE\n";
const std::string point_heads = "!---------- abscissa ---------- ordinate\n";

const std::string curve_banner = "!------------------------------------------------\n"
                                 "! Load Curve Definitions\n"
                                 "!------------------------------------------------\n";

const std::string plot_curve = lcid_line + " Load curve definition:                1    Plot Curve\n"
                                           "!---------- abscissa ---------- ordinate\n"
                                           "          0.0000e+00          0.0000e+00\n"
                                           "          0.0000e+00          0.0000e+00\n"
                                           "          0.0000e+00          0.0000e+00\n"
                                           "          0.0000e+00          0.0000e+00\n"
                                           "          0.0000e+00          0.0000e+00\n"
                                           "          0.0000e+00          0.0000e+00\n"
                                           "\n\n";

std::string point(const std::string& abscissa, const std::string& ordinate)
{
    return std::string(20 - abscissa.size(), ' ') + abscissa + std::string(20 - ordinate.size(), ' ') + ordinate + "\n";
}

using Curves = FreshRun;
using Transformations = FreshRun;

// The point lines of a curve whose card 1 has these scale factors and offsets.
std::string points_of(const std::string& sfa, const std::string& sfo, const std::string& offa, const std::string& offo,
                      const std::string& points)
{
    const Written out =
        convert(curve_keywords, "*DEFINE_CURVE\n" + card({"1", "0", sfa, sfo, offa, offo}) + points + "*END\n");
    return out.deck.substr(out.deck.find(point_heads) + point_heads.size());
}
}  // namespace

TEST_F(Curves, CurveIsShiftedAndScaled)
{
    const Written out = convert(curve_keywords, "*DEFINE_CURVE\n" + card({"3", "0", "0.0", "2.0", "1.0", "0.0", "0"}) +
                                                    point("1.0", "5.0") + "*END\n");
    EXPECT_EQ(out.deck, lcid_line + " Load curve definition:                3              load curve\n"
                                    "!---------- abscissa ---------- ordinate\n"
                                    "           2.000e+00           1.000e+01\n");
    EXPECT_EQ(out.log, "\n*DEFINE_CURVE . . . recognized keyword\n"
                       "unused variables:\n"
                       "      sidr:         0\n"
                       "       sfa: 1.000e+00 . . . Applied to data points\n"
                       "       sfo: 2.000e+00 . . . Applied to data points\n"
                       "      offa: 1.000e+00 . . . Applied to data points\n"
                       "      offo: 0.000e+00 . . . Applied to data points\n"
                       "    dattyp:         0\n");
}

TEST_F(Curves, LogShowsWhatIsNotPassedOn)
{
    const Written out =
        convert(curve_keywords, "*DEFINE_CURVE\n" + card({"3", "1", "4.0", "", "-0.5", "0.25", "6"}) + "*END\n");
    EXPECT_EQ(out.log, "\n*DEFINE_CURVE . . . recognized keyword\n"
                       "unused variables:\n"
                       "      sidr:         1\n"
                       "       sfa: 4.000e+00 . . . Applied to data points\n"
                       "       sfo: 1.000e+00 . . . Applied to data points\n"
                       "      offa:-5.000e-01 . . . Applied to data points\n"
                       "      offo: 2.500e-01 . . . Applied to data points\n"
                       "    dattyp:         6\n");
    EXPECT_EQ(out.deck, lcid_line + " Load curve definition:                3              load curve\n" + point_heads);
}

TEST_F(Curves, OffsetIsAddedBeforeTheSumIsScaled)
{
    EXPECT_EQ(points_of("2.0", "-3.0", "3.0", "1.0", point("1.0", "4.0")),
              "           8.000e+00          -1.500e+01\n");
}

TEST_F(Curves, ValuesAreSinglePrecision)
{
    // 100000001 is 100000000 in single precision
    EXPECT_EQ(points_of("", "", "-100000000", "-100000000", point("100000001", "100000016")),
              "           0.000e+00           1.600e+01\n");
}

TEST_F(Curves, InvalidSumsAndProductsAreNegativeNan)
{
    EXPECT_EQ(points_of("", "inf", "inf", "", point("-inf", "0.0")), "                -nan                -nan\n");
    EXPECT_EQ(points_of("", "", "", "", point("nan", "inf")), "                 nan                 inf\n");
}

TEST_F(Curves, CommentsAmongThePointsAreSkippedAndBlankLinesArePoints)
{
    EXPECT_EQ(points_of("", "", "1.0", "2.0", "$ a\n" + point("1.0", "1.0") + "\n$ b\n$ c\n" + point("2.0", "2.0")),
              "           2.000e+00           3.000e+00\n"
              "           1.000e+00           2.000e+00\n"
              "           3.000e+00           4.000e+00\n");
}

TEST_F(Curves, PointFieldsAreTwentyColumnsWide)
{
    // Two numbers in twenty columns are one field, which ends as a number at the blanks behind the first.
    EXPECT_EQ(points_of("", "", "", "", card({"1.0", "2.0"})), "           1.000e+00           0.000e+00\n");
    // A number that is not at the end of its twenty columns is none.
    EXPECT_EQ(points_of("", "", "", "", card({"1.0", "", "2.0", "3.0"})), "           0.000e+00           2.000e+00\n");
}

TEST_F(Curves, TitleReplacesTheCommonName)
{
    const Written out = convert(curve_keywords, "*DEFINE_CURVE_TITLE\n"
                                                "$ comment\n"
                                                "pulse\n"
                                                "$ comment\n" +
                                                    card({"12"}) + "*END\n");
    EXPECT_EQ(out.deck, lcid_line + " Load curve definition:               12                   pulse\n" + point_heads);
    EXPECT_TRUE(out.log.starts_with("\n*DEFINE_CURVE_TITLE . . . recognized keyword\nunused variables:\n"));
}

TEST_F(Curves, LongTitleIsKeptToEightyCharacters)
{
    const Written out =
        convert(curve_keywords, "*DEFINE_CURVE_TITLE\n" + std::string(80, 't') + "uv\n" + card({"12"}) + "*END\n");
    EXPECT_EQ(out.deck,
              lcid_line + " Load curve definition:               12    " + std::string(80, 't') + "\n" + point_heads);
}

TEST_F(Curves, TitleOf79CharactersKeepsItsNewline)
{
    const std::string title(79, 't');
    const Written out = convert(curve_keywords, "*DEFINE_CURVE_TITLE\n" + title + "\n" + card({"12"}) + "*END\n");
    EXPECT_EQ(out.deck, lcid_line + " Load curve definition:               12    " + title + "\n\n" + point_heads);
}

TEST_F(Curves, ScaleFactorThatIsZeroInSinglePrecisionBecomesOne)
{
    EXPECT_EQ(points_of("1e-50", "-0.0", "", "", point("3.0", "4.0")), "           3.000e+00           4.000e+00\n");
}

TEST_F(Curves, LowerCaseKeywordIsConverted)
{
    const Written out = convert(curve_keywords, "*define_curve_title\npulse\n" + card({"12"}) + "*end\n");
    EXPECT_EQ(lines_equal(out.deck, " Load curve definition:               12                   pulse"), 1u);
}

TEST_F(Curves, OtherCurveKeywordsAreSkipped)
{
    for (const char* name : {"COMPENSATION", "DRAWBEAD", "ENTITY", "FEEDBACK", "FUNCTION", "SMOOTH", "TRIM"}) {
        std::string keyword = std::string("*DEFINE_CURVE_") + name;
        const Written out = convert(curve_keywords, keyword + "\n" + card({"1"}) + "*END\n");
        EXPECT_EQ(out.deck, "");
        EXPECT_EQ(out.log, "\n" + keyword + " . . . skipped\n");

        ++keyword.back();
        const Written near_miss = convert(curve_keywords, keyword + "\n" + card({"1"}) + "*END\n");
        EXPECT_EQ(lines_with(near_miss.deck, " Load curve definition:"), 1u) << keyword;
        EXPECT_TRUE(near_miss.log.starts_with("\n" + keyword + " . . . recognized keyword\n")) << keyword;
    }
}

TEST_F(Curves, OtherKeywordsArePassedOverInSilence)
{
    const Written out = convert(curve_keywords, "*DEFINE_CURVF\n" + card({"1"}) + "*DEFINE_TABLE\n" + card({"1"}) +
                                                    "*ENE\n" + "*END\n*DEFINE_CURVE\n" + card({"1"}) + "*END\n");
    EXPECT_EQ(out.deck, "");
    EXPECT_EQ(out.log, "");
}

TEST_F(Curves, PassGoesOnBehindAnUnknownKeyword)
{
    const Written out = convert(curve_keywords, "*ENE\n*DEFINE_CURVE\n" + card({"1"}) + "*END\n");
    EXPECT_EQ(lines_with(out.deck, " Load curve definition:"), 1u);
}

TEST_F(Curves, MissingCard1ReadsTheNextKeywordLineAsACard)
{
    const Written out = convert(curve_keywords, "*DEFINE_CURVE\n*DEFINE_CURVE_SMOOTH\n*END\n");
    EXPECT_EQ(out.deck, lcid_line + " Load curve definition:                0              load curve\n" + point_heads);
    EXPECT_TRUE(out.log.starts_with("\n*DEFINE_CURVE . . . recognized keyword\n"));
    EXPECT_EQ(lines_equal(out.log, "*DEFINE_CURVE_SMOOTH . . . skipped"), 0u);
}

TEST_F(Curves, SectionWithoutCurvesHasThePlotCurve)
{
    const Written out = convert(load_curves, "*END\n");
    EXPECT_EQ(out.deck, curve_banner + plot_curve);
}

TEST_F(Curves, PlotCurveFollowsTheCurvesOfTheDeckAsNumber1)
{
    const Written out = convert(load_curves, "*DEFINE_CURVE\n" + card({"1"}) + point("1.0", "2.0") + "*END\n");
    EXPECT_EQ(out.deck, curve_banner + lcid_line +
                            " Load curve definition:                1              load curve\n" + point_heads +
                            "           1.000e+00           2.000e+00\n" + plot_curve);
}

TEST_F(Transformations, TemplateIsFixed)
{
    const Written out = convert(transformations, "*DEFINE_TRANSFORMATION\n         1\n*END\n");
    EXPECT_EQ(out.deck, "!------------------------------------------------\n"
                        "! Transformation Definitions\n"
                        "!------------------------------------------------\n"
                        "\n"
                        "!--------------------      tsid tsid_type\n"
                        "!Grid Transformation:         1         1" +
                            std::string(43, ' ') + "!--entity to be transformed; 0=NSID, 1=PSID, 2=PID\n" +
                            "!                          tid1      tid2      tid3" + std::string(33, ' ') +
                            "!--transformations in order of operation\n"
                            "!                            S1        T1        R1\n"
                            "\n"
                            "!Scale Transformation Definition:\n"
                            "!    def_id        X0        Y0        Z0        sx        sy        sz\n"
                            "!        S1 0.000e+00 0.000e+00 0.000e+00       0.0       0.0       0.0" +
                            std::string(13, ' ') +
                            "!--id; scaling origin; component scale factors\n"
                            "\n"
                            "!Translation Transformation Definition:\n"
                            "!    def_id        dx        dy        dz\n"
                            "!        T1       0.0       0.0       0.0" +
                            std::string(43, ' ') +
                            "!--id; components of translation\n"
                            "\n"
                            "!Rotation Transformation Definition:\n"
                            "!    def_id       ang        X0        Y0        Z0        sx        sy        sz\n"
                            "!        R1 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00 0.000e+00" +
                            std::string(3, ' ') +
                            "!--id; rotation angle; define axis of rotation (follows RH rule)\n"
                            "\n");
    EXPECT_EQ(out.log, "");
}
